// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CSceneTabs.h"

#include "SHostService.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/window/CScenePage.h"

#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

struct STabs
{
    CNodeScene* addScene(const QString& name)
    {
        const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
        service.nodes.addNode(service.models.createCameraSource(name), info);
        return service.nodes.findSceneByInfo(info);
    }

    void removeScene(CNodeScene* scene) { service.nodes.removeSceneOfNode(scene->nodes().begin()->second.get()); }

    SHostService service;
    CSceneTabs tabs{service.nodes};
};

} // namespace

class tst_CSceneTabs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabsComeAndGoWithScenes();
    void sceneThatWasThereBefore();
    void shownTabIsTheActiveScene();
    void sceneDestroyedBySomebodyElse();
    void sceneRemovedWhileItIsEdited_data();
    void sceneRemovedWhileItIsEdited();
    void titleTellsFileAndChanges();
    void closeButtonAsks();
    void manyScenesAtOnce();
};

void tst_CSceneTabs::tabsComeAndGoWithScenes()
{
    STabs test;
    QSignalSpy added(&test.tabs, &CSceneTabs::pageAdded);
    QCOMPARE(test.tabs.count(), 0);
    QVERIFY(!test.tabs.current());
    CNodeScene* const one = test.addScene("one");
    CNodeScene* const two = test.addScene("two");
    QCOMPARE(test.tabs.count(), 2);
    QCOMPARE(added.count(), 2);
    QCOMPARE(test.tabs.tabText(0), QString("one"));
    QCOMPARE(test.tabs.tabText(1), QString("two"));
    QCOMPARE(test.tabs.page(two)->cameraName(), QString("two"));
    test.removeScene(one);
    QCOMPARE(test.tabs.count(), 1);
    QVERIFY(!test.tabs.page(one));
    test.removeScene(two);
    QCOMPARE(test.tabs.count(), 0);
}

void tst_CSceneTabs::sceneThatWasThereBefore()
{
    STabs test;
    CNodeScene* const scene = test.addScene("one");
    const CSceneTabs tabs(test.service.nodes);
    QCOMPARE(tabs.count(), 1);
    QCOMPARE(tabs.current()->scene(), scene);
    QCOMPARE(tabs.tabText(0), QString("one"));
}

void tst_CSceneTabs::shownTabIsTheActiveScene()
{
    STabs test;
    CNodeScene* const one = test.addScene("one");
    CNodeScene* const two = test.addScene("two");
    QCOMPARE(test.tabs.current()->scene(), two);
    test.service.nodes.setActiveScene(one);
    QCOMPARE(test.tabs.current()->scene(), one);
    test.tabs.show();
    QTest::mouseClick(test.tabs.tabBar(), Qt::LeftButton, {}, test.tabs.tabBar()->tabRect(1).center());
    QCOMPARE(test.service.nodes.getActiveScene().data(), two);
    QSignalSpy changed(&test.tabs, &CSceneTabs::currentPageChanged);
    test.removeScene(two);
    QCOMPARE(test.tabs.current()->scene(), one);
    QVERIFY(!changed.isEmpty());
}

void tst_CSceneTabs::sceneDestroyedBySomebodyElse()
{
    STabs test;
    CNodeScene* const one = test.addScene("one");
    CNodeScene* const two = test.addScene("two");
    delete two;
    QCOMPARE(test.tabs.count(), 1);
    QCOMPARE(test.tabs.current()->scene(), one);
    QCOMPARE(test.service.nodes.getActiveScene().data(), one);
}

void tst_CSceneTabs::sceneRemovedWhileItIsEdited_data()
{
    QTest::addColumn<QString>("work");
    for (const char* work : {"add", "undo", "redo"})
        QTest::newRow(work) << work;
}

// A handler of the scene's signals removes the scene in the middle of the editor's work.
void tst_CSceneTabs::sceneRemovedWhileItIsEdited()
{
    QFETCH(const QString, work);
    STabs test;
    const QPointer<CNodeScene> scene = test.addScene("one");
    const QPointer<CScenePage> page = test.tabs.page(scene);
    CGraphEditor& editor = page->editor();
    if (work != "add")
        editor.addNode("Blur", {});
    if (work == "redo")
        editor.undoStack().undo();
    const QPointer<CNodeBase> camera = page->camera();
    const auto remove = [&test, camera] { test.service.nodes.removeSceneOfNode(camera); };
    connect(scene, &CNodeScene::nodeCreated, &test.tabs, remove);
    connect(scene, &CNodeScene::nodeDeleted, &test.tabs, remove);
    if (work == "add")
        editor.addNode("Blur", {});
    else if (work == "undo")
        editor.undoStack().undo();
    else
        editor.undoStack().redo();
    QVERIFY(page); // the work above was its own
    QCOMPARE(test.tabs.count(), 0);
    QTRY_VERIFY(!page);
    QVERIFY(!scene);
}

void tst_CSceneTabs::titleTellsFileAndChanges()
{
    STabs test;
    CScenePage* const page = test.tabs.page(test.addScene("one"));
    page->setFile("/scenes/graph.json");
    QCOMPARE(test.tabs.tabText(0), QString("one – graph.json"));
    QCOMPARE(test.tabs.tabToolTip(0), QString("/scenes/graph.json"));
    page->editor().addNode("Blur", {});
    QVERIFY(page->isModified());
    QCOMPARE(test.tabs.tabText(0), QString("one – graph.json*"));
    page->editor().undoStack().undo();
    QCOMPARE(test.tabs.tabText(0), QString("one – graph.json"));
}

void tst_CSceneTabs::closeButtonAsks()
{
    STabs test;
    CNodeScene* const scene = test.addScene("one");
    CNodeScene* asked = nullptr;
    connect(&test.tabs, &CSceneTabs::closeRequested, this, [&asked](CNodeScene* which) { asked = which; });
    auto* const button = qobject_cast<QToolButton*>(test.tabs.tabBar()->tabButton(0, QTabBar::RightSide));
    QVERIFY(button);
    QVERIFY(button->accessibleName().contains("one"));
    test.tabs.show();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(asked, scene);
    QCOMPARE(test.tabs.count(), 1); // who hears of it decides
}

void tst_CSceneTabs::manyScenesAtOnce()
{
    STabs test;
    std::vector<CNodeScene*> scenes;
    scenes.reserve(20);
    for (int i = 0; i < 20; ++i)
        scenes.push_back(test.addScene(QString::number(i)));
    for (std::size_t i = 0; i < scenes.size(); i += 2)
        test.removeScene(scenes[i]);
    QCOMPARE(test.tabs.count(), 10);
    QCOMPARE(test.tabs.current()->scene(), test.service.nodes.getActiveScene().data());
}

QTEST_MAIN(tst_CSceneTabs)
#include "tst_CSceneTabs.moc"
