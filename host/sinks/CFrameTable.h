// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QCoreApplication>
#include <QFile>
#include <QString>

namespace Host {

/**
 * "frames.csv" in the folder of a sink: a line for each frame that was written, at once.
 *
 * \verbatim
 * file,frame,timestamp_ns,grabbed_utc,source
 * frame-000000.png,4711,81923746123,2026-11-22T11:40:05.123456Z,
 * \endverbatim
 *
 * "frame" and "timestamp_ns" are the camera's own; "grabbed_utc" is when the frame came out of its stream, by the clock
 * of this computer; "source" is the file that it was read from, empty for a camera. Threads: one at a time.
 */
class CFrameTable
{
    Q_DECLARE_TR_FUNCTIONS(Host::CFrameTable)

public:
    static QString fileName();

    /// \a file: the full name of the file that \a frame is in. The table is in the same folder; the first frame
    /// replaces one that is there. Returns what is wrong, with the table's name; empty on success.
    QString add(const QString& file, const Plugin::Halvex::CNodeData& frame);

private:
    bool open(const QString& name);

    QFile m_table;
};

} // namespace Host
