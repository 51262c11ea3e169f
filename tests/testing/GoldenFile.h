// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QDir>
#include <QFile>
#include <QtTest>

/// Compares \a text with golden/\a name, or writes it there if HALVEX_WRITE_REPORTS is set.
inline void compareWithGolden(const QString& name, const QString& text)
{
    QFile file(QDir(GOLDEN_REPORTS).filePath(name));
    if (qEnvironmentVariableIsSet("HALVEX_WRITE_REPORTS")) {
        QVERIFY2(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0, qPrintable(file.errorString()));
        return;
    }
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    QCOMPARE(text, QString::fromUtf8(file.readAll()));
}
