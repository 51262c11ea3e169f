// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGLibError.h"

#include <QTest>

#include <gio/gio.h>

using namespace Host;

class tst_CGLibError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textFitsIntoASentence();
    void failureWithoutAReason();
    void nextCallForgetsTheLast();
};

void tst_CGLibError::textFitsIntoASentence()
{
    CGLibError error;
    g_set_error_literal(error.slot(), G_IO_ERROR, G_IO_ERROR_FAILED, "No such\n  device.");
    QVERIFY(error);
    QCOMPARE(error.text(), QStringLiteral("No such device"));
}

void tst_CGLibError::failureWithoutAReason()
{
    const CGLibError error;
    QVERIFY(!error);
    QCOMPARE(error.text(), QStringLiteral("no answer"));
}

void tst_CGLibError::nextCallForgetsTheLast()
{
    CGLibError error;
    g_set_error_literal(error.slot(), G_IO_ERROR, G_IO_ERROR_FAILED, "first");
    QVERIFY(!*error.slot());
    QVERIFY(!error);
}

QTEST_GUILESS_MAIN(tst_CGLibError)
#include "tst_CGLibError.moc"
