// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CTestHost.h"

#include "support/BoundedWait.h"
#include "support/MetaTypes.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QThread>
#include <QThreadPool>
#include <QtTest>

#include <functional>
#ifdef HAS_MALLINFO2
#include <malloc.h>
#endif

using Plugin::Halvex::INodeService;

namespace {

constexpr int rounds = 2000;
#ifdef HAS_MALLINFO2
constexpr int roundsToWarmUp = 200;
#endif

/// Every name that Qt has a type for.
QStringList knownTypes()
{
    QStringList names;
    for (int id = QMetaType::User; id < QMetaType::User + 1000; ++id) {
        if (QMetaType::isRegistered(id))
            names << QString::fromLatin1(MetaTypes::nameOf(id));
    }
    return names;
}

/// What Qt itself has in its table after a round.
QStringList typesOfQt()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // A second name for int: Qt does not take names back, and there is no code behind it.
    return {QStringLiteral("NodePortIndex")};
#else
    // Types of Qt 6 Core, which a QVariant looks for when it converts its value. There a second name has no number.
    return {QStringLiteral("QSequentialIterable"), QStringLiteral("QAssociativeIterable")};
#endif
}

/// Reads the argument types of all methods, as spies and scripts do, whereupon Qt has each type registered.
void readParameterTypes(const QObject& object)
{
    const QMetaObject& metaObject = *object.metaObject();
    for (int i = 0; i < metaObject.methodCount(); ++i) {
        const QMetaMethod method = metaObject.method(i);
        for (int p = 0; p < method.parameterCount(); ++p)
            method.parameterType(p);
    }
}

/// The names of this process's threads, in the order in which they began.
QByteArrayList threads()
{
    QByteArrayList names;
    const QStringList tasks = QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& thread : tasks) {
        QFile name(QStringLiteral("/proc/self/task/%1/comm").arg(thread));
        if (name.open(QIODevice::ReadOnly)) // else it has ended meanwhile
            names << name.readAll().trimmed();
    }
    return names;
}

#ifdef HAS_MALLINFO2
/// In use on the heap, in bytes.
std::size_t heapInUse()
{
    return mallinfo2().uordblks;
}
#endif

} // namespace

/// Two thousand lives of the plugin in one process: each leaves nothing behind.
class tst_PluginRounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRoundLeavesNothing();

private:
    static void live(int round);
};

void tst_PluginRounds::live(int round)
{
    CTestHost host;
    QVERIFY2(host.isUp(), qPrintable(host.halvex().loader().errorString()));
    const QStringList languages{QStringLiteral("en"), QStringLiteral("ko"), QStringLiteral("ja"), QStringLiteral("zh")};
    if (round % 5 == 0)
        host.setLanguage(languages.at(round / 5 % languages.size()));

    INodeService* const service = host.service();
    const QSignalSpy scenes(service, SIGNAL(sceneAdded(CNodeScene*)));
    const SFrameChain chain(*service, 2000);
    QSignalSpy frames(chain.sink, SIGNAL(received(qulonglong)));
    QCOMPARE(scenes.count(), 1);
    const std::initializer_list<const QObject*> objects{host.halvex().instance(),
                                                        service,
                                                        chain.source,
                                                        chain.decoupler,
                                                        chain.sink,
                                                        chain.worker,
                                                        scenes.at(0).at(0).value<QObject*>(),
                                                        service->findNodeByModel(chain.source)};
    for (const QObject* object : objects)
        readParameterTypes(*object);

    chain.send(qulonglong(round));
    QVERIFY(!frames.isEmpty() || frames.wait());
    QCOMPARE(frames.at(0).at(0).toULongLong(), qulonglong(round));
    QVERIFY(QMetaObject::invokeMethod(chain.worker, "waitForWork"));
}

void tst_PluginRounds::everyRoundLeavesNothing()
{
    const QByteArrayList threadsBefore = threads();
    const QStringList typesLeft = knownTypes() + typesOfQt();
#ifdef HAS_MALLINFO2
    std::size_t heapBefore = 0;
#endif

    for (int round = 1; round <= rounds; ++round) {
        live(round);
        if (QTest::currentTestFailed())
            return;
        QVERIFY(QThreadPool::globalInstance()->waitForDone(longestWait)); // which ends its threads
        // A thread that has ended for Qt is still on its way out of the kernel.
        const QDeadlineTimer deadline(10000);
        while (threads() != threadsBefore && !deadline.hasExpired())
            QThread::yieldCurrentThread();
        QCOMPARE(threads(), threadsBefore);
        QVERIFY(!isLibraryMapped());
        QVERIFY(!QDir(QStringLiteral(":/translation")).exists());
        QCOMPARE(knownTypes(), typesLeft);
#ifdef HAS_MALLINFO2
        if (round == roundsToWarmUp)
            heapBefore = heapInUse();
#endif
    }

#ifdef HAS_MALLINFO2
    // Half of what the smallest object of each round would take.
    constexpr std::size_t tolerance = std::size_t(16) * (rounds - roundsToWarmUp);
    const std::size_t heapAfter = heapInUse();
    QVERIFY2(heapAfter <= heapBefore + tolerance,
             qPrintable(QStringLiteral("%1 bytes more").arg(qint64(heapAfter) - qint64(heapBefore))));
#endif
}

QTEST_GUILESS_MAIN(tst_PluginRounds)

#include "tst_PluginRounds.moc"
