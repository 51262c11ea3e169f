// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/PortFit.h"

#include "edit/SEditedScene.h"
#include "support/CTestModel.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

/// An output that is meant to have one connection.
class COneOutput : public CTestModel
{
public:
    EConnectionPolicy portOutConnectionPolicy(NodePortIndex) const override { return EConnectionPolicy::One; }
};

} // namespace

class tst_PortFit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameTypesFitWithoutAConverter();
    void typesWithAConverterFitOneWay();
    void portsThatAreNotThereFitNothing();
    void anOutputForOneTakesNoSecond();
    void findsAllPortsThatFit();
};

void tst_PortFit::sameTypesFitWithoutAConverter()
{
    const SEditedScene edited;
    const SPort out = SEditedScene::out(edited.add("Blur"));
    const SPort in = SEditedScene::in(edited.add("Edges"));
    QVERIFY(fits(*edited.scene, out, in));
    QVERIFY(fits(*edited.scene, in, out));
    QVERIFY(!converterOf(*edited.scene, out, in));
    QVERIFY(!fits(*edited.scene, out, SEditedScene::in(out.node)));
    QVERIFY(!fits(*edited.scene, out, SEditedScene::out(in.node)));
}

void tst_PortFit::typesWithAConverterFitOneWay()
{
    const SEditedScene edited;
    const SPort frames = SEditedScene::out(edited.camera);
    const Core::CId decoupler = edited.add("DecouplerVGR");
    const Core::CId blur = edited.add("Blur");
    QVERIFY(fits(*edited.scene, frames, SEditedScene::in(blur)));
    QVERIFY(converterOf(*edited.scene, frames, SEditedScene::in(blur)));
    QVERIFY(!fits(*edited.scene, SEditedScene::out(blur), SEditedScene::in(decoupler)));
}

void tst_PortFit::portsThatAreNotThereFitNothing()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const SPort in = SEditedScene::in(blur);
    QVERIFY(!fits(*edited.scene, SEditedScene::out(edited.camera, 1), in));
    QVERIFY(!fits(*edited.scene, SEditedScene::out(edited.camera, -1), in));
    QVERIFY(!fits(*edited.scene, SEditedScene::out(Core::CId::createId()), in));
    QVERIFY(!fits(*edited.scene, SPort(), in));
    QCOMPARE(typeOf(*edited.scene, SEditedScene::out(blur, 3)).id, QString());
}

void tst_PortFit::anOutputForOneTakesNoSecond()
{
    const SEditedScene edited;
    const Core::CId out = edited.scene->createNode(std::make_unique<COneOutput>()).id();
    const Core::CId first = edited.scene->createNode(std::make_unique<CTestModel>()).id();
    const Core::CId second = edited.scene->createNode(std::make_unique<CTestModel>()).id();
    QVERIFY(edited.connectNodes(out, first));
    QVERIFY(!fits(*edited.scene, SEditedScene::out(out), SEditedScene::in(second)));
    QVERIFY(edited.connectNodes(first, second));
}

void tst_PortFit::findsAllPortsThatFit()
{
    const SEditedScene edited;
    edited.add("Blur");
    edited.add("Edges");
    const Core::CId decoupler = edited.add("DecouplerVGR");
    QCOMPARE(fittingPorts(*edited.scene, SEditedScene::out(edited.camera)).size(), std::size_t(3));
    const auto fitting = fittingPorts(*edited.scene, SEditedScene::in(decoupler));
    QCOMPARE(fitting.size(), std::size_t(1));
    QVERIFY(fitting.front() == SEditedScene::out(edited.camera));
}

QTEST_GUILESS_MAIN(tst_PortFit)
#include "tst_PortFit.moc"
