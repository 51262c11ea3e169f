// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HostModels.h"

#include "host/models/CGrabResultData.h"

#include <Halvex/service/CNodeService.h>

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_HostModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registeredModels();
};

void tst_HostModels::registeredModels()
{
    CNodeService service(nullptr);
    registerHostModels(service);
    CNodeDataModelRegistry& registry = *service.registry();
    const std::set<QString> categories{"Filters", "Sinks", "Sources"};
    QCOMPARE(registry.categories(), categories);
    const std::unordered_map<QString, QString> models{
        {"Blur", "Filters"},          {"Edges", "Filters"},  {"Histogram", "Filters"}, {"Threshold", "Filters"},
        {"Camera Source", "Sources"}, {"PNG Sink", "Sinks"}, {"To Image", "Filters"}};
    QCOMPARE(registry.registeredModelsCategoryAssociation(), models);
    for (const auto& model : models)
        QCOMPARE(registry.create(model.first)->name(), model.first);
    const NodeDataConverter toImage = registry.getTypeConverter({"Veltra Grab Result", ""}, {"Host Image", ""});
    QVERIFY(toImage);
    QVERIFY(!toImage({}));
    QVERIFY(!toImage(QSharedPointer<CVeltraGrabResultData>::create()));
}

QTEST_GUILESS_MAIN(tst_HostModels)
#include "tst_HostModels.moc"
