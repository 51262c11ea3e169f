// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>

namespace Host {

/**
 * What the viewer remembers from one start to the next: where its parts are, language, colours, folders, and the files
 * that were opened last.
 *
 * Threads: the main thread. A value that cannot be written is lost without a word: nothing depends on it.
 */
class CViewerSettings
{
public:
    enum class EColors
    {
        AsDesktop,
        Light,
        Dark
    };

    static constexpr int mostRecentFiles = 8;

    /// \a file: empty for the one of the person.
    explicit CViewerSettings(const QString& file = {});

    QByteArray geometry() const { return m_settings.value(QStringLiteral("window/geometry")).toByteArray(); }
    void setGeometry(const QByteArray& geometry) { m_settings.setValue(QStringLiteral("window/geometry"), geometry); }

    /// Of the docks and tool bars, as QMainWindow::saveState() has it.
    QByteArray layout() const { return m_settings.value(QStringLiteral("window/layout")).toByteArray(); }
    void setLayout(const QByteArray& layout) { m_settings.setValue(QStringLiteral("window/layout"), layout); }

    /// Empty for that of the desktop.
    QString language() const { return m_settings.value(QStringLiteral("language")).toString(); }
    void setLanguage(const QString& code) { m_settings.setValue(QStringLiteral("language"), code); }

    /// Where images and recordings went last; empty before the first.
    QString imageFolder() const { return m_settings.value(QStringLiteral("images/folder")).toString(); }
    void setImageFolder(const QString& folder) { m_settings.setValue(QStringLiteral("images/folder"), folder); }
    QString recordFolder() const { return m_settings.value(QStringLiteral("recording/folder")).toString(); }
    void setRecordFolder(const QString& folder) { m_settings.setValue(QStringLiteral("recording/folder"), folder); }

    EColors colors() const;
    void setColors(EColors colors) { m_settings.setValue(QStringLiteral("colors"), int(colors)); }

    /// Full names, the last one first.
    QStringList recentFiles() const { return m_settings.value(QStringLiteral("recentFiles")).toStringList(); }
    void addRecentFile(const QString& file);

private:
    QSettings m_settings;
};

} // namespace Host
