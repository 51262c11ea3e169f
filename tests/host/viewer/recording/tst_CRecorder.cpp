// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/CRecorder.h"

#include "CBlockedFile.h"
#include "host/viewer/images/CViewModel.h"
#include "viewer/TestView.h"

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <opencv2/imgcodecs.hpp>
#include <opencv2/videoio.hpp>

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

namespace {

using EKind = CRecorder::EKind;
using EState = CRecorder::EState;

struct SRecording
{
    bool start(EKind kind) { return recorder.start(kind, parent.path(), 30.0); }
    void send(int images, const cv::Mat& pixels = rampImage())
    {
        for (int i = 0; i < images; ++i)
            view.setInData(viewImage(pixels, 8, quint64(i)), 0);
    }
    QString file(const char* name) const { return QDir(recorder.folder()).filePath(QLatin1String(name)); }
    QStringList files(const char* pattern) const
    {
        return QDir(recorder.folder()).entryList({QLatin1String(pattern)}, QDir::Files, QDir::Name);
    }

    QTemporaryDir parent;
    CViewModel view;
    CRecorder recorder{view};
};

} // namespace

class tst_CRecorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRecorder();
    void whatTheViewGetsIsWritten();
    void rawFilesHoldTheValues();
    void videoIsComplete();
    void imagesBeyondTheBoundAreCounted();
    void folderThatCannotBeMadeIsTold();
    void fullDiskEndsIt();
    void anotherSizeEndsAVideo();
    void endOfTheViewEndsIt();
    void nothingCameAtAll();
    void destroyedWhileItWrites();
    void leftAloneItCompletesItsFiles();
};

void tst_CRecorder::newRecorder()
{
    const SRecording recording;
    QCOMPARE(recording.recorder.state(), EState::Idle);
    QCOMPARE(recording.recorder.counts().received, quint64(0));
    QCOMPARE(recording.recorder.error(), QString());
    QCOMPARE(recording.recorder.folder(), QString());
}

void tst_CRecorder::whatTheViewGetsIsWritten()
{
    SRecording recording;
    recording.send(3); // before it
    QVERIFY(recording.start(EKind::Png));
    QVERIFY(!recording.start(EKind::Png));
    recording.send(5);
    recording.view.setInData({}, 0);
    recording.recorder.stop();
    recording.send(2); // after it
    QTRY_COMPARE(recording.recorder.state(), EState::Finished);
    const CRecorder::SCounts counts = recording.recorder.counts();
    QCOMPARE(counts.received, quint64(5));
    QCOMPARE(counts.written, quint64(5));
    QCOMPARE(counts.dropped, quint64(0));
    QCOMPARE(counts.pending, quint64(0));
    QCOMPARE(recording.files("*.png").size(), 5);
    const cv::Mat read = cv::imread(recording.file("frame-000004.png").toStdString(), cv::IMREAD_UNCHANGED);
    QCOMPARE(cv::norm(read, rampImage(), cv::NORM_INF), 0.0);
}

void tst_CRecorder::rawFilesHoldTheValues()
{
    SRecording recording;
    QVERIFY(recording.start(EKind::Raw));
    recording.send(2, cv::Mat(3, 4, CV_16UC1, cv::Scalar(0x1234)));
    recording.recorder.stop();
    QTRY_COMPARE(recording.recorder.state(), EState::Finished);
    QFile file(recording.file("frame-000001.raw"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("\x34\x12").repeated(12));
}

void tst_CRecorder::videoIsComplete()
{
    SRecording recording;
    QVERIFY(recording.start(EKind::Video));
    recording.send(10);
    recording.recorder.stop();
    QTRY_COMPARE(recording.recorder.state(), EState::Finished);
    QCOMPARE(recording.recorder.error(), QString());
    QCOMPARE(recording.recorder.counts().written, quint64(10));
    const cv::VideoCapture video(recording.file("video-000000.avi").toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 10);
    QCOMPARE(video.get(cv::CAP_PROP_FPS), 30.0);
}

void tst_CRecorder::imagesBeyondTheBoundAreCounted()
{
    SRecording recording;
    QVERIFY(recording.start(EKind::Png));
    CBlockedFile blocked(recording.file("frame-000000.png"));
    recording.send(40);
    recording.recorder.stop();
    QCOMPARE(recording.recorder.state(), EState::Finishing);
    CRecorder::SCounts counts = recording.recorder.counts();
    QCOMPARE(counts.received, quint64(40));
    QCOMPARE(counts.pending, quint64(33)); // 32 wait, and one is being written
    QCOMPARE(counts.dropped, quint64(7));
    blocked.release();
    QTRY_COMPARE(recording.recorder.state(), EState::Finished);
    counts = recording.recorder.counts();
    QCOMPARE(counts.written, quint64(33));
    QCOMPARE(counts.received, counts.written + counts.dropped);
}

void tst_CRecorder::folderThatCannotBeMadeIsTold()
{
    SRecording recording;
    QSignalSpy changed(&recording.recorder, &CRecorder::changed);
    QFile file(recording.parent.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!recording.recorder.start(EKind::Png, recording.parent.filePath("file/x"), 30.0));
    QCOMPARE(recording.recorder.state(), EState::Idle);
    QVERIFY(recording.recorder.error().contains(QStringLiteral("file/x")));
    QCOMPARE(changed.count(), 1);
    // The next one begins anew.
    QVERIFY(recording.start(EKind::Png));
    QCOMPARE(recording.recorder.error(), QString());
}

void tst_CRecorder::fullDiskEndsIt()
{
    SRecording recording;
    QVERIFY(recording.start(EKind::Png));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), recording.file("frame-000001.png.part")));
    recording.send(4);
    QTRY_COMPARE(recording.recorder.state(), EState::Finished);
    QVERIFY(recording.recorder.error().contains(QStringLiteral("No space left on device")));
    QCOMPARE(recording.recorder.counts().written, quint64(1));
    QCOMPARE(recording.files("*.png"), QStringList{QStringLiteral("frame-000000.png")});
    // The view goes on.
    recording.send(1);
    QVERIFY(recording.view.image());
    QVERIFY(recording.start(EKind::Png));
}

void tst_CRecorder::anotherSizeEndsAVideo()
{
    SRecording recording;
    QVERIFY(recording.start(EKind::Video));
    recording.send(2);
    recording.send(1, rampImage(100, 50));
    QTRY_COMPARE(recording.recorder.state(), EState::Finished);
    QVERIFY(!recording.recorder.error().isEmpty());
    const cv::VideoCapture video(recording.file("video-000000.avi").toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 2);
}

void tst_CRecorder::endOfTheViewEndsIt()
{
    const QTemporaryDir parent;
    auto view = std::make_unique<CViewModel>();
    CRecorder recorder(*view);
    QVERIFY(recorder.start(EKind::Video, parent.path(), 30.0));
    view->setInData(viewImage(rampImage()), 0);
    view.reset();
    QTRY_COMPARE(recorder.state(), EState::Finished);
    QCOMPARE(recorder.counts().written, quint64(1));
    QVERIFY(!recorder.start(EKind::Video, parent.path(), 30.0));
}

void tst_CRecorder::nothingCameAtAll()
{
    SRecording recording;
    for (const EKind kind : {EKind::Png, EKind::Raw, EKind::Video}) {
        QVERIFY(recording.start(kind));
        recording.recorder.stop();
        QTRY_COMPARE(recording.recorder.state(), EState::Finished);
        QCOMPARE(recording.recorder.error(), QString());
    }
}

void tst_CRecorder::destroyedWhileItWrites()
{
    const QTemporaryDir parent;
    CViewModel view;
    {
        CRecorder recorder(view);
        QVERIFY(recorder.start(EKind::Video, parent.path(), 30.0));
        for (int i = 0; i < 10; ++i)
            view.setInData(viewImage(rampImage()), 0);
    }
    QVERIFY(Plugin::Halvex::AWorkerNodeDataModel::waitForRemovedWork());
}

void tst_CRecorder::leftAloneItCompletesItsFiles()
{
    const QTemporaryDir parent;
    CViewModel view;
    const QPointer<CRecorder> recorder = new CRecorder(view);
    QVERIFY(recorder->start(EKind::Video, parent.path(), 30.0));
    const QString file = QDir(recorder->folder()).filePath(QStringLiteral("video-000000.avi"));
    for (int i = 0; i < 10; ++i)
        view.setInData(viewImage(rampImage()), 0);
    recorder->deleteWhenDone();
    QCOMPARE(recorder->state(), EState::Finishing);
    QTRY_VERIFY(!recorder);
    const cv::VideoCapture video(file.toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 10);
    // With nothing to write it goes as well.
    const QPointer<CRecorder> idle = new CRecorder(view);
    idle->deleteWhenDone();
    QTRY_VERIFY(!idle);
}

QTEST_GUILESS_MAIN(tst_CRecorder)
#include "tst_CRecorder.moc"
