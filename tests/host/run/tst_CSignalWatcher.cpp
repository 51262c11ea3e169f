// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSignalWatcher.h"

#include <QSignalSpy>
#include <QTest>

using namespace Host;

namespace {

using Handler = void (*)(int);

Handler handlerOf(int number)
{
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    return action.sa_handler;
}

} // namespace

class tst_CSignalWatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalComesThroughTheEventLoop();
    void handlersAreRestored();
};

void tst_CSignalWatcher::signalComesThroughTheEventLoop()
{
    for (const int number : {SIGINT, SIGTERM}) {
        CSignalWatcher watcher;
        QSignalSpy received(&watcher, &CSignalWatcher::received);
        raise(number);
        QCOMPARE(received.count(), 0);
        QTRY_COMPARE(received.count(), 1);
        QCOMPARE(received.at(0).at(0).toInt(), number);
        // The second one does what it does by default.
        QVERIFY(handlerOf(number) == Handler(nullptr)); // SIG_DFL
    }
}

void tst_CSignalWatcher::handlersAreRestored()
{
    const Handler before = handlerOf(SIGINT);
    for (int round = 0; round < 2; ++round) {
        {
            const CSignalWatcher watcher;
            QVERIFY(handlerOf(SIGINT) != before);
        }
        QVERIFY(handlerOf(SIGINT) == before);
    }
}

QTEST_GUILESS_MAIN(tst_CSignalWatcher)
#include "tst_CSignalWatcher.moc"
