// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CGrabResultConverter.h"

#include "host/models/CGrabResultData.h"
#include "host/models/CImageData.h"

#include <opencv2/imgproc.hpp>

#include <QTest>

#include <vector>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

const SFrameInfo info{3, std::chrono::steady_clock::time_point(std::chrono::seconds(4))};

// A frame over memory of its own, its rows padded so that the stride matters.
struct SFrame
{
    SFrame(const QString& format, int width, int height, int bytesPerPixel)
        : memory(std::make_shared<std::vector<uchar>>(std::size_t(width * bytesPerPixel + 6) * std::size_t(height)))
    {
        result.pixels = reinterpret_cast<const std::byte*>(memory->data());
        result.size = memory->size();
        result.width = width;
        result.height = height;
        result.stride = width * bytesPerPixel + 6;
        result.pixelFormat = format;
        result.complete = true;
        result.owner = memory;
    }

    uchar* pixel(int x, int y, int bytesPerPixel = 1)
    {
        return memory->data() + std::ptrdiff_t(y) * result.stride + std::ptrdiff_t(x) * bytesPerPixel;
    }

    QSharedPointer<CImageData> converted() const
    {
        const CNodeDataPtr data =
            QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(Veltra::SGrabResult(result)), info);
        return CGrabResultConverter()(data).dynamicCast<CImageData>();
    }

    std::shared_ptr<std::vector<uchar>> memory;
    Veltra::SGrabResult result;
};

} // namespace

class tst_CGrabResultConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyDataStaysEmpty();
    void otherDataIsEmpty();
    void grabResultOfSomebodyElse();
    void unknownFormatIsEmpty();
    void rowsBetweenValuesAreEmpty();
    void mono8IsNotCopied();
    void imageKeepsTheFrame();
    void deepMonoKeepsTheHighestBits_data();
    void deepMonoKeepsTheHighestBits();
    void colorOrder_data();
    void colorOrder();
    void bayer_data();
    void bayer();
};

void tst_CGrabResultConverter::emptyDataStaysEmpty()
{
    const CGrabResultConverter convert;
    QVERIFY(!convert({}));
    QVERIFY(!convert(QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(), info)));
}

void tst_CGrabResultConverter::otherDataIsEmpty()
{
    QVERIFY(!CGrabResultConverter()(QSharedPointer<CImageData>::create(cv::Mat(2, 2, CV_8UC1), info)));
}

void tst_CGrabResultConverter::grabResultOfSomebodyElse()
{
    SFrame frame(QStringLiteral("Mono8"), 4, 4, 1);
    frame.result.frameNumber = 17;
    const auto before = std::chrono::steady_clock::now();
    const CNodeDataPtr data = QSharedPointer<CVeltraGrabResultData>::create(Veltra::CGrabResultPtr(frame.result));
    const auto image = CGrabResultConverter()(data).dynamicCast<CImageData>();
    QVERIFY(image);
    QCOMPARE(image->image().data, frame.memory->data());
    QCOMPARE(image->info().frameNumber, quint64(17));
    // It does not say when it was grabbed.
    QVERIFY(image->info().grabbed >= before);
    QVERIFY(image->info().grabbed <= std::chrono::steady_clock::now());
}

void tst_CGrabResultConverter::unknownFormatIsEmpty()
{
    QVERIFY(!CGrabResultConverter::supports(QStringLiteral("Mono12Packed")));
    QVERIFY(!SFrame(QStringLiteral("Mono12Packed"), 4, 4, 2).converted());
}

void tst_CGrabResultConverter::rowsBetweenValuesAreEmpty()
{
    SFrame frame(QStringLiteral("Mono12"), 5, 2, 2);
    QVERIFY(frame.converted());
    --frame.result.stride;
    QVERIFY(!frame.converted());
}

void tst_CGrabResultConverter::mono8IsNotCopied()
{
    SFrame frame(QStringLiteral("Mono8"), 5, 3, 1);
    *frame.pixel(4, 2) = 77;
    const auto image = frame.converted();
    QVERIFY(image);
    QCOMPARE(image->image().size(), cv::Size(5, 3));
    QCOMPARE(image->image().type(), CV_8UC1);
    QCOMPARE(static_cast<const void*>(image->image().data), static_cast<const void*>(frame.memory->data()));
    QCOMPARE(int(image->image().at<uchar>(2, 4)), 77);
    QCOMPARE(image->info().frameNumber, info.frameNumber);
    QCOMPARE(image->info().grabbed, info.grabbed);
}

void tst_CGrabResultConverter::imageKeepsTheFrame()
{
    auto frame = std::make_unique<SFrame>(QStringLiteral("Mono8"), 5, 3, 1);
    const std::weak_ptr<std::vector<uchar>> memory = frame->memory;
    auto image = frame->converted();
    frame.reset();
    QVERIFY(!memory.expired());
    image.reset();
    QVERIFY(memory.expired());
}

void tst_CGrabResultConverter::deepMonoKeepsTheHighestBits_data()
{
    QTest::addColumn<int>("bits");
    QTest::newRow("Mono10") << 10;
    QTest::newRow("Mono12") << 12;
    QTest::newRow("Mono14") << 14;
    QTest::newRow("Mono16") << 16;
}

void tst_CGrabResultConverter::deepMonoKeepsTheHighestBits()
{
    QFETCH(int, bits);
    const int count = 1 << bits;
    SFrame frame(QString::fromLatin1(QTest::currentDataTag()), 256, count / 256, 2);
    for (int value = 0; value < count; ++value) {
        uchar* pixel = frame.pixel(value % 256, value / 256, 2);
        pixel[0] = uchar(value & 0xff);
        pixel[1] = uchar(value >> 8);
    }
    const auto image = frame.converted();
    QVERIFY(image);
    QCOMPARE(image->image().type(), CV_8UC1);
    for (int value = 0; value < count; ++value)
        QCOMPARE(int(image->image().at<uchar>(value / 256, value % 256)), value >> (bits - 8));
}

void tst_CGrabResultConverter::colorOrder_data()
{
    QTest::addColumn<int>("redByte");
    QTest::newRow("RGB8") << 0;
    QTest::newRow("BGR8") << 2;
}

void tst_CGrabResultConverter::colorOrder()
{
    QFETCH(int, redByte);
    SFrame frame(QString::fromLatin1(QTest::currentDataTag()), 3, 2, 3);
    uchar* pixel = frame.pixel(2, 1, 3);
    pixel[redByte] = 200;
    pixel[1] = 100;
    pixel[2 - redByte] = 50;
    const auto image = frame.converted();
    QVERIFY(image);
    QCOMPARE(image->image().type(), CV_8UC3);
    QCOMPARE(image->image().at<cv::Vec3b>(1, 2), cv::Vec3b(50, 100, 200));
}

void tst_CGrabResultConverter::bayer_data()
{
    // Where the red pixel lies in each square of two by two, and where the blue one.
    QTest::addColumn<int>("red");
    QTest::addColumn<int>("blue");
    QTest::newRow("BayerRG8") << 0 << 3;
    QTest::newRow("BayerGR8") << 1 << 2;
    QTest::newRow("BayerGB8") << 2 << 1;
    QTest::newRow("BayerBG8") << 3 << 0;
}

void tst_CGrabResultConverter::bayer()
{
    QFETCH(int, red);
    QFETCH(int, blue);
    SFrame frame(QString::fromLatin1(QTest::currentDataTag()), 16, 16, 1);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const int place = 2 * (y % 2) + x % 2;
            *frame.pixel(x, y) = uchar(place == red ? 220 : place == blue ? 40 : 130);
        }
    }
    // One colour all over: demosaicing finds it whatever its method.
    const auto image = frame.converted();
    QVERIFY(image);
    QCOMPARE(image->image().at<cv::Vec3b>(8, 8), cv::Vec3b(40, 130, 220));
    QCOMPARE(image->image().at<cv::Vec3b>(7, 9), cv::Vec3b(40, 130, 220));
}

QTEST_GUILESS_MAIN(tst_CGrabResultConverter)
#include "tst_CGrabResultConverter.moc"
