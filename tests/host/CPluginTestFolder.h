// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "TestFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder with links to plugins, for one test.
class CPluginTestFolder
{
public:
    QString path() const { return m_folder.path(); }

    /// Links the test plugins of these names, without "test_" and ".so".
    bool addTestPlugins(const QStringList& names);

    /// Links all that the program loads by itself, under all its names.
    bool addHostPlugins();

    /// Writes a file of that name.
    bool addFile(const QString& name, const QByteArray& bytes);

    /// The file that a test plugin is in.
    static QString testPlugin(const QString& name);

    /// Where the library's plugin really is.
    static QString library();

private:
    QTemporaryDir m_folder;
};
