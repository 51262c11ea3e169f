// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CRunFolder.h"

#include "host/base/RealPath.h"
#include "host/base/RunFiles.h"
#include "host/run/CFileClaim.h"
#include "host/run/Output.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QLockFile>
#include <QSet>

#include <algorithm>
#include <vector>

namespace Host {

namespace {

// "2026-11-22T11:40:05.123+01:00"
QString now()
{
    const QDateTime time = QDateTime::currentDateTime();
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

// A manifest may have been edited: what it claims must lie in the folder.
bool isInside(const QString& claim)
{
    const QString clean = QDir::cleanPath(claim);
    return !clean.isEmpty() && QDir::isRelativePath(clean) && clean != QLatin1String(".") &&
           clean != QLatin1String("..") && !clean.startsWith(QLatin1String("../"));
}

// A folder with a name of the time in \a folder; a number tells two of one second apart. Empty when none can be made.
QString newFolder(const QString& folder)
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddThh-mm-ss"));
    for (int number = 1; number < 1000; ++number) {
        const QString name = number == 1 ? stamp : QStringLiteral("%1-%2").arg(stamp).arg(number);
        const QString path = QDir(folder).filePath(name);
        if (QDir().mkdir(path))
            return path;
        if (!QFileInfo::exists(path))
            return {};
    }
    return {};
}

QString lockError(const QString& folder, const QLockFile& lock)
{
    if (lock.error() != QLockFile::LockFailedError)
        return QStringLiteral("cannot write into the folder '%1'").arg(folder);
    qint64 process = 0;
    QString host;
    QString program;
    const bool isKnown = lock.getLockInfo(&process, &host, &program);
    const QString who = isKnown ? QStringLiteral(" (process %1)").arg(process) : QString();
    return QStringLiteral("another run writes into the folder '%1'%2; --keep or another --output keeps them apart")
        .arg(folder, who);
}

} // namespace

CRunFolder::CRunFolder() = default;

CRunFolder::~CRunFolder() = default;

QString CRunFolder::open(const QString& folder, bool isKept)
{
    const QString error = makeFolder(folder);
    if (!error.isEmpty())
        return error;
    m_path = isKept ? newFolder(folder) : folder;
    if (m_path.isEmpty())
        return QStringLiteral("cannot make a folder in '%1'").arg(folder);
    m_lock = std::make_unique<QLockFile>(filePath(QStringLiteral(".halvex-host.lock")));
    m_lock->setStaleLockTime(0); // a run may last for weeks; that of a process that is gone does not count anyway
    return m_lock->tryLock(0) ? QString() : lockError(m_path, *m_lock);
}

QString CRunFolder::filePath(const QString& name) const
{
    return QDir(m_path).filePath(name);
}

QString CRunFolder::begin(const QStringList& claims, const QJsonObject& facts)
{
    const QString error = removeEarlierRun();
    if (!error.isEmpty())
        return error;
    m_claims = claims;
    m_manifest = facts;
    m_manifest.insert(QStringLiteral("began"), now());
    m_manifest.insert(QStringLiteral("ended"), QJsonValue());
    m_manifest.insert(QStringLiteral("claims"), QJsonArray::fromStringList(claims));
    m_manifest.insert(QStringLiteral("files"), QJsonValue());
    return write();
}

QJsonObject CRunFolder::earlierManifest() const
{
    QFile manifest(filePath(RunFiles::manifest()));
    return manifest.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(manifest.readAll()).object() : QJsonObject();
}

QStringList CRunFolder::earlierClaims() const
{
    QStringList names;
    const QJsonArray claims = earlierManifest().value(QLatin1String("claims")).toArray();
    for (const QJsonValue& claim : claims) {
        if (isInside(claim.toString()))
            names << claim.toString();
    }
    return names;
}

QSet<QString> CRunFolder::earlierFiles() const
{
    const QJsonObject manifest = earlierManifest();
    QSet<QString> files;
    const QStringList claims = earlierClaims();
    for (const QString& claim : claims) {
        const QStringList covered = CFileClaim(m_path, claim).filesAndParts();
        for (const QString& file : covered)
            files.insert(file);
    }
    const QJsonValue list = manifest.value(QLatin1String("files"));
    if (!list.isArray())
        return files;
    QSet<QString> listed;
    const QJsonArray entries = list.toArray();
    for (const QJsonValue& entry : entries)
        listed.insert(entry[QLatin1String("name")].toString());
    return files.intersect(listed);
}

QString CRunFolder::conflict(const QStringList& claims, const QStringList& inUse, const QStringList& known) const
{
    const QString used = usedFile(claims, inUse);
    if (!used.isEmpty())
        return QStringLiteral("this run uses '%1' and would replace it; --keep or another --output leaves it")
            .arg(used);
    const QString foreign = foreignFile(claims, known);
    if (!foreign.isEmpty())
        return QStringLiteral("'%1' is there, and no run wrote it; --keep or another --output leaves it").arg(foreign);
    return {};
}

QString CRunFolder::usedFile(const QStringList& claims, const QStringList& inUse) const
{
    std::vector<CFileClaim> own{CFileClaim(m_path, RunFiles::manifest())};
    const QStringList all = earlierClaims() + claims;
    for (const QString& claim : all)
        own.emplace_back(m_path, claim);
    for (const QString& file : inUse) {
        const QString path = realPath(file);
        if (std::any_of(own.begin(), own.end(), [&path](const CFileClaim& claim) { return claim.covers(path); }))
            return file;
    }
    return {};
}

QString CRunFolder::foreignFile(const QStringList& claims, const QStringList& known) const
{
    if (QFileInfo::exists(filePath(RunFiles::manifest())) && !earlierManifest().contains(QLatin1String("claims")))
        return filePath(RunFiles::manifest());
    QSet<QString> knownPaths;
    for (const QString& file : known)
        knownPaths.insert(realPath(file));
    const QSet<QString> earlier = earlierFiles();
    for (const QString& claim : claims) {
        const QStringList present = CFileClaim(m_path, claim).filesAndFolders();
        for (const QString& name : present) {
            if (!earlier.contains(name) && !knownPaths.contains(realPath(filePath(name))))
                return filePath(name);
        }
    }
    return {};
}

QString CRunFolder::removeEarlierRun() const
{
    QStringList files = earlierFiles().values();
    files.sort(); // the same one is told each time
    for (const QString& file : qAsConst(files)) {
        if (!QFile::remove(filePath(file)))
            return QStringLiteral("cannot remove '%1', which an earlier run left").arg(filePath(file));
    }
    // Folders that became empty go, too.
    const QStringList claims = earlierClaims();
    for (const QString& claim : claims) {
        if (claim.contains(QLatin1Char('/')))
            QDir(m_path).rmpath(QFileInfo(claim).path());
    }
    return {};
}

QString CRunFolder::finish(const QJsonObject& facts, bool areFilesWritten)
{
    if (m_manifest.isEmpty())
        return {};
    for (auto fact = facts.begin(); fact != facts.end(); ++fact)
        m_manifest.insert(fact.key(), fact.value());
    m_manifest.insert(QStringLiteral("ended"), now());
    if (areFilesWritten)
        m_manifest.insert(QStringLiteral("files"), listFiles());
    return write();
}

QJsonArray CRunFolder::listFiles() const
{
    QJsonArray files;
    for (const QString& claim : m_claims) {
        const QStringList names = CFileClaim(m_path, claim).filesAndParts();
        for (const QString& name : names)
            files.append(QJsonObject{{"name", name}, {"bytes", double(QFileInfo(filePath(name)).size())}});
    }
    return files;
}

QString CRunFolder::write() const
{
    return replaceFile(filePath(RunFiles::manifest()), QJsonDocument(m_manifest).toJson());
}

} // namespace Host
