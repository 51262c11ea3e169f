// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CVideoSinkModel.h"

#include "TestFile.h"
#include "host/models/CImageData.h"

#include <opencv2/videoio.hpp>

#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QSharedPointer<CImageData> image(int value, int type = CV_8UC3, const cv::Size& size = {64, 48})
{
    return QSharedPointer<CImageData>::create(cv::Mat(size, type, cv::Scalar::all(value)), SFrameInfo());
}

// A sink that writes into a folder.
struct SWritingSink
{
    SWritingSink() { model.setOutput(folder.path(), 30); }

    QString file(const char* name = "video-000000.avi") const { return folder.filePath(name); }
    bool isDone() const { return model.writing().pending == 0; }

    QTemporaryDir folder;
    CVideoSinkModel model;
    QSignalSpy failed{&model, &AFileSinkModel::failed};
};

} // namespace

class tst_CVideoSinkModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void videoHasAllImages_data();
    void videoHasAllImages();
    void settingsSurviveADocument();
    void removedSinkCompletesItsVideo();
    void imageOfAnotherSize();
    void nameThatIsTaken();
    void diskThatIsFull();
};

void tst_CVideoSinkModel::videoHasAllImages_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("value");
    QTest::newRow("grey") << CV_8UC1 << 200;
    QTest::newRow("colour") << CV_8UC3 << 200;
    QTest::newRow("16 bits") << CV_16UC1 << 200 * 256;
}

void tst_CVideoSinkModel::videoHasAllImages()
{
    QFETCH(const int, type);
    QFETCH(const int, value);
    SWritingSink sink;
    sink.model.setFramesPerSecond(50.0);
    for (int i = 0; i < 7; ++i)
        sink.model.setInData(image(value, type), 0);
    QTRY_COMPARE(sink.model.written(), quint64(7));
    QVERIFY(!QFile::exists(sink.file()));
    sink.model.finish();
    QTRY_VERIFY(sink.isDone());
    QCOMPARE(sink.failed.count(), 0);
    QCOMPARE(sink.model.files(), std::vector<QString>{sink.file()});
    QCOMPARE(QDir(sink.folder.path()).entryList(QDir::Files), QStringList({"frames.csv", "video-000000.avi"}));
    QCOMPARE(content(sink.file("frames.csv")).count('\n'), 8);

    cv::VideoCapture video(sink.file().toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 7);
    QCOMPARE(int(video.get(cv::CAP_PROP_FPS)), 50);
    cv::Mat shown;
    QVERIFY(video.read(shown));
    QCOMPARE(shown.size(), cv::Size(64, 48));
    QVERIFY(std::abs(shown.at<cv::Vec3b>(20, 20)[1] - 200) <= 3);
}

void tst_CVideoSinkModel::settingsSurviveADocument()
{
    CVideoSinkModel model;
    QCOMPARE(model.writeEvery(), 1);
    QCOMPARE(model.framesPerSecond(), 25.0);
    model.setFramesPerSecond(12.5);
    for (const double wrong : {0.0, -1.0, 1e6, qQNaN()})
        model.setFramesPerSecond(wrong);
    model.setWriteEvery(3);
    QCOMPARE(model.save()["property"].toObject(), QJsonObject({{"frames_per_second", 12.5}, {"write_every", 3}}));
    CVideoSinkModel other;
    other.restore(model.save());
    QCOMPARE(other.framesPerSecond(), 12.5);
    QCOMPARE(other.writeEvery(), 3);
}

void tst_CVideoSinkModel::removedSinkCompletesItsVideo()
{
    const QTemporaryDir folder;
    {
        CVideoSinkModel model;
        model.setOutput(folder.path(), 1);
        model.setInData(image(9), 0);
        QTRY_COMPARE(model.written(), quint64(1));
    }
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QTRY_VERIFY(QFile::exists(folder.filePath("video-000000.avi")));
}

void tst_CVideoSinkModel::imageOfAnotherSize()
{
    SWritingSink sink;
    sink.model.setInData(image(1), 0);
    sink.model.setInData(image(1, CV_8UC3, {32, 48}), 0);
    QTRY_COMPARE(sink.failed.count(), 1);
    QCOMPARE(sink.failed.at(0).at(0).toString(),
             QStringLiteral("cannot write '%1': an image is 32 x 48, the video 64 x 48").arg(sink.file()));
    // The video with the images before it is complete.
    QCOMPARE(QDir(sink.folder.path()).entryList(QDir::Files), QStringList({"frames.csv", "video-000000.avi"}));
    cv::VideoCapture video(sink.file().toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 1);
}

void tst_CVideoSinkModel::nameThatIsTaken()
{
    SWritingSink sink;
    QVERIFY(QDir().mkpath(sink.file("video-000000.part.avi")));
    sink.model.setInData(image(1), 0);
    QTRY_COMPARE(sink.failed.count(), 1);
    QVERIFY2(sink.failed.at(0).at(0).toString().startsWith("cannot write '" + sink.file() + "': "),
             qPrintable(sink.failed.at(0).at(0).toString()));
}

void tst_CVideoSinkModel::diskThatIsFull()
{
    SWritingSink sink;
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), sink.file("video-000000.part.avi")));
    sink.model.setInData(image(1), 0);
    QTRY_VERIFY(sink.isDone());
    sink.model.finish();
    QTRY_COMPARE(sink.failed.count(), 1);
    QCOMPARE(sink.failed.at(0).at(0).toString(),
             QStringLiteral("cannot write '%1': it did not become complete; is the disk full?").arg(sink.file()));
    QCOMPARE(QDir(sink.folder.path()).entryList(QDir::Files | QDir::System), QStringList("frames.csv"));
}

QTEST_GUILESS_MAIN(tst_CVideoSinkModel)
#include "tst_CVideoSinkModel.moc"
