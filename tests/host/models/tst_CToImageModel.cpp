// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CToImageModel.h"

#include "TestFrame.h"
#include "host/models/CImageData.h"

#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CToImageModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesBecomeImages();
    void whatCannotBeConvertedClearsTheOutput();
};

void tst_CToImageModel::framesBecomeImages()
{
    CToImageModel model;
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    model.setInData(frameData(), 0);
    QCOMPARE(updated.count(), 1);
    const auto image = model.outData(0).dynamicCast<CImageData>();
    QVERIFY(image);
    QCOMPARE(image->image().size(), cv::Size(64, 48));
    QCOMPARE(image->info().frameNumber, quint64(5));
    QVERIFY(!model.outData(1));
}

void tst_CToImageModel::whatCannotBeConvertedClearsTheOutput()
{
    const auto image = QSharedPointer<CImageData>::create(cv::Mat(2, 2, CV_8UC1), SFrameInfo());
    for (const CNodeDataPtr& data : {CNodeDataPtr(), frameData("YUV422_8"), CNodeDataPtr(image)}) {
        CToImageModel model;
        model.setInData(frameData(), 0);
        QVERIFY(model.outData(0));
        QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
        QSignalSpy invalidated(&model, &CNodeDataModel::dataInvalidated);
        model.setInData(data, 0);
        QVERIFY(!model.outData(0));
        QCOMPARE(updated.count(), 0);
        QCOMPARE(invalidated.count(), 1);
    }
}

QTEST_GUILESS_MAIN(tst_CToImageModel)
#include "tst_CToImageModel.moc"
