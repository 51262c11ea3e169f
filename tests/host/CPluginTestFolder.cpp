// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CPluginTestFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

bool CPluginTestFolder::addTestPlugins(const QStringList& names)
{
    return std::all_of(names.begin(), names.end(), [this](const QString& name) {
        return QFile::link(testPlugin(name), m_folder.filePath(name + QStringLiteral(".so")));
    });
}

bool CPluginTestFolder::addHostPlugins()
{
    const QFileInfoList files = QDir(QStringLiteral(HOST_PLUGINS)).entryInfoList(QDir::Files);
    return !files.isEmpty() && std::all_of(files.begin(), files.end(), [this](const QFileInfo& file) {
        return QFile::link(file.filePath(), m_folder.filePath(file.fileName()));
    });
}

bool CPluginTestFolder::addFile(const QString& name, const QByteArray& bytes)
{
    return write(m_folder.filePath(name), bytes);
}

QString CPluginTestFolder::testPlugin(const QString& name)
{
    return QFileInfo(QStringLiteral(TEST_PLUGINS "/test_%1.so").arg(name)).canonicalFilePath();
}

QString CPluginTestFolder::library()
{
    return QFileInfo(QStringLiteral(HOST_PLUGINS "/libHalvex.so")).canonicalFilePath();
}
