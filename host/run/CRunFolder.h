// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

class QLockFile;

namespace Host {

/**
 * The folder of a run. It is the run's own: another one at the same time is refused, and what an earlier one left there
 * goes before this one writes, so that two are never mixed. "manifest.json" says what is in it.
 *
 * \code
 * CRunFolder folder;
 * QString error = folder.open(QStringLiteral("out"), false);
 * if (error.isEmpty())
 *     error = folder.begin({"chain.json", "fake/frames/frame-*.png"}, {{"command", command}});
 * ... // files are written
 * error = folder.finish({{"error", QJsonValue()}}, true);
 * \endcode
 *
 * Ask conflict() before begin(). Only the files that an earlier run's manifest lists are removed, and folders that are
 * empty then; never anything else that lies there. A run that was killed has no such list, nor has one that ended while
 * files were still written: of these go the files that the claims cover, which were written down before the first file.
 *
 * Functions that may fail return the reason in one line; empty on success. Threads: one.
 */
class CRunFolder
{
public:
    CRunFolder();

    /// Unlocks it.
    ~CRunFolder();
    CRunFolder(const CRunFolder&) = delete;
    CRunFolder& operator=(const CRunFolder&) = delete;

    /// Makes \a folder, or with \a isKept a new one in it that is named by the time, and locks it.
    QString open(const QString& folder, bool isKept);

    /// The folder of the run; empty before open().
    QString path() const { return m_path; }

    /// Why begin() must not be called: it would remove or replace one of \a inUse, which are files that this run reads
    /// or writes elsewhere, or a file that the run before did not write and that is none of \a known, whose contents
    /// this run has. Empty if it may.
    QString conflict(const QStringList& claims, const QStringList& inUse, const QStringList& known) const;

    /// Removes what an earlier run left and writes the manifest: \a facts, when the run began, and \a claims, the files
    /// that will be the run's own, as CFileClaim takes them.
    QString begin(const QStringList& claims, const QJsonObject& facts);

    /// Writes the manifest with \a facts beside those of begin(), when the run ended, and the files that are there,
    /// unless they may still change their names: if not \a areFilesWritten. Does nothing before begin().
    QString finish(const QJsonObject& facts, bool areFilesWritten);

private:
    QString usedFile(const QStringList& claims, const QStringList& inUse) const;
    QString foreignFile(const QStringList& claims, const QStringList& known) const;
    QJsonObject earlierManifest() const;
    QJsonArray listFiles() const;
    QStringList earlierClaims() const;
    QSet<QString> earlierFiles() const;
    QString removeEarlierRun() const;
    QString write() const;
    QString filePath(const QString& name) const;

    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    QStringList m_claims;
    QJsonObject m_manifest;
};

} // namespace Host
