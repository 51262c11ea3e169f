// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Documents that hosts have kept: those of every version are read as they were then, and saved the same, byte for byte.

#include "service/HostModels.h"
#include "support/ServiceConsistency.h"

#include <Halvex/Halvex.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <algorithm>
#include <vector>

using namespace Plugin::Halvex;

namespace {

QDir folder()
{
    return QDir(QStringLiteral(GOLDEN_DOCUMENTS));
}

QByteArray read(const QString& name)
{
    QFile file(folder().filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// One row for each version of which there is a file \a kind-<version>.json.
void addRows(const QString& kind)
{
    QTest::addColumn<QString>("version");
    const QStringList names = folder().entryList({kind + "-*.json"});
    for (const QString& name : names) {
        const QString version = name.section('-', 1).section(".json", 0, 0);
        QTest::newRow(qPrintable(version)) << version;
    }
}

/// \a document with the elements of its arrays in the order of their texts: the scene's tables keep none.
QByteArray ordered(const QByteArray& document)
{
    QJsonObject root = QJsonDocument::fromJson(document).object();
    const QStringList keys = root.keys();
    for (const QString& key : keys) {
        std::vector<QByteArray> texts;
        const QJsonArray elements = root[key].toArray();
        for (const QJsonValue& json : elements)
            texts.push_back(QJsonDocument(json.toObject()).toJson());
        std::sort(texts.begin(), texts.end());
        QJsonArray sorted;
        for (const QByteArray& text : texts)
            sorted.append(QJsonDocument::fromJson(text).object());
        root[key] = sorted;
    }
    return QJsonDocument(root).toJson();
}

/// \a document with the names of the models in place of the nodes' ids: an import gives new ids.
QByteArray withNamesForIds(QByteArray document)
{
    const QJsonArray nodes = QJsonDocument::fromJson(document).object()["nodes"].toArray();
    for (const QJsonValue& node : nodes)
        document.replace(node["id"].toString().toUtf8(), node["model"]["name"].toString().toUtf8());
    return document;
}

/// What the documents ask for, besides the unique source "camera".
void registerModels(CNodeDataModelRegistry& registry)
{
    const QString category = QStringLiteral("Test");
    registry.registerModel<CGenericNodeDecouplerDataModel<CTestData>>(category);
    registerModel(registry, ENodeDataModelType::Sink, "View");
    registry.registerModel([] { return std::make_unique<CTestModel>(2, 2, "Prüfung"); }, category);
    registry.registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()}, &passOn);
}

/// Gives a scene its unique source, under the id that \a document has for it. Loading never makes a unique model, and
/// only a document can choose an id: so the node is restored first, and unique afterwards.
void makeSourceOf(CNodeScene& scene, const QByteArray& document)
{
    scene.registry().registerModel([] { return makeModel(ENodeDataModelType::Source, "camera", QString("camera")); },
                                   "Test");
    const QJsonArray nodes = QJsonDocument::fromJson(document).object()["nodes"].toArray();
    for (const QJsonValue& node : nodes) {
        if (!node["model"]["is_unique"].toBool())
            continue;
        const QJsonObject plain{{"id", node["id"]}, {"model", QJsonObject{{"name", node["model"]["name"]}}}};
        static_cast<CNamedTestModel*>(scene.restoreNode(plain).nodeDataModel())->unique = true;
    }
}

} // namespace

class tst_GoldenDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thisVersionHasItsDocuments();
    void sceneIsSavedAsItWasRead_data() { addRows(QStringLiteral("scene")); }
    void sceneIsSavedAsItWasRead();
    void importMakesTheSameScene_data() { addRows(QStringLiteral("import")); }
    void importMakesTheSameScene();
};

void tst_GoldenDocuments::thisVersionHasItsDocuments()
{
    for (const char* kind : {"scene", "import", "imported"}) {
        const QString name = QStringLiteral("%1-" HALVEX_VERSION_STR ".json").arg(kind);
        QVERIFY2(folder().exists(name), qPrintable("A new version keeps documents of its own: add " + name));
    }
}

void tst_GoldenDocuments::sceneIsSavedAsItWasRead()
{
    QFETCH(const QString, version);
    const QByteArray document = read("scene-" + version + ".json");
    QCOMPARE(ordered(document), document); // the file is kept in that order

    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    registerModels(*registry);
    CNodeScene scene(registry, nullptr, nullptr);
    makeSourceOf(scene, document);
    scene.loadFromMemory(document);

    const QByteArray saved = scene.saveToMemory();
    QCOMPARE(ordered(saved), document);
    QCOMPARE(QJsonDocument::fromJson(saved).toJson(), saved);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_GoldenDocuments::importMakesTheSameScene()
{
    QFETCH(const QString, version);
    CNodeService service(nullptr);
    registerModels(*service.registry());
    service.addNode(makeSource(QStringLiteral("camera")), nullptr);

    QVERIFY(service.importDocument(QString::fromUtf8(read("import-" + version + ".json"))));
    const QByteArray saved = service.getActiveScene()->saveToMemory();
    QCOMPARE(ordered(withNamesForIds(saved)), read("imported-" + version + ".json"));
    QCOMPARE(inconsistencyOfScenes(service), QString());
}

QTEST_GUILESS_MAIN(tst_GoldenDocuments)
#include "tst_GoldenDocuments.moc"
