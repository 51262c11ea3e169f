// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ConnectionText.h"

#include <Halvex/graph/SNodeDataType.h>

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

SNodeDataType frame()
{
    return {QStringLiteral("Veltra Grab Result"), QStringLiteral("VGR")};
}

SNodeDataType image()
{
    return {QStringLiteral("Host Image"), QStringLiteral("IMG")};
}

} // namespace

class tst_ConnectionText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typeOfAConnection();
    void unknownTypeIsNotTold();
    void portIsNamedWhereItSaysSomething();
};

void tst_ConnectionText::typeOfAConnection()
{
    QCOMPARE(connectionTypeText(frame(), frame()), QStringLiteral("VGR"));
    QCOMPARE(connectionTypeText(frame(), image()), QStringLiteral("VGR to IMG"));
}

void tst_ConnectionText::unknownTypeIsNotTold()
{
    QCOMPARE(connectionTypeText(frame(), {}), QStringLiteral("VGR"));
    QCOMPARE(connectionTypeText({}, image()), QStringLiteral("IMG"));
    QCOMPARE(connectionTypeText({}, {}), QString());
}

void tst_ConnectionText::portIsNamedWhereItSaysSomething()
{
    QCOMPARE(portText(0, 1, QStringLiteral("mask"), image()), QStringLiteral("mask"));
    QCOMPARE(portText(1, 2, QString(), image()), QStringLiteral("port 1"));
    QCOMPARE(portText(1, 2, QStringLiteral("IMG"), image()), QStringLiteral("port 1"));
    QCOMPARE(portText(0, 1, QStringLiteral("IMG"), image()), QString());
    QCOMPARE(portText(0, 1, QString(), image()), QString());
}

QTEST_GUILESS_MAIN(tst_ConnectionText)
#include "tst_ConnectionText.moc"
