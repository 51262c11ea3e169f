// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CFrameClaims.h"

#include <QTest>

#include <memory>
#include <thread>

using namespace Host;
using namespace std::chrono_literals;

class tst_CFrameClaims : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noMoreThanThereAre();
    void waitsForOneToBeGivenBack();
    void claimOutlivesTheClaims();
};

void tst_CFrameClaims::noMoreThanThereAre()
{
    const CFrameClaims claims(2);
    auto first = claims.take(0ms);
    const auto second = claims.take(0ms);
    QVERIFY(first && second);
    QVERIFY(!claims.take(1ms));
    const auto copy = first;
    first.reset();
    QVERIFY(!claims.take(0ms)); // the copy holds it
}

void tst_CFrameClaims::waitsForOneToBeGivenBack()
{
    const CFrameClaims claims(1);
    auto held = claims.take(0ms);
    std::thread other([claim = std::move(held)]() mutable { claim.reset(); });
    QVERIFY(claims.take(60s));
    other.join();
}

void tst_CFrameClaims::claimOutlivesTheClaims()
{
    auto claims = std::make_unique<CFrameClaims>(1);
    auto held = claims->take(0ms);
    claims.reset();
    held.reset();
    QVERIFY(!held);
}

QTEST_GUILESS_MAIN(tst_CFrameClaims)
#include "tst_CFrameClaims.moc"
