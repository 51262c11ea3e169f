// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CGrabResultConverter.h"

#include "host/camera/PixelFormat.h"
#include "host/models/CGrabResultData.h"
#include "host/models/CImageData.h"

#include <opencv2/imgproc.hpp>

#include <QTest>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <vector>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

constexpr uchar red = 220;
constexpr uchar green = 130;
constexpr uchar blue = 40;

const SFrameInfo info{3, std::chrono::steady_clock::time_point(std::chrono::seconds(4))};

// A frame over memory of its own, its rows padded so that the stride matters.
struct SFrame
{
    SFrame(const char* format, int width, int height, int bytesPerPixel = 1)
        : memory(std::make_shared<std::vector<uchar>>(std::size_t(width * bytesPerPixel + 6) * std::size_t(height)))
        , bytes(bytesPerPixel)
    {
        result.pixels = reinterpret_cast<const std::byte*>(memory->data());
        result.size = memory->size();
        result.width = width;
        result.height = height;
        result.stride = width * bytesPerPixel + 6;
        result.pixelFormat = QString::fromLatin1(format);
        result.complete = true;
        result.owner = memory;
    }

    uchar* pixel(int x, int y)
    {
        return memory->data() + std::ptrdiff_t(y) * result.stride + std::ptrdiff_t(x) * bytes;
    }

    QSharedPointer<CImageData> converted() const
    {
        const CNodeDataPtr data = QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(result), info);
        return CGrabResultConverter()(data).dynamicCast<CImageData>();
    }

    std::shared_ptr<std::vector<uchar>> memory;
    int bytes;
    Veltra::SGrabResult result;
};

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray all;
    for (const int value : values)
        all.append(char(value & 0xff));
    return all;
}

// Each row has these bytes, and none between them.
SFrame packedFrame(const char* format, int width, int rows, const QByteArray& row)
{
    SFrame frame(format, width, rows, 4);
    frame.result.stride = row.size();
    for (int y = 0; y < rows; ++y)
        std::copy(row.begin(), row.end(), frame.memory->begin() + std::ptrdiff_t(y) * row.size());
    return frame;
}

} // namespace

class tst_CGrabResultConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatHoldsNoFrameIsEmpty();
    void grabResultOfSomebodyElse();
    void unknownFormatIsEmpty();
    void rowsBetweenValuesAreEmpty();
    void mono8IsNotCopied();
    void imageKeepsTheFrame();
    void deepMonoKeepsAllBits();
    void packedMonoKeepsAllBits_data();
    void packedMonoKeepsAllBits();
    void shortRowsOfPackedValuesAreEmpty();
    void colorOrder();
    void bayer();
    void deepBayer();
    void whatCamerasSendIsConverted_data();
    void whatCamerasSendIsConverted();
    void framesSmallerThanTheySayAreEmpty();
};

void tst_CGrabResultConverter::whatHoldsNoFrameIsEmpty()
{
    const CGrabResultConverter convert;
    QVERIFY(!convert({}));
    QVERIFY(!convert(QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(), info)));
    QVERIFY(!convert(QSharedPointer<CImageData>::create(cv::Mat(2, 2, CV_8UC1), info)));
}

void tst_CGrabResultConverter::grabResultOfSomebodyElse()
{
    SFrame frame("Mono8", 4, 4);
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
    for (const char* format : {"Mono14p", "Mono8Packed", "RGB12Packed", "YUV422_8", "0x010c0001", "", "12", "mono12"}) {
        QVERIFY(!CGrabResultConverter::supports(QLatin1String(format)));
        QVERIFY(!SFrame(format, 4, 4, 2).converted());
    }
}

void tst_CGrabResultConverter::rowsBetweenValuesAreEmpty()
{
    SFrame frame("Mono12", 5, 2, 2);
    QVERIFY(frame.converted());
    --frame.result.stride;
    QVERIFY(!frame.converted());
}

void tst_CGrabResultConverter::mono8IsNotCopied()
{
    SFrame frame("Mono8", 5, 3);
    *frame.pixel(4, 2) = 77;
    const auto image = frame.converted();
    QVERIFY(image);
    QCOMPARE(image->image().size(), cv::Size(5, 3));
    QCOMPARE(image->image().type(), CV_8UC1);
    QCOMPARE(image->image().data, frame.memory->data());
    QCOMPARE(int(image->image().at<uchar>(2, 4)), 77);
    QCOMPARE(image->info().frameNumber, info.frameNumber);
    QCOMPARE(image->info().grabbed, info.grabbed);
}

void tst_CGrabResultConverter::imageKeepsTheFrame()
{
    auto frame = std::make_unique<SFrame>("Mono8", 5, 3);
    const std::weak_ptr<std::vector<uchar>> memory = frame->memory;
    auto image = frame->converted();
    frame.reset();
    QVERIFY(!memory.expired());
    image.reset();
    QVERIFY(memory.expired());
}

void tst_CGrabResultConverter::deepMonoKeepsAllBits()
{
    for (const int bits : {10, 12, 14, 16}) {
        const int count = 1 << bits;
        SFrame frame("Mono" + QByteArray::number(bits), 256, count / 256, 2);
        for (int value = 0; value < count; ++value) {
            uchar* pixel = frame.pixel(value % 256, value / 256);
            pixel[0] = uchar(value & 0xff);
            pixel[1] = uchar(value >> 8);
        }
        const auto image = frame.converted();
        QVERIFY(image);
        QCOMPARE(image->image().type(), CV_16UC1);
        QCOMPARE(image->info().bits, bits);
        for (int value = 0; value < count; ++value)
            QCOMPARE(int(image->image().at<ushort>(value / 256, value % 256)), value << (16 - bits));
    }
}

void tst_CGrabResultConverter::packedMonoKeepsAllBits_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("bytes"); // of a row, in hexadecimal digits
    QTest::addColumn<std::vector<int>>("values");
    // As the conventions draw them; the last value begins within a byte, and ends the row.
    QTest::newRow("PFNC, 10 bits") << QByteArray("Mono10p") << QByteArray("ff5394ea200103")
                                   << std::vector<int>{0x3ff, 0x114, 0x2a9, 0x083, 0x301};
    QTest::newRow("PFNC, 12 bits") << QByteArray("Mono12p") << QByteArray("bc9a785604")
                                   << std::vector<int>{0xabc, 0x789, 0x456};
    QTest::newRow("GigE Vision, 10 bits")
        << QByteArray("Mono10Packed") << QByteArray("ff12804003") << std::vector<int>{0x3fe, 0x201, 0x103};
    QTest::newRow("GigE Vision, 12 bits")
        << QByteArray("Mono12Packed") << QByteArray("ab9c780f04") << std::vector<int>{0xabc, 0x789, 0x0f4};
}

void tst_CGrabResultConverter::packedMonoKeepsAllBits()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, bytes);
    QFETCH(std::vector<int>, values);
    const QByteArray row = QByteArray::fromHex(bytes);
    constexpr int rows = 3;
    const SFrame frame = packedFrame(format, int(values.size()), rows, row);
    const auto image = frame.converted();
    QVERIFY(image);
    QCOMPARE(image->image().type(), CV_16UC1);
    const int bits = image->info().bits;
    QCOMPARE(bits, format.contains("10") ? 10 : 12);
    for (int y = 0; y < rows; ++y) {
        for (std::size_t x = 0; x < values.size(); ++x)
            QCOMPARE(int(image->image().at<ushort>(y, int(x))), values[x] << (16 - bits));
    }
}

void tst_CGrabResultConverter::shortRowsOfPackedValuesAreEmpty()
{
    // Five values need seven bytes, or eight with pairs in three.
    for (const auto& format : {std::make_pair("Mono10p", 7), std::make_pair("Mono10Packed", 8)}) {
        SFrame frame = packedFrame(format.first, 5, 2, QByteArray(format.second, '\x11'));
        QVERIFY(frame.converted());
        --frame.result.stride;
        QVERIFY(!frame.converted());
    }
}

void tst_CGrabResultConverter::colorOrder()
{
    const std::map<const char*, std::array<uchar, 3>> formats{{"RGB8", {red, green, blue}},
                                                              {"BGR8", {blue, green, red}}};
    for (const auto& format : formats) {
        SFrame frame(format.first, 3, 2, 3);
        std::copy(format.second.begin(), format.second.end(), frame.pixel(2, 1));
        const auto image = frame.converted();
        QVERIFY2(image, format.first);
        QCOMPARE(image->image().type(), CV_8UC3);
        QCOMPARE(image->image().at<cv::Vec3b>(1, 2), cv::Vec3b(blue, green, red));
    }
}

void tst_CGrabResultConverter::bayer()
{
    // The colours of each square of two by two, row by row.
    const std::map<const char*, std::array<uchar, 4>> formats{{"BayerRG8", {red, green, green, blue}},
                                                              {"BayerGR8", {green, red, blue, green}},
                                                              {"BayerGB8", {green, blue, red, green}},
                                                              {"BayerBG8", {blue, green, green, red}}};
    for (const auto& format : formats) {
        SFrame frame(format.first, 16, 16);
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x)
                *frame.pixel(x, y) = format.second[std::size_t(2 * (y % 2) + x % 2)];
        }
        // One colour all over: demosaicing finds it whatever its method.
        const auto image = frame.converted();
        QVERIFY2(image, format.first);
        QCOMPARE(image->image().at<cv::Vec3b>(8, 8), cv::Vec3b(blue, green, red));
        QCOMPARE(image->image().at<cv::Vec3b>(7, 9), cv::Vec3b(blue, green, red));
    }
}

void tst_CGrabResultConverter::deepBayer()
{
    // One colour all over; two values of 12 bits at a time, as they lie in memory.
    constexpr int r = red << 4 | 3;
    constexpr int g = green << 4 | 7;
    constexpr int b = blue << 4 | 5;
    using Pack = QByteArray (*)(int, int);
    const std::map<const char*, Pack> formats{{"BayerRG12p",
                                               [](int one, int other) {
                                                   return bytes({one, one >> 8 | other << 4, other >> 4});
                                               }},
                                              {"BayerRG12Packed",
                                               [](int one, int other) {
                                                   return bytes({one >> 4, (one & 15) | other << 4, other >> 4});
                                               }},
                                              {"BayerRG12", [](int one, int other) {
                                                   return bytes({one, one >> 8, other, other >> 8});
                                               }}};
    constexpr int pairs = 8;
    for (const auto& format : formats) {
        const QByteArray rows = format.second(r, g).repeated(pairs) + format.second(g, b).repeated(pairs);
        SFrame frame = packedFrame(format.first, 2 * pairs, pairs, rows); // two rows at a time
        frame.result.stride /= 2;
        frame.result.height *= 2;
        const auto image = frame.converted();
        QVERIFY2(image, format.first);
        QCOMPARE(image->info().bits, 12);
        const cv::Vec3w color(b << 4, g << 4, r << 4);
        QCOMPARE(image->image().at<cv::Vec3w>(8, 8), color);
        QCOMPARE(image->image().at<cv::Vec3w>(7, 9), color);
    }
}

void tst_CGrabResultConverter::whatCamerasSendIsConverted_data()
{
    QTest::addColumn<QString>("format");
    const auto names = pixelFormatNames();
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

// The frame stays as it is, whoever else reads it: the same comes out again.
void tst_CGrabResultConverter::whatCamerasSendIsConverted()
{
    QFETCH(QString, format);
    SFrame frame(format.toLatin1(), 8, 6, 6);
    for (std::size_t i = 0; i < frame.memory->size(); ++i)
        (*frame.memory)[i] = uchar(7 * i);
    const std::vector<uchar> before = *frame.memory;
    const auto image = frame.converted();
    QVERIFY(image);
    const auto again = frame.converted();
    QVERIFY(*frame.memory == before);
    QCOMPARE(cv::norm(image->image(), again->image(), cv::NORM_INF), 0.0);

    const QStringList kept{"Mono8", "Mono16", "BGR8", "BGR16"};
    QCOMPARE(image->image().data == frame.memory->data(), kept.contains(format));
    QCOMPARE(frame.memory.use_count() > 2, kept.contains(format)); // those of the frame, and one of each image
}

void tst_CGrabResultConverter::framesSmallerThanTheySayAreEmpty()
{
    for (const char* format : {"Mono8", "Mono12", "RGB8", "Mono12p", "BayerRG8"}) {
        SFrame frame(format, 8, 6, 6);
        QVERIFY(frame.converted());
        const int stride = std::exchange(frame.result.stride, 4);
        QVERIFY(!frame.converted());
        frame.result.stride = stride;
        frame.result.size = std::size_t(stride) * 5;
        QVERIFY(!frame.converted());
        frame.result.pixels = nullptr;
        QVERIFY(!frame.converted());
    }
}

QTEST_GUILESS_MAIN(tst_CGrabResultConverter)
#include "tst_CGrabResultConverter.moc"
