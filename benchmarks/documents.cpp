// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Scene documents written and read, per node with its connection, and the import of chains.

#include "CRelayModel.h"
#include "Measuring.h"
#include "SDocument.h"
#include "service/CSceneImport_p.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Plugin::Halvex;

namespace {

/// A source that lives in a scene once, under its name.
class CUniqueSource : public ASourceNodeDataModel
{
public:
    using ASourceNodeDataModel::ASourceNodeDataModel;

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Unique source"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return true; }
};

std::shared_ptr<CNodeDataModelRegistry> makeRegistry()
{
    auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel<CRelayModel>(QString());
    return registry;
}

/// A scene that holds a closed chain, with as many connections as nodes.
class CDocumentScene
{
public:
    explicit CDocumentScene(int nodes = 0)
        : scene(makeRegistry(), nullptr, nullptr)
    {
        std::vector<CNodeBase*> made;
        made.reserve(std::size_t(nodes));
        for (int i = 0; i < nodes; ++i)
            made.push_back(&scene.createNode(std::make_unique<CRelayModel>()));
        for (std::size_t i = 0; i < made.size(); ++i)
            scene.createConnection(*made[(i + 1) % made.size()], 0, *made[i], 0, {});
    }

    CNodeScene scene;
};

void addDocuments(CRatioTable& table, int nodes)
{
    const std::string size = std::to_string(nodes);
    const std::string load = addEach("load/" + size + "/Halvex", nodes, [nodes](benchmark::State& state) {
        const QByteArray text = CDocumentScene(nodes).scene.saveToMemory();
        measureEach(
            state, nodes, [] { return std::make_unique<CDocumentScene>(); },
            [&text](const std::unique_ptr<CDocumentScene>& loaded) { loaded->scene.loadFromMemory(text); });
    });
    const std::string read = addEach("load/" + size + "/J", nodes, [nodes](benchmark::State& state) {
        const QByteArray text = CDocumentScene(nodes).scene.saveToMemory();
        measureEach(
            state, nodes, [] { return SDocument(); },
            [&text](SDocument& document) { document = SDocument::read(text); });
    });
    // The objects of the scene are made where construction is measured.
    table.add({"load/" + size, load, {read, "create and connect/" + size + "/S"}, 1.3});

    const std::string save = addEach("save/" + size + "/Halvex", nodes, [nodes](benchmark::State& state) {
        const CDocumentScene saved(nodes);
        measureEach(
            state, nodes, [] { return QByteArray(); },
            [&saved](QByteArray& text) { text = saved.scene.saveToMemory(); });
    });
    const std::string write = addEach("save/" + size + "/J", nodes, [nodes](benchmark::State& state) {
        const QByteArray text = CDocumentScene(nodes).scene.saveToMemory();
        const SDocument document = SDocument::read(text);
        if (document.write() != text)
            state.SkipWithError("the floor writes another document");
        measureEach(
            state, nodes, [] { return QByteArray(); },
            [&document](QByteArray& written) { written = document.write(); });
    });
    table.add({"save/" + size, save, {write}, 1.3}); // no object is made, so J alone is the floor
}

constexpr int sources = 100;

QString sourceName(int source)
{
    return QStringLiteral("source-%1").arg(source);
}

/// A service with one scene, which holds the sources.
class CImportService
{
public:
    CImportService()
        : service(nullptr)
    {
        service.registry()->registerModel<CRelayModel>(QString());
        service.addNode(std::make_unique<CUniqueSource>(sourceName(0)), {});
        for (int source = 1; source < sources; ++source)
            service.getActiveScene()->createNode(std::make_unique<CUniqueSource>(sourceName(source)));
    }

    CNodeService service;
};

QString importDocument(int elements)
{
    QJsonArray array;
    for (int i = 0; i < elements; ++i) {
        array.append(
            QJsonObject{{QStringLiteral("name"), QStringLiteral("element-%1").arg(i)},
                        {QStringLiteral("model"), QJsonObject{{QStringLiteral("name"), QStringLiteral("Relay")}}},
                        {QStringLiteral("unique_sources"), QJsonArray{QJsonArray{sourceName(i % sources)}}}});
    }
    return QString::fromUtf8(QJsonDocument(array).toJson());
}

void addImport(CRatioTable& table, int elements)
{
    const auto prepare = [] { return std::make_unique<CImportService>(); };
    const std::string import = addEach("import/Halvex", elements, [=](benchmark::State& state) {
        const QString text = importDocument(elements);
        measureEach(state, elements, prepare,
                    [&text](const std::unique_ptr<CImportService>& host) { host->service.importDocument(text); });
    });
    const std::string load = addEach("import/load", elements, [=](benchmark::State& state) {
        const QString text = importDocument(elements);
        // The result names the nodes of the sources, which every service has its own of: it is produced each time.
        const auto prepareResult = [&] {
            auto host = prepare();
            CSceneImport chains(*host->service.getActiveScene());
            chains.addDocument(text);
            return std::make_pair(std::move(host),
                                  QJsonDocument(chains.sceneDocument()).toJson(QJsonDocument::Compact));
        };
        measureEach(state, elements, prepareResult, [](const auto& prepared) {
            prepared.first->service.getActiveScene()->loadFromMemory(prepared.second);
        });
    });
    table.add({"import of " + std::to_string(elements) + " elements, against loading the result", import, {load}, 2.0});
}

} // namespace

void registerDocuments(CRatioTable& table, int largest)
{
    const std::vector<int> sizes = sizesUpTo(100000, 1000, largest);
    for (const int size : sizes)
        addDocuments(table, size);
    for (const char* const work : {"load", "save"})
        addGrowth(table, work, sizes, "/Halvex");
    addImport(table, std::min(largest, 10000));
}
