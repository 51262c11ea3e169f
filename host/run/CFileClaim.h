// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QDir>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace Host {

/**
 * Files that a run writes into its folder, by name: "chain.json", or "fake/frames/frame-*.png", where '*' in the name
 * of the file stands for a number. Whatever else lies beside them is not claimed.
 *
 * \code
 * const CFileClaim claim(QStringLiteral("out"), QStringLiteral("fake/frames/frame-*.png"));
 * const QStringList files = claim.filesAndParts();
 * for (const QString& file : files)
 *     QFile::remove(QStringLiteral("out/") + file);
 * \endcode
 *
 * Numbered files are written under other names first, "frame-000000.png.part" or "video-000000.part.avi"; a run that is
 * killed leaves these.
 *
 * Threads: any, one at a time.
 */
class CFileClaim
{
public:
    CFileClaim(const QString& folder, const QString& claim);

    /// Those that are there, and folders that are called like one; by their names in the run's folder, sorted.
    QStringList filesAndFolders() const;

    /// Those that are there, and what became of none, sorted.
    QStringList filesAndParts() const;

    /// Whether the file at \a realPath, which need not be there, is one of them.
    bool covers(const QString& realPath) const;

private:
    QStringList find(const QRegularExpression& pattern, QDir::Filters kinds) const;

    QString m_path;      // the file's real path, for a claim without a number
    QString m_directory; // its real path
    QString m_prefix;    // of names: "fake/frames/"
    QRegularExpression m_names;
    QRegularExpression m_namesAndParts;
};

} // namespace Host
