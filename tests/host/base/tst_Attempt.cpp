// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Attempt.h"

#include <QTest>

#include <stdexcept>

using namespace Host;

class tst_Attempt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnedValues();
    void exceptions();
};

void tst_Attempt::returnedValues()
{
    QCOMPARE(attempt(QStringLiteral("it"), [] { return true; }), QString());
    QCOMPARE(attempt(QStringLiteral("it"), [] { return false; }), QStringLiteral("it fails"));
}

void tst_Attempt::exceptions()
{
    const auto known = []() -> bool { throw std::runtime_error("two\nlines\x1b"); };
    QCOMPARE(attempt(QStringLiteral("it"), known), QStringLiteral("it throws: two lines?"));
    const auto unknown = []() -> bool { throw 1; };
    QCOMPARE(attempt(QStringLiteral("it"), unknown), QStringLiteral("it throws"));
}

QTEST_GUILESS_MAIN(tst_Attempt)
#include "tst_Attempt.moc"
