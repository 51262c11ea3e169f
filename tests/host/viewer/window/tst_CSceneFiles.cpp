// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CSceneFiles.h"

#include "SHostService.h"
#include "TestFile.h"
#include "host/run/SceneFile.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/images/ViewModels.h"
#include "host/viewer/window/CPositionsFile.h"
#include "host/viewer/window/CScenePage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <stdexcept>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

struct SFiles
{
    SFiles()
    {
        registerViewModels(service.nodes, service.models);
        page = makePage("fake-1");
    }

    std::unique_ptr<CScenePage> makePage(const QString& camera)
    {
        const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
        service.nodes.addNode(service.models.createCameraSource(camera), info);
        return std::make_unique<CScenePage>(*service.nodes.findSceneByInfo(info), service.nodes);
    }

    QString file(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QByteArray document(const CScenePage& of) const { return orderedScene(of.scene()->saveToMemory()); }

    // Connections that are put back have new ids.
    QByteArray withoutConnectionIds(const CScenePage& of) const
    {
        QJsonObject json = QJsonDocument::fromJson(document(of)).object();
        QStringList connections;
        const auto allConnections = json.value("connections").toArray();
        for (const QJsonValue& each : allConnections) {
            QJsonObject connection = each.toObject();
            connection.remove("id");
            connections << QString::fromUtf8(QJsonDocument(connection).toJson());
        }
        connections.sort();
        json.insert("connections", QJsonArray::fromStringList(connections));
        return QJsonDocument(json).toJson();
    }

    QTemporaryDir folder;
    SHostService service;
    CPositionsFile positions{folder.filePath("positions.json")};
    CSceneFiles files{service.nodes, service.models, positions};
    std::unique_ptr<CScenePage> page;
};

} // namespace

class tst_CSceneFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importedChainIsOneStep();
    void savedSceneComesBackAlike();
    void positionsComeBackToo();
    void openingReplacesAllButTheCamera();
    void faultyDocumentChangesNothing();
    void failureWhileItIsReadChangesNothing();
    void nodeThatCannotBeRemovedChangesNothing();
    void sceneRemovedWhileItIsRead();
    void faultyChainChangesNothing();
    void missingFile();
    void errorsAreInTheLanguageOfTheWindow();
    void folderThatCannotBeWritten();
};

void tst_CSceneFiles::importedChainIsOneStep()
{
    SFiles test;
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    QCOMPARE(test.page->scene()->nodes().size(), std::size_t(12)); // the camera and 11 of the chain
    QVERIFY(test.page->isModified());
    QCOMPARE(test.page->editor().undoStack().count(), 1);
    test.page->editor().undoStack().undo();
    QCOMPARE(test.page->scene()->nodes().size(), std::size_t(1));
    QVERIFY(!test.page->isModified());
}

void tst_CSceneFiles::savedSceneComesBackAlike()
{
    SFiles test;
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    QCOMPARE(test.files.save(*test.page, test.file("scene.json")), QString());
    QVERIFY(!test.page->isModified());
    QCOMPARE(test.page->file(), test.file("scene.json"));
    const QByteArray saved = test.document(*test.page);
    QCOMPARE(content(test.file("scene.json")), saved);

    test.page->editor().addNode("Blur", {});
    QVERIFY(test.document(*test.page) != saved);
    QCOMPARE(test.files.open(*test.page, test.file("scene.json")), QString());
    QCOMPARE(test.document(*test.page), saved);
    QVERIFY(!test.page->isModified());
    QVERIFY(!test.page->editor().undoStack().canUndo());
}

void tst_CSceneFiles::positionsComeBackToo()
{
    SFiles test;
    CGraphEditor& editor = test.page->editor();
    const Core::CId blur = editor.addNode("Blur", QPointF(304, 40));
    const QString camera = test.page->camera()->id().toString();
    editor.setPositions({{camera, QPointF(-48, 8)}});
    QCOMPARE(test.files.save(*test.page, test.file("scene.json")), QString());

    // In another scene, where the camera's node has another id.
    const std::unique_ptr<CScenePage> other = test.makePage("fake-2");
    QCOMPARE(test.files.open(*other, test.file("scene.json")), QString());
    QCOMPARE(other->editor().positions().value(blur.toString()), QPointF(304, 40));
    QCOMPARE(other->editor().positions().value(other->camera()->id().toString()), QPointF(-48, 8));
    QCOMPARE(other->cameraName(), QString("fake-2"));
}

void tst_CSceneFiles::openingReplacesAllButTheCamera()
{
    SFiles test;
    QCOMPARE(test.files.save(*test.page, test.file("empty.json")), QString());
    const Core::CId camera = test.page->camera()->id();
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    QCOMPARE(test.files.open(*test.page, test.file("empty.json")), QString());
    QCOMPARE(test.page->scene()->nodes().size(), std::size_t(1));
    QCOMPARE(test.page->camera()->id(), camera);
}

void tst_CSceneFiles::faultyDocumentChangesNothing()
{
    SFiles test;
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    const QByteArray before = test.document(*test.page);
    const QByteArray faulty = R"({"nodes": [{"id": "x", "model": {"name": "No Such Model"}}], "connections": []})";
    QVERIFY(write(test.file("bad.json"), faulty));
    const QString error = test.files.open(*test.page, test.file("bad.json"));
    QVERIFY2(error.contains("No Such Model"), qPrintable(error));
    QCOMPARE(test.document(*test.page), before);
    QCOMPARE(test.files.takeRefusedText(), faulty);
    QVERIFY(test.files.takeRefusedText().isEmpty());
}

void tst_CSceneFiles::failureWhileItIsReadChangesNothing()
{
    SFiles test;
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    QCOMPARE(test.files.save(*test.page, test.file("bad.json")), QString());
    CGraphEditor& editor = test.page->editor();
    test.page->setFile(test.file("good.json"));
    const Core::CId blur = editor.addNode("Blur", QPointF(304, 40));
    const QByteArray before = test.withoutConnectionIds(*test.page);
    // The scene loses the first node that is read: its connections cannot be made.
    const auto once = std::make_shared<QMetaObject::Connection>();
    CNodeScene* const scene = test.page->scene();
    *once = connect(scene, &CNodeScene::nodeCreated, this, [once, scene](CNodeBase& node) {
        disconnect(*once);
        scene->removeNode(node);
    });
    QVERIFY(!test.files.open(*test.page, test.file("bad.json")).isEmpty());
    QCOMPARE(test.withoutConnectionIds(*test.page), before);
    QCOMPARE(test.page->file(), test.file("good.json"));
    QVERIFY(test.page->isModified());
    QCOMPARE(editor.positions().value(blur.toString()), QPointF(304, 40));
    editor.undoStack().undo();
    QVERIFY(!editor.node(blur));
}

// It would be in the document that is saved next.
void tst_CSceneFiles::nodeThatCannotBeRemovedChangesNothing()
{
    SFiles test;
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    QCOMPARE(test.files.save(*test.page, test.file("other.json")), QString());
    CGraphEditor& editor = test.page->editor();
    test.page->setFile(test.file("mine.json"));
    const Core::CId blur = editor.addNode("Blur", QPointF(304, 40));
    const QString camera = test.page->camera()->id().toString();
    editor.setPositions({{camera, QPointF(-48, 8)}});
    const QByteArray before = test.withoutConnectionIds(*test.page);
    const auto once = std::make_shared<QMetaObject::Connection>();
    *once = connect(test.page->scene(), &CNodeScene::nodeDeleted, this, [once](CNodeBase&) {
        disconnect(*once);
        throw std::runtime_error("it stays");
    });
    QVERIFY(!test.files.open(*test.page, test.file("other.json")).isEmpty());
    QCOMPARE(test.withoutConnectionIds(*test.page), before);
    QCOMPARE(test.page->file(), test.file("mine.json"));
    QVERIFY(test.page->isModified());
    QCOMPARE(editor.positions().value(blur.toString()), QPointF(304, 40));
    QCOMPARE(editor.positions().value(camera), QPointF(-48, 8));
    editor.undoStack().undo();
    QVERIFY(!editor.node(blur));
}

void tst_CSceneFiles::sceneRemovedWhileItIsRead()
{
    SFiles test;
    CLanguage language;
    language.install("ja");
    QCOMPARE(test.files.importChain(*test.page, DEMO_CHAIN), QString());
    QCOMPARE(test.files.save(*test.page, test.file("scene.json")), QString());
    test.page->setFile({});
    const QPointer<CNodeBase> camera = test.page->camera();
    connect(test.page->scene(), &CNodeScene::nodeCreated, this,
            [&test, camera] { test.service.nodes.removeSceneOfNode(camera); });
    const QString error = test.files.open(*test.page, test.file("scene.json"));
    QCOMPARE(error, CSceneFiles::tr("the scene is gone"));
    QVERIFY(error != "the scene is gone");
    QVERIFY(!test.page->scene());
    QVERIFY(test.page->file().isEmpty());
}

void tst_CSceneFiles::faultyChainChangesNothing()
{
    SFiles test;
    QVERIFY(write(test.file("bad.json"), R"([{"name": "a", "model": {"name": "Blurr"}, "unique_sources": [["*"]]}])"));
    const QString error = test.files.importChain(*test.page, test.file("bad.json"));
    QVERIFY2(error.contains("Blurr"), qPrintable(error));
    QCOMPARE(test.page->scene()->nodes().size(), std::size_t(1));
    QVERIFY(!test.page->isModified());
}

void tst_CSceneFiles::missingFile()
{
    SFiles test;
    QVERIFY(test.files.open(*test.page, test.file("none.json")).contains("none.json"));
    QVERIFY(test.files.importChain(*test.page, test.file("none.json")).contains("none.json"));
    QVERIFY(test.files.takeRefusedText().isEmpty());
}

void tst_CSceneFiles::errorsAreInTheLanguageOfTheWindow()
{
    SFiles test;
    QVERIFY(write(test.file("bad.json"), R"({"nodes": [{"id": "x", "model": {"name": "No Such Model"}}]})"));
    test.service.nodes.removeSceneOfNode(test.page->camera());
    const std::unique_ptr<CScenePage> page = test.makePage("fake-2");
    CLanguage language;
    QSet<QString> errors;
    const auto allCodes = CLanguage::codes();
    for (const QString& code : allCodes) {
        language.install(code);
        errors << test.files.save(*test.page, test.file("scene.json")) << test.files.open(*page, test.file("bad.json"));
    }
    QCOMPARE(errors.size(), 2 * CLanguage::codes().size());
}

void tst_CSceneFiles::folderThatCannotBeWritten()
{
    SFiles test;
    QVERIFY(!test.files.save(*test.page, test.file("no/such/folder.json")).isEmpty());
    QVERIFY(test.page->file().isEmpty());
}

QTEST_MAIN(tst_CSceneFiles)
#include "tst_CSceneFiles.moc"
