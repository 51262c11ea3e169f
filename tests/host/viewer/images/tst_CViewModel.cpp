// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CViewModel.h"

#include "viewer/TestView.h"

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CViewModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newModel();
    void keepsTheNewestOnly();
    void emptyDataTakesTheImageAway();
    void whatCannotBeShownIsTold();
    void listenersGetAllOfIt();
    void nameSurvivesADocument();
    void handlerMayRemoveIt();
};

void tst_CViewModel::newModel()
{
    CViewModel model;
    QCOMPARE(model.name(), QStringLiteral("Image View"));
    QCOMPARE(model.caption(), QStringLiteral("Image view"));
    QCOMPARE(model.nPorts(ENodePortType::In), 1U);
    QCOMPARE(model.nPorts(ENodePortType::Out), 0U);
    QCOMPARE(model.dataType(ENodePortType::In, 0).id, CImageData::dataType().id);
    QVERIFY(!model.isUnique());
    QVERIFY(!model.image());
    QCOMPARE(model.delivered(), quint64(0));
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_CViewModel::keepsTheNewestOnly()
{
    CViewModel model;
    QSignalSpy changed(&model, &CViewModel::imageChanged);
    auto first = viewImage(rampImage());
    const QWeakPointer<CImageData> watched = first;
    const auto second = viewImage(rampImage());
    model.setInData(first, 0);
    first.reset();
    model.setInData(second, 0);
    QTRY_VERIFY(watched.isNull());
    QCOMPARE(model.image(), second.staticCast<const CImageData>());
    QCOMPARE(model.delivered(), quint64(2));
    QCOMPARE(changed.count(), 2);
}

void tst_CViewModel::emptyDataTakesTheImageAway()
{
    CViewModel model;
    QSignalSpy changed(&model, &CViewModel::imageChanged);
    model.setInData(viewImage(rampImage()), 0);
    model.setInData({}, 0);
    QVERIFY(!model.image());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(model.delivered(), quint64(1));
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_CViewModel::whatCannotBeShownIsTold()
{
    CViewModel model;
    for (const cv::Mat& pixels : {cv::Mat(), cv::Mat(2, 2, CV_32FC1), cv::Mat(2, 2, CV_8UC2)}) {
        model.setInData(viewImage(pixels), 0);
        QVERIFY(!model.image());
        QCOMPARE(model.validationState(), ENodeValidationState::Error);
        QVERIFY(!model.validationMessage().isEmpty());
    }
    QCOMPARE(model.delivered(), quint64(0));
    model.setInData(viewImage(cv::Mat(2, 2, CV_16UC3)), 0);
    QVERIFY(model.image());
    QCOMPARE(model.validationMessage(), QString());
}

void tst_CViewModel::listenersGetAllOfIt()
{
    CViewModel model;
    QSignalSpy passed(model.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable);
    const CNodeDataPtr sent = viewImage(rampImage());
    model.setInData(sent, 0);
    model.setInData({}, 0);
    QCOMPARE(passed.count(), 2);
    QCOMPARE(passed.at(0).at(0).value<CNodeDataPtr>(), sent);
}

void tst_CViewModel::nameSurvivesADocument()
{
    CViewModel model;
    QSignalSpy changed(&model, &CViewModel::viewNameChanged);
    QVERIFY(!model.save().contains("property"));
    model.setViewName(QStringLiteral("Left"));
    model.setViewName(QStringLiteral("Left"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(model.caption(), QStringLiteral("Left"));
    const QJsonObject expected{
        {"name", "Image View"}, {"is_unique", false}, {"property", QJsonObject{{"view_name", "Left"}}}};
    QCOMPARE(model.save(), expected);
    CViewModel restored;
    restored.restore(expected);
    QCOMPARE(restored.viewName(), QStringLiteral("Left"));
    restored.restore({{"property", QJsonObject{{"view_name", 3}}}});
    restored.restore({});
    QCOMPARE(restored.viewName(), QStringLiteral("Left"));
}

void tst_CViewModel::handlerMayRemoveIt()
{
    auto model = std::make_unique<CViewModel>();
    connect(model.get(), &CViewModel::imageChanged, this, [&] { model.reset(); });
    model->setInData(viewImage(rampImage()), 0);
    QVERIFY(!model);
}

QTEST_GUILESS_MAIN(tst_CViewModel)
#include "tst_CViewModel.moc"
