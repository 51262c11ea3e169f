// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/RawFrame.h"

#include "viewer/TestView.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

const Veltra::SGrabResult& frameOf(const CNodeDataPtr& data)
{
    return *static_cast<const CVeltraGrabResultData&>(*data).grabResult();
}

} // namespace

class tst_RawFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frameHoldsTheValues();
    void formatTellsChannelsAndDepth();
    void partOfAnImageIsCopied();
    void frameKeepsTheImage();
};

void tst_RawFrame::frameHoldsTheValues()
{
    const auto image = viewImage(rampImage(), 8, 17);
    const CNodeDataPtr data = rawFrame(image);
    const Veltra::SGrabResult& frame = frameOf(data);
    QCOMPARE(frame.pixels, reinterpret_cast<const std::byte*>(image->image().data)); // not copied
    QCOMPARE(frame.width, 200);
    QCOMPARE(frame.height, 100);
    QCOMPARE(frame.stride, 200);
    QCOMPARE(frame.size, std::size_t(20000));
    QCOMPARE(frame.pixelFormat, QStringLiteral("Mono8"));
    QCOMPARE(frame.frameNumber, quint64(17));
}

void tst_RawFrame::formatTellsChannelsAndDepth()
{
    QCOMPARE(frameOf(rawFrame(viewImage(cv::Mat(2, 2, CV_16UC1)))).pixelFormat, QStringLiteral("Mono16"));
    QCOMPARE(frameOf(rawFrame(viewImage(cv::Mat(2, 2, CV_8UC3)))).pixelFormat, QStringLiteral("BGR8"));
    QCOMPARE(frameOf(rawFrame(viewImage(cv::Mat(2, 2, CV_16UC3)))).pixelFormat, QStringLiteral("BGR16"));
}

void tst_RawFrame::partOfAnImageIsCopied()
{
    const cv::Mat part = rampImage()(cv::Rect(10, 10, 5, 4));
    const CNodeDataPtr data = rawFrame(viewImage(part));
    const Veltra::SGrabResult& frame = frameOf(data);
    QCOMPARE(frame.stride, 5);
    QCOMPARE(frame.size, std::size_t(20));
    QCOMPARE(int(frame.pixels[19]), 14);
}

void tst_RawFrame::frameKeepsTheImage()
{
    auto image = viewImage(rampImage());
    const QWeakPointer<CImageData> watched = image;
    CNodeDataPtr data = rawFrame(image);
    image.reset();
    QVERIFY(watched);
    data.reset();
    QVERIFY(!watched);
}

QTEST_GUILESS_MAIN(tst_RawFrame)
#include "tst_RawFrame.moc"
