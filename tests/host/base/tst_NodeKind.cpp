// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/NodeKind.h"

#include "SHostService.h"
#include "TestTable.h"

using namespace Host;

class tst_NodeKind : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kindOfAModel_data();
    void kindOfAModel();
    void cameraIsASource();
    void namesLeadBack();
};

void tst_NodeKind::kindOfAModel_data()
{
    addColumns<QString, QString>({"model", "kind"});
    const auto row = [](const char* model, const char* kind) { addRow(model, QString(model), QString(kind)); };
    row("DecouplerVGR", "decoupler");
    row("To Image", "filter");
    row("PNG Sink", "sink");
}

void tst_NodeKind::kindOfAModel()
{
    QFETCH(QString, model);
    SHostService host;
    QTEST(kindName(kindOf(*host.nodes.registry()->create(model))), "kind");
}

void tst_NodeKind::cameraIsASource()
{
    const SHostService host;
    QCOMPARE(kindName(kindOf(*host.models.createCameraSource(QStringLiteral("left")))), QStringLiteral("source"));
}

void tst_NodeKind::namesLeadBack()
{
    for (const ENodeKind kind : {ENodeKind::Filter, ENodeKind::Source, ENodeKind::Decoupler, ENodeKind::Sink})
        QVERIFY(kindNamed(kindName(kind)) == kind);
    QVERIFY(kindNamed(QStringLiteral("unheard of")) == ENodeKind::Filter);
}

QTEST_GUILESS_MAIN(tst_NodeKind)
#include "tst_NodeKind.moc"
