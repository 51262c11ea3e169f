// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CToImageModel.h"

#include "host/models/CGrabResultData.h"
#include "host/models/CImageData.h"

#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

CNodeDataPtr frame(const QString& pixelFormat)
{
    const auto pixels = std::make_shared<std::vector<std::byte>>(64 * 48);
    Veltra::SGrabResult result;
    result.pixels = pixels->data();
    result.size = pixels->size();
    result.width = result.stride = 64;
    result.height = 48;
    result.pixelFormat = pixelFormat;
    result.complete = true;
    result.owner = pixels;
    return QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(std::move(result)), SFrameInfo{5, {}});
}

} // namespace

class tst_CToImageModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void portsAndNames();
    void framesBecomeImages();
    void whatCannotBeConvertedClearsTheOutput_data();
    void whatCannotBeConvertedClearsTheOutput();
};

void tst_CToImageModel::portsAndNames()
{
    CToImageModel model;
    QCOMPARE(model.name(), QStringLiteral("To Image"));
    QCOMPARE(model.caption(), QStringLiteral("To image"));
    QCOMPARE(model.nPorts(ENodePortType::In), 1U);
    QCOMPARE(model.nPorts(ENodePortType::Out), 1U);
    QCOMPARE(model.nPorts(ENodePortType::None), 0U);
    QCOMPARE(model.dataType(ENodePortType::In, 0).id, QStringLiteral("Veltra Grab Result"));
    QCOMPARE(model.dataType(ENodePortType::Out, 0).id, CImageData::dataType().id);
    QVERIFY(!model.isUnique());
    QVERIFY(!model.outData(0));
}

void tst_CToImageModel::framesBecomeImages()
{
    CToImageModel model;
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    model.setInData(frame(QStringLiteral("Mono8")), 0);
    QCOMPARE(updated.count(), 1);
    const auto image = model.outData(0).dynamicCast<CImageData>();
    QVERIFY(image);
    QCOMPARE(image->image().size(), cv::Size(64, 48));
    QCOMPARE(image->info().frameNumber, quint64(5));
    QVERIFY(!model.outData(1));
}

void tst_CToImageModel::whatCannotBeConvertedClearsTheOutput_data()
{
    QTest::addColumn<CNodeDataPtr>("data");
    QTest::newRow("null") << CNodeDataPtr();
    QTest::newRow("unknown format") << frame(QStringLiteral("Mono12Packed"));
    QTest::newRow("image") << CNodeDataPtr(QSharedPointer<CImageData>::create(cv::Mat(2, 2, CV_8UC1), SFrameInfo()));
}

void tst_CToImageModel::whatCannotBeConvertedClearsTheOutput()
{
    QFETCH(CNodeDataPtr, data);
    CToImageModel model;
    model.setInData(frame(QStringLiteral("Mono8")), 0);
    QVERIFY(model.outData(0));
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    QSignalSpy invalidated(&model, &CNodeDataModel::dataInvalidated);
    model.setInData(data, 0);
    QVERIFY(!model.outData(0));
    QCOMPARE(updated.count(), 0);
    QCOMPARE(invalidated.count(), 1);
}

QTEST_GUILESS_MAIN(tst_CToImageModel)
#include "tst_CToImageModel.moc"
