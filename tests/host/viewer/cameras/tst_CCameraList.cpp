// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraList.h"

#include "SHostService.h"
#include "TestCameras.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <atomic>

using namespace Host;
using EState = CCameraList::EState;

namespace {

const SCameraEntry network{"192.168.0.5", "Maker", "Model", "1", "GigE Vision"};

constexpr int patience = 30000; // milliseconds; a busy machine begins the next search seconds later

struct SList
{
    SList()
        : tester(&list)
    {
    }
    ~SList()
    {
        list.setActive(false);
        QTRY_COMPARE_WITH_TIMEOUT(ended.load(), searches.load(),
                                  patience); // the last one may outlive the list, but not what it asks
    }
    Q_DISABLE_COPY(SList)

    EState state(const QString& name) const { return EState(list.indexOf(name).data(CCameraList::StateRole).toInt()); }

    // A search comes next.
    bool isWaiting() const { return list.findChild<QTimer*>()->isActive(); }

    SHostService service;
    CCameraSessions sessions{service.nodes, service.models};
    std::atomic<int> searches{0};
    std::atomic<int> ended{0};
    std::atomic<bool> isThere{true};
    std::atomic<bool> isThereTwice{false};
    std::atomic<bool> isHeld{false};
    QSemaphore held;
    QSemaphore released;
    CCameraList list{sessions, nullptr,
                     [this] {
                         ++searches;
                         if (isHeld) {
                             held.release();
                             released.tryAcquire(1, 5000);
                         }
                         std::vector<SCameraEntry> found{{"fake", "Aravis", "Fake", {}, {}}};
                         if (isThere)
                             found.push_back(network);
                         if (isThereTwice)
                             found.push_back(network);
                         ++ended;
                         return found;
                     },
                     std::chrono::milliseconds(20)};
    QAbstractItemModelTester tester;
};

} // namespace

class tst_CCameraList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void simulatedCameraIsAlwaysThere();
    void asksOnlyWhileActive();
    void foundCamera();
    void statesOfASession();
    void connectedCameraIsListedOnce();
    void aNameIsListedOnce();
    void rowsStayTheSame();
    void everyStateHasAText();
    void errorsAreInTheLanguageOfTheWindow();
};

void tst_CCameraList::simulatedCameraIsAlwaysThere()
{
    SList test;
    QCOMPARE(test.list.rowCount(), 1);
    QCOMPARE(test.list.index(0).data(CCameraList::NameRole).toString(), QString("fake"));
    QCOMPARE(test.state("fake"), EState::Free);
    test.sessions.connectCamera(camera("fake"));
    QCOMPARE(test.list.rowCount(), 2);
    QCOMPARE(test.list.index(1).data(CCameraList::NameRole).toString(), QString("fake-1"));
}

void tst_CCameraList::asksOnlyWhileActive()
{
    SList test;
    QCoreApplication::processEvents();
    QCOMPARE(test.searches.load(), 0);
    test.list.setActive(true);
    test.list.setActive(true);
    QTRY_COMPARE(test.list.rowCount(), 2);
    QTRY_VERIFY(test.searches.load() > 2); // again and again
    test.isHeld = true;
    QTRY_VERIFY(test.held.available() > 0);
    QVERIFY(test.isWaiting());
    test.list.setActive(false);
    QVERIFY(!test.isWaiting());
    // Nor does what is found afterwards have it ask again.
    test.isThere = false;
    test.isHeld = false;
    test.released.release();
    QTRY_COMPARE(test.list.rowCount(), 1);
    QVERIFY(!test.isWaiting());
}

void tst_CCameraList::foundCamera()
{
    SList test;
    test.list.setActive(true);
    QTRY_VERIFY_WITH_TIMEOUT(test.list.indexOf(network.id).isValid(), patience);
    const QModelIndex index = test.list.indexOf(network.id);
    QCOMPARE(index.data(CCameraList::TitleRole).toString(), QString("Maker Model"));
    QCOMPARE(test.state(network.id), EState::Free);
    test.isThere = false;
    QTRY_VERIFY_WITH_TIMEOUT(!test.list.indexOf(network.id).isValid(), patience);
}

void tst_CCameraList::statesOfASession()
{
    SList test;
    CCameraSession* const session = test.sessions.connectCamera(camera("fake"));
    QCOMPARE(test.state("fake"), EState::Opening);
    QTRY_COMPARE(test.state("fake"), EState::Connected);
    QSignalSpy changes(&test.list, &CCameraList::dataChanged);
    session->start();
    QTRY_COMPARE(test.state("fake"), EState::Streaming);
    QVERIFY(!changes.isEmpty());
    QTRY_VERIFY(!test.list.indexOf("fake").data(Qt::DecorationRole).value<QImage>().isNull());
    QVERIFY(test.list.indexOf("fake").data(CCameraList::StateTextRole).toString().contains("frames"));
    test.sessions.disconnectCamera("fake");
    QCOMPARE(test.state("fake"), EState::Free);

    test.sessions.connectCamera(camera("256.1.1.1"));
    QTRY_COMPARE(test.state("256.1.1.1"), EState::Failed);
    QVERIFY(!test.list.indexOf("256.1.1.1").data(Qt::ToolTipRole).toString().isEmpty());
}

void tst_CCameraList::connectedCameraIsListedOnce()
{
    SList test;
    test.sessions.connectCamera(camera(network.id));
    test.list.setActive(true);
    QTRY_VERIFY(test.searches.load() > 1);
    QCOMPARE(test.list.rowCount(), 2);
}

// A camera of the network may have two ways to the computer, and a folder may be called like a camera.
void tst_CCameraList::aNameIsListedOnce()
{
    SList test;
    test.isThereTwice = true;
    test.list.setActive(true);
    QTRY_VERIFY_WITH_TIMEOUT(test.list.indexOf(network.id).isValid(), patience);
    QCOMPARE(test.list.rowCount(), 2);
    test.isThere = false; // there is another list then
    QTRY_VERIFY(test.searches.load() > 3);
    QCOMPARE(test.list.rowCount(), 2);

    const QTemporaryDir folder;
    SFileOptions files;
    files.name = network.id;
    files.place = folder.path();
    test.sessions.connectCamera(files);
    test.sessions.connectCamera(camera(network.id));
    QCOMPARE(test.sessions.all().size(), 2);
    QCOMPARE(test.list.rowCount(), 2);
}

// What is chosen in a view stays chosen.
void tst_CCameraList::rowsStayTheSame()
{
    SList test;
    test.list.setActive(true);
    QTRY_VERIFY_WITH_TIMEOUT(test.list.indexOf(network.id).isValid(), patience);
    const QPersistentModelIndex chosen = test.list.indexOf("fake");
    const QPersistentModelIndex other = test.list.indexOf(network.id);
    const QSignalSpy resets(&test.list, &CCameraList::modelReset);
    test.sessions.connectCamera(camera("fake"));
    QCOMPARE(chosen.row(), 0);
    QCOMPARE(chosen.data(CCameraList::NameRole).toString(), QString("fake"));
    QCOMPARE(other.data(CCameraList::NameRole).toString(), network.id);
    test.isThere = false;
    QTRY_VERIFY(!other.isValid());
    test.sessions.disconnectCamera("fake");
    QCOMPARE(test.state("fake"), EState::Free);
    QCOMPARE(chosen.data(CCameraList::NameRole).toString(), QString("fake"));
    QCOMPARE(resets.count(), 0);
}

void tst_CCameraList::everyStateHasAText()
{
    QSet<QString> texts;
    for (int state = 0; state <= int(EState::Failed); ++state)
        texts.insert(CCameraList::stateText(EState(state)));
    QCOMPARE(texts.size(), int(EState::Failed) + 1);
}

void tst_CCameraList::errorsAreInTheLanguageOfTheWindow()
{
    CLanguage language;
    language.install(QStringLiteral("ja"));
    SList test;
    test.sessions.connectCamera(camera("256.1.1.1"));
    QTRY_COMPARE(test.state("256.1.1.1"), EState::Failed);
    const QString error = test.list.indexOf("256.1.1.1").data(CCameraList::ErrorRole).toString();
    QVERIFY2(error.startsWith(QStringLiteral("カメラ「256.1.1.1」を開けません: ")), qPrintable(error));
    QVERIFY2(!error.contains(QStringLiteral("halvex-host")), qPrintable(error));
}

QTEST_MAIN(tst_CCameraList)
#include "tst_CCameraList.moc"
