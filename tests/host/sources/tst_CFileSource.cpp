// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CFileSource.h"

#include "TestImages.h"
#include "TestTable.h"

#include <QTemporaryDir>

#include <utility>
#include <vector>

using namespace Host;
using namespace std::chrono_literals;
using EGrab = IFrameSource::EGrab;

namespace {

// Images of these types, without files.
class CListedImages : public IImageReader
{
public:
    explicit CListedImages(std::vector<int> types)
        : m_types(std::move(types))
    {
    }

    QString description() const override { return QStringLiteral("test images"); }
    QString file() const override { return QStringLiteral("test"); }
    ERead read(cv::Mat* image, QString*) override
    {
        if (m_next == m_types.size())
            return ERead::End;
        *image = plainImage(m_types[m_next++], 5);
        return ERead::Image;
    }
    bool rewind(QString*) override
    {
        m_next = 0;
        return true;
    }

private:
    const std::vector<int> m_types;
    std::size_t m_next = 0;
};

std::unique_ptr<CFileSource> makeSource(const std::vector<int>& types, SFileOptions options = {})
{
    options.name = QStringLiteral("images");
    return std::make_unique<CFileSource>(options, std::make_unique<CListedImages>(types));
}

} // namespace

class tst_CFileSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesOfAFolder();
    void formats_data();
    void formats();
    void pixelsThatAreRefused();
    void loop();
    void waitsWhileAllFramesAreInFlight();
    void rate();
    void cannotBeOpened();
};

void tst_CFileSource::framesOfAFolder()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.path(), 3));
    SFileOptions options;
    options.name = QStringLiteral("images");
    options.place = folder.path();
    QString error;
    const auto source = CFileSource::open(options, &error);
    QVERIFY2(source, qPrintable(error));
    QCOMPARE(source->description(), QStringLiteral("3 images of '%1' (images), 32 x 24 Mono8").arg(folder.path()));
    QCOMPARE(source->pixelFormat(), QStringLiteral("Mono8"));
    QVERIFY(source->start(&error));
    for (int i = 0; i < 3; ++i) {
        const IFrameSource::SGrab grab = source->grab(5s);
        QCOMPARE(grab.status, EGrab::Frame);
        QVERIFY(grab.claim && grab.frame->complete);
        QCOMPARE(grab.frame->frameNumber, quint64(i));
        QCOMPARE(grab.frame->width, 32);
        QCOMPARE(grab.frame->height, 24);
        QCOMPARE(int(grab.frame->pixels[grab.frame->size - 1]), i);
    }
    QCOMPARE(source->grab(5s).status, EGrab::Ended);
    QCOMPARE(source->grab(5s).status, EGrab::Ended);
    QCOMPARE(source->endText(), QStringLiteral("at the end of the images"));
}

void tst_CFileSource::formats_data()
{
    addColumns<int, QString, int>({"type", "format", "bytes"});
    addRow("grey", CV_8UC1, "Mono8", 1);
    addRow("grey of 16 bits", CV_16UC1, "Mono16", 2);
    addRow("colour", CV_8UC3, "BGR8", 3);
    addRow("colour of 16 bits", CV_16UC3, "BGR16", 6);
    addRow("transparent", CV_8UC4, "BGR8", 3);
}

void tst_CFileSource::formats()
{
    QFETCH(int, type);
    QFETCH(QString, format);
    QFETCH(int, bytes);
    const auto source = makeSource({type});
    QString error;
    QVERIFY(source->readFirst(&error) && source->start(&error));
    QCOMPARE(source->pixelFormat(), format);
    const IFrameSource::SGrab grab = source->grab(5s);
    QCOMPARE(grab.frame->pixelFormat, format);
    QCOMPARE(grab.frame->stride, 32 * bytes);
    QCOMPARE(grab.frame->size, std::size_t(32 * 24 * bytes));
}

void tst_CFileSource::pixelsThatAreRefused()
{
    const QString reason =
        QStringLiteral("cannot read 'test': its pixels are CV_32FC1; it takes 8 or 16 bits, grey or colour");
    QString error;
    QVERIFY(!makeSource({CV_32FC1})->readFirst(&error));
    QCOMPARE(error, reason);
    const auto source = makeSource({CV_8UC1, CV_32FC1});
    QVERIFY(source->readFirst(&error) && source->start(&error));
    QCOMPARE(source->grab(5s).status, EGrab::Frame);
    const IFrameSource::SGrab grab = source->grab(5s);
    QCOMPARE(grab.status, EGrab::Lost);
    QCOMPARE(grab.error, reason);
}

void tst_CFileSource::loop()
{
    SFileOptions options;
    options.isLooped = true;
    const auto source = makeSource({CV_8UC1, CV_8UC1}, options);
    QString error;
    QVERIFY(source->start(&error));
    for (int i = 0; i < 7; ++i)
        QCOMPARE(source->grab(5s).frame->frameNumber, quint64(i));
}

void tst_CFileSource::waitsWhileAllFramesAreInFlight()
{
    SFileOptions options;
    options.framesInFlight = 2;
    const auto source = makeSource({CV_8UC1, CV_8UC1, CV_8UC1}, options);
    QString error;
    QVERIFY(source->start(&error));
    IFrameSource::SGrab first = source->grab(5s);
    const IFrameSource::SGrab second = source->grab(5s);
    QCOMPARE(second.status, EGrab::Frame);
    QCOMPARE(source->grab(1ms).status, EGrab::Timeout);
    first.frame = {}; // what was made of it may still be there
    QCOMPARE(source->grab(1ms).status, EGrab::Timeout);
    first.claim.reset();
    QCOMPARE(source->grab(5s).status, EGrab::Frame);
    QCOMPARE(source->stallText("5 s", IFrameSource::EStall::Incomplete, {}),
             QStringLiteral("the graph holds as many frames of 'images' as may be in flight (2), and gave none back "
                            "for 5 s; try more (--buffers 8), or a longer --timeout"));
}

void tst_CFileSource::rate()
{
    SFileOptions options;
    options.framesPerSecond = 20.0;
    const auto source = makeSource({CV_8UC1, CV_8UC1, CV_8UC1}, options);
    QString error;
    QVERIFY(source->start(&error));
    const auto begin = std::chrono::steady_clock::now();
    QCOMPARE(source->grab(5s).status, EGrab::Frame);
    QCOMPARE(source->grab(0s).status, EGrab::Timeout);
    QCOMPARE(source->grab(5s).status, EGrab::Frame);
    QCOMPARE(source->grab(5s).status, EGrab::Frame);
    QVERIFY(std::chrono::steady_clock::now() - begin >= 100ms);
}

void tst_CFileSource::cannotBeOpened()
{
    SFileOptions options;
    options.place = QStringLiteral("/nowhere/*.png");
    QString error;
    QVERIFY(!CFileSource::open(options, &error));
    QCOMPARE(error, QStringLiteral("no file matches '/nowhere/*.png'"));
    options.kind = SFileOptions::EKind::Video;
    QVERIFY(!CFileSource::open(options, &error));
    QCOMPARE(error, QStringLiteral("cannot read the video '/nowhere/*.png': No such file or directory"));
}

QTEST_GUILESS_MAIN(tst_CFileSource)
#include "tst_CFileSource.moc"
