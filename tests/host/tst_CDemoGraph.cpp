// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CDemoGraph.h"

#include "host/models/CGrabResultData.h"
#include "host/models/CPngSinkModel.h"
#include "host/models/HostModels.h"
#include "models/CNodeDataFlowProxy.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CDemoGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registeredModels();
    void everySinkGetsEveryFrame();
};

void tst_CDemoGraph::registeredModels()
{
    CNodeDataModelRegistry registry;
    registerHostModels(registry);
    const std::set<QString> categories{"Filters", "Sinks", "Sources"};
    QCOMPARE(registry.categories(), categories);
    const std::unordered_map<QString, QString> models{{"Blur", "Filters"},          {"Edges", "Filters"},
                                                      {"Histogram", "Filters"},     {"Threshold", "Filters"},
                                                      {"Camera Source", "Sources"}, {"PNG Sink", "Sinks"}};
    QCOMPARE(registry.registeredModelsCategoryAssociation(), models);
    for (const auto& model : models)
        QCOMPARE(registry.create(model.first)->name(), model.first);
    const NodeDataConverter toImage = registry.getTypeConverter({"Veltra Grab Result", ""}, {"Host Image", ""});
    QVERIFY(toImage);
    QVERIFY(!toImage({}));
}

void tst_CDemoGraph::everySinkGetsEveryFrame()
{
    CDemoGraph graph(QStringLiteral("left"));
    QStringList names;
    for (const CPngSinkModel* sink : graph.sinks())
        names << sink->uniqueName();
    QCOMPARE(names, QStringList({"frames", "threshold", "edges", "histogram"}));
    QCOMPARE(graph.scene().nodes().size(), std::size_t(9));
    QCOMPARE(graph.scene().connections().size(), std::size_t(8));

    const auto pixels = std::make_shared<std::vector<std::byte>>(64 * 48);
    Veltra::SGrabResult frame;
    frame.pixels = pixels->data();
    frame.size = pixels->size();
    frame.width = frame.stride = 64;
    frame.height = 48;
    frame.pixelFormat = QStringLiteral("Mono8");
    frame.complete = true;
    frame.owner = pixels;
    for (int i = 0; i < 5; ++i)
        graph.entry()->setData(
            QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(Veltra::SGrabResult(frame)), SFrameInfo()));
    for (const CPngSinkModel* sink : graph.sinks())
        QCOMPARE(sink->delivered(), quint64(5));
}

QTEST_GUILESS_MAIN(tst_CDemoGraph)
#include "tst_CDemoGraph.moc"
