// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QEventLoopLocker>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

namespace Host {

class AFileSinkModel;
class CViewModel;

/**
 * Writes the images that a view gets into files, with the host's own sinks: what comes while it records is given to one
 * that is in no graph. So the scene, its document and its undo steps are what they were.
 *
 * \code
 * connect(&recorder, &CRecorder::changed, this, &CRecordBar::refresh);
 * if (recorder.start(CRecorder::EKind::Video, folder, 60.0))
 *     ...
 * recorder.stop(); // Finishing until all that waits is written
 * \endcode
 *
 * Each recording has a folder of its own: "<view's name> 2026-11-22 23-40-05". Raw files hold the values of the images,
 * as CImageData says, and not what the camera sent: for that there is the "Raw Sink", to be placed in the graph.
 *
 * A file that cannot be written ends the recording, with error(); what was written before stays. The end of the view
 * ends it, too. What still waits when this object is destroyed is not written: an owner that goes before leaves it
 * alone with deleteWhenDone(). While it records or finishes, the program does not end with its last window.
 *
 * Threads: the graph's, which is that of the window.
 */
class CRecorder : public QObject
{
    Q_OBJECT

public:
    enum class EKind
    {
        Png,
        Raw,
        Video
    };
    Q_ENUM(EKind)

    enum class EState
    {
        Idle,      ///< Nothing has been recorded yet, or the last recording could not begin.
        Recording, ///< What comes is written.
        Finishing, ///< No more is taken; what waits is written.
        Finished   ///< All is written, or has failed; until the next start().
    };
    Q_ENUM(EState)

    /// received == written + dropped + pending unless the recording has failed. A plain value.
    struct SCounts
    {
        quint64 received = 0; ///< Images.
        quint64 written = 0;
        quint64 dropped = 0; ///< For want of time: the files are slower than the images.
        quint64 pending = 0; ///< Waiting, or being written.
    };

    /// \a view may go before this object does.
    explicit CRecorder(CViewModel& view, QObject* parent = nullptr);
    ~CRecorder() override;

    /// Begins a recording in a new folder within \a parentFolder, which is made if it does not exist. A video plays
    /// with \a framesPerSecond. False, with error(), if there can be no folder; false while one is recorded or
    /// finished.
    bool start(EKind kind, const QString& parentFolder, double framesPerSecond);

    /// Takes no more. Does nothing unless it records.
    void stop();

    /// Stops, and deletes this object when all is written; at once if there is nothing to write.
    void deleteWhenDone();

    EState state() const { return m_state; }
    EKind kind() const { return m_kind; }
    SCounts counts() const;
    QString folder() const { return m_folder; } ///< Of this or the last recording.
    QString error() const { return m_error; }   ///< Of this or the last recording; empty without one.

Q_SIGNALS:
    /// The state or the error has changed, or something was recorded or written.
    void changed();

private:
    void onData(const Plugin::Halvex::CNodeDataPtr& data);
    void onFailed(const QString& error);
    void endIfDone();
    void setState(EState state);

    const QPointer<CViewModel> m_view;
    EState m_state = EState::Idle;
    EKind m_kind = EKind::Png;
    QString m_folder;
    QString m_error;
    bool m_isCompleted = false;                      // the sink was asked to complete its file
    bool m_isLeft = false;                           // deleteWhenDone() was called
    std::unique_ptr<QEventLoopLocker> m_programLock; // while it records or finishes
    std::unique_ptr<AFileSinkModel> m_sink;
};

} // namespace Host
