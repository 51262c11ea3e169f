// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CFileClaim.h"

#include "host/base/RealPath.h"

#include <QFileInfo>

namespace Host {

namespace {

QString escaped(const QString& name)
{
    return QRegularExpression::escape(name).replace(QLatin1String("\\*"), QLatin1String("\\d+"));
}

QRegularExpression exactly(const QString& pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

// "frame-000000.png", "frame-000000.png.part" and "frame-000000.part.png". Only numbered files have such parts.
QString withParts(const QString& name)
{
    if (!name.contains(QLatin1Char('*')))
        return escaped(name);
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    const QString part = QStringLiteral("(\\.part)?");
    return escaped(name.left(dot)) + part + escaped(name.mid(dot)) + part;
}

} // namespace

CFileClaim::CFileClaim(const QString& folder, const QString& claim)
    : m_prefix(claim.left(claim.lastIndexOf(QLatin1Char('/')) + 1))
{
    const QString name = claim.mid(m_prefix.size());
    m_path = realPath(QDir(folder).filePath(claim));
    m_directory = realPath(QDir(folder).filePath(m_prefix));
    m_names = exactly(escaped(name));
    m_namesAndParts = exactly(withParts(name));
}

QStringList CFileClaim::filesAndFolders() const
{
    return find(m_names, QDir::Files | QDir::Dirs);
}

QStringList CFileClaim::filesAndParts() const
{
    return find(m_namesAndParts, QDir::Files);
}

QStringList CFileClaim::find(const QRegularExpression& pattern, QDir::Filters kinds) const
{
    QStringList found = QDir(m_directory).entryList(kinds | QDir::Hidden | QDir::System, QDir::Name);
    found = found.filter(pattern);
    for (QString& file : found)
        file.prepend(m_prefix);
    return found;
}

bool CFileClaim::covers(const QString& realPath) const
{
    // A name that is there may be a link to another one.
    if (realPath == m_path)
        return true;
    const QFileInfo file(realPath);
    return file.path() == m_directory && m_namesAndParts.match(file.fileName()).hasMatch();
}

} // namespace Host
