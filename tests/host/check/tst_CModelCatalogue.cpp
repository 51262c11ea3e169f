// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CModelCatalogue.h"

#include "SHostService.h"
#include "ThrowingModels.h"

#include <QTest>

using namespace Host;

class tst_CModelCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreSorted();
    void models();
    void whatGoesBetween();
    void portsOfAModel();

private:
    SHostService m_host;
};

void tst_CModelCatalogue::namesAreSorted()
{
    const CModelCatalogue models(*m_host.nodes.registry());
    QVERIFY(std::is_sorted(models.names().begin(), models.names().end()));
    QVERIFY(models.names().contains(QStringLiteral("DecouplerVGR")));
}

void tst_CModelCatalogue::models()
{
    registerThrowingModels(*m_host.nodes.registry(), 1);
    const CModelCatalogue models(*m_host.nodes.registry());
    QString error;
    QVERIFY(models.create(QStringLiteral("Scarce"), &error));
    QCOMPARE(error, QString());
    QVERIFY(!models.create(QStringLiteral("Scarce"), &error));
    QCOMPARE(error, QStringLiteral("making 'Scarce' throws: no more of them"));
    QVERIFY(!models.create(QStringLiteral("Nobody"), &error));
    QCOMPARE(error, QString());
}

void tst_CModelCatalogue::whatGoesBetween()
{
    // Models that cannot tell their ports are passed over.
    registerThrowingModels(*m_host.nodes.registry(), 10);
    CModelCatalogue models(*m_host.nodes.registry());
    const QString frame = QStringLiteral("Veltra Grab Result");
    const QString image = QStringLiteral("Host Image");
    QVERIFY(models.converts(frame, image));
    QVERIFY(!models.converts(image, frame));
    QCOMPARE(models.modelBetween(frame, image), QStringLiteral("To Image"));
    QCOMPARE(models.modelBetween(image, frame), QString());
}

void tst_CModelCatalogue::portsOfAModel()
{
    QString error;
    const auto model = CModelCatalogue(*m_host.nodes.registry()).create(QStringLiteral("To Image"), &error);
    QVERIFY(model);
    const PortTypes inputs = portTypes(*model, Plugin::Halvex::ENodePortType::In);
    QCOMPARE(inputs.size(), std::size_t(1));
    QCOMPARE(inputs[0].name, QStringLiteral("VGR"));
    QCOMPARE(portNames(*model, Plugin::Halvex::ENodePortType::In).size(), 1);
}

QTEST_GUILESS_MAIN(tst_CModelCatalogue)
#include "tst_CModelCatalogue.moc"
