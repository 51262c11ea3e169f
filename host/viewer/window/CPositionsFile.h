// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMap>
#include <QPointF>
#include <QString>

namespace Host {

/**
 * Where the nodes of scene documents were drawn: in a file of the viewer's own, since the documents say what a graph
 * does and not how it looks.
 *
 * \code
 * const CPositionsFile positions;
 * positions.save("scene.json", {{"{id}", QPointF(0, 100)}});
 * editor.setPositions(positions.load("scene.json"));
 * \endcode
 *
 * A document is known by its full name. Positions of one that is gone are forgotten at the next save().
 *
 * Threads: one at a time.
 */
class CPositionsFile
{
public:
    /// \a file: empty for the one of the person.
    explicit CPositionsFile(const QString& file = {});

    /// By node; none if the document is not known or the file cannot be read.
    QMap<QString, QPointF> load(const QString& document) const;

    /// In place of what was saved for the document. Returns what is wrong, in one line; empty on success.
    QString save(const QString& document, const QMap<QString, QPointF>& positions) const;

private:
    const QString m_file;
};

} // namespace Host
