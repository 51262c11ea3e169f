// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Scene documents written and read, per node with its connection, and the import of chains.

#include "CDocumentScene.h"
#include "CImportService.h"
#include "Measuring.h"
#include "SDocument.h"
#include "service/CSceneImport_p.h"

#include <QJsonDocument>

using namespace Plugin::Halvex;

namespace {

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
