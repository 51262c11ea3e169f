// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HostModels.h"

#include "TestTable.h"
#include "host/models/CGrabResultData.h"

#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/service/CNodeService.h>

using namespace Host;
using namespace Plugin::Halvex;

class tst_HostModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { registerHostModels(m_service); }
    void categories();
    void models_data();
    void models();
    void converter();

private:
    CNodeService m_service{nullptr};
};

void tst_HostModels::categories()
{
    const std::unordered_map<QString, QString> expected{
        {"Blur", "Filters"},      {"Edges", "Filters"},         {"Histogram", "Filters"},
        {"Threshold", "Filters"}, {"Camera Source", "Sources"}, {"PNG Sink", "Sinks"},
        {"Raw Sink", "Sinks"},    {"Video Sink", "Sinks"},      {"To Image", "Filters"}};
    QCOMPARE(m_service.registry()->registeredModelsCategoryAssociation(), expected);
}

void tst_HostModels::models_data()
{
    addColumns<QString, QString, QString>({"caption", "in", "out"}); // the types of the one port each, if there is one
    addRow("Camera Source", "Camera", "", "Veltra Grab Result");
    addRow("To Image", "To image", "Veltra Grab Result", "Host Image");
    addRow("PNG Sink", "PNG files", "Host Image", "");
    addRow("Raw Sink", "Raw files", "Veltra Grab Result", "");
    addRow("Video Sink", "Video", "Host Image", "");
    for (const char* filter : {"Blur", "Threshold", "Edges", "Histogram"})
        addRow(filter, filter, "Host Image", "Host Image");
}

void tst_HostModels::models()
{
    QFETCH(QString, caption);
    QFETCH(QString, in);
    QFETCH(QString, out);
    const QString name = QTest::currentDataTag();
    const auto model = m_service.registry()->create(name);
    QVERIFY(model);
    QCOMPARE(model->name(), name);
    QCOMPARE(model->caption(), caption);
    QCOMPARE(model->nPorts(ENodePortType::In), in.isEmpty() ? 0U : 1U);
    QCOMPARE(model->nPorts(ENodePortType::Out), out.isEmpty() ? 0U : 1U);
    QCOMPARE(model->nPorts(ENodePortType::None), 0U);
    if (!in.isEmpty())
        QCOMPARE(model->dataType(ENodePortType::In, 0).id, in);
    if (!out.isEmpty())
        QCOMPARE(model->dataType(ENodePortType::Out, 0).id, out);
    auto* const own = qobject_cast<ANodeDataModel*>(model.get());
    QVERIFY(own && !own->isUnique());
    QVERIFY(!model->outData(0));
    QCOMPARE(model->validationState(), ENodeValidationState::Valid);
}

void tst_HostModels::converter()
{
    const NodeDataConverter toImage =
        m_service.registry()->getTypeConverter({"Veltra Grab Result", ""}, {"Host Image", ""});
    QVERIFY(toImage);
    QVERIFY(!toImage({}));
    QVERIFY(!toImage(QSharedPointer<CVeltraGrabResultData>::create()));
}

QTEST_GUILESS_MAIN(tst_HostModels)
#include "tst_HostModels.moc"
