// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerSettings.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace Host {

namespace {

QString settingsFile(const QString& file)
{
    if (!file.isEmpty())
        return file;
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/halvex/viewer.ini");
}

} // namespace

CViewerSettings::CViewerSettings(const QString& file)
    : m_settings(settingsFile(file), QSettings::IniFormat)
{
}

CViewerSettings::EColors CViewerSettings::colors() const
{
    const int colors = m_settings.value(QStringLiteral("colors")).toInt();
    const bool isKnown = colors >= 0 && colors <= int(EColors::Dark);
    return isKnown ? EColors(colors) : EColors::AsDesktop;
}

void CViewerSettings::addRecentFile(const QString& file)
{
    const QString name = QFileInfo(file).absoluteFilePath();
    QStringList files = recentFiles();
    files.removeAll(name);
    files.prepend(name);
    m_settings.setValue(QStringLiteral("recentFiles"), QStringList(files.mid(0, mostRecentFiles)));
}

} // namespace Host
