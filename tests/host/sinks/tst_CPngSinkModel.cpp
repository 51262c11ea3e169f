// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngSinkModel.h"

#include "CBlockedFile.h"
#include "TestFile.h"
#include "host/models/CImageData.h"

#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CNodeDataFlowProxy.h>

#include <opencv2/imgcodecs.hpp>

#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <memory>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QSharedPointer<CImageData> image(int value = 1, int type = CV_8UC1)
{
    cv::Mat pixels(20, 30, type, cv::Scalar::all(0));
    pixels.row(3).setTo(cv::Scalar(value, 2, 3));
    return QSharedPointer<CImageData>::create(pixels, SFrameInfo{0, std::chrono::steady_clock::now()});
}

// A sink that writes into a folder.
struct SWritingSink
{
    explicit SWritingSink(int every = 1) { model.setOutput(folder.path(), every); }

    QString file(int number) const { return folder.filePath(QString::asprintf("frame-%06d.png", number)); }
    bool isDone() const { return model.writing().pending == 0; }

    QTemporaryDir folder;
    CPngSinkModel model;
    QSignalSpy failed{&model, &CPngSinkModel::failed};
};

// But for the table of the frames.
QStringList allFiles(const QTemporaryDir& folder)
{
    QStringList files = QDir(folder.path()).entryList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    files.removeOne(QStringLiteral("frames.csv"));
    return files;
}

} // namespace

class tst_CPngSinkModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsInTheCaption();
    void nameSurvivesADocument();
    void restore();
    void withoutAFolderItOnlyCounts();
    void writesEveryNthImage();
    void filesHoldTheImages();
    void emptyDataIsNoImage();
    void listenersGetTheImageWhenItComes();
    void imagesAreTakenWhileAFileIsWritten();
    void emptyDataTakesNothingBack();
    void outputThatChangesAppliesToWhatComes();
    void imagesBeyondTheBoundAreCounted();
    void imageIsHeldUntilItIsWritten();
    void fullDiskIsReportedOnce();
    void missingFolderIsReported();
    void imageWithoutPngFormIsReported();
    void nameThatIsTakenIsReported();
    void destroyedWhileItWrites();
    void destroyedByItsSignals_data();
    void destroyedByItsSignals();
};

void tst_CPngSinkModel::nameIsInTheCaption()
{
    CPngSinkModel model(QStringLiteral("edges"));
    QCOMPARE(model.caption(), QStringLiteral("PNG files: edges"));
    QCOMPARE(int(model.getType()), 1);
}

void tst_CPngSinkModel::nameSurvivesADocument()
{
    const QJsonObject expected{
        {"name", "PNG Sink"}, {"is_unique", false}, {"property", QJsonObject{{"sink_name", "edges"}}}};
    QCOMPARE(CPngSinkModel(QStringLiteral("edges")).save(), expected);
    CPngSinkModel restored;
    restored.restore(expected);
    QCOMPARE(restored.sinkName(), QStringLiteral("edges"));
    QCOMPARE(restored.save(), expected);
    QVERIFY(!CPngSinkModel().save().contains("property"));
}

void tst_CPngSinkModel::restore()
{
    const auto nameAfter = [](const QJsonObject& json) {
        CPngSinkModel model(QStringLiteral("old"));
        model.restore(json);
        return model.sinkName();
    };
    QCOMPARE(nameAfter({}), QStringLiteral("old"));
    QCOMPARE(nameAfter({{"property", 3}}), QStringLiteral("old"));
    QCOMPARE(nameAfter({{"property", QJsonObject{{"x", 1}}}}), QStringLiteral("old"));
    QCOMPARE(nameAfter({{"property", QJsonObject{{"sink_name", 1}}}}), QString());
    QCOMPARE(nameAfter({{"property", QJsonObject{{"sink_name", "new"}}}}), QStringLiteral("new"));
}

void tst_CPngSinkModel::withoutAFolderItOnlyCounts()
{
    CPngSinkModel model;
    QCOMPARE(model.delivered(), quint64(0));
    model.setInData(image(), 0);
    QCOMPARE(model.delivered(), quint64(1));
    QVERIFY(model.files().empty());
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_CPngSinkModel::writesEveryNthImage()
{
    SWritingSink sink(3);
    for (int i = 0; i < 8; ++i)
        sink.model.setInData(image(i), 0);
    QCOMPARE(sink.model.delivered(), quint64(8));
    QTRY_VERIFY(sink.isDone());
    const QStringList expected{"frame-000000.png", "frame-000003.png", "frame-000006.png"};
    QCOMPARE(pngFiles(sink.folder.path()), expected);
    QCOMPARE(sink.model.files().size(), std::size_t(3));
    for (std::size_t i = 0; i < 3; ++i)
        QCOMPARE(sink.model.files()[i], sink.folder.filePath(expected[int(i)]));
}

void tst_CPngSinkModel::filesHoldTheImages()
{
    SWritingSink sink;
    for (const int type : {CV_8UC1, CV_8UC1, CV_8UC3, CV_8UC3}) {
        const auto data = image(100 + int(sink.model.delivered()), type);
        sink.model.setInData(data, 0);
        QTRY_VERIFY(sink.isDone());
        const cv::Mat read = cv::imread(sink.model.files().back().toStdString(), cv::IMREAD_UNCHANGED);
        QCOMPARE(read.type(), type);
        QCOMPARE(read.size(), data->image().size());
        QCOMPARE(cv::norm(read, data->image(), cv::NORM_INF), 0.0);
    }
}

void tst_CPngSinkModel::emptyDataIsNoImage()
{
    SWritingSink sink;
    QSignalSpy available(sink.model.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable);
    sink.model.setInData({}, 0);
    QCOMPARE(sink.model.delivered(), quint64(0));
    QVERIFY(sink.model.files().empty());
    // It is passed on, so that nobody keeps the image before.
    QCOMPARE(available.count(), 1);
    QVERIFY(!available.at(0).at(0).value<CNodeDataPtr>());

    auto last = image();
    const QWeakPointer<CImageData> watched = last;
    sink.model.setInData(last, 0);
    available.clear();
    last.reset();
    QVERIFY(!watched.isNull());
    sink.model.setInData({}, 0);
    available.clear();
    QTRY_VERIFY(watched.isNull());
}

void tst_CPngSinkModel::listenersGetTheImageWhenItComes()
{
    SWritingSink sink;
    const CNodeDataPtr sent = image();
    CNodeDataPtr received;
    connect(sink.model.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this,
            [&received](const CNodeDataPtr& data) { received = data; });
    sink.model.setInData(sent, 0);
    QCOMPARE(received, sent);
}

void tst_CPngSinkModel::imagesAreTakenWhileAFileIsWritten()
{
    SWritingSink sink(2);
    QSignalSpy started(&sink.model, &CNodeDataModel::computingStarted);
    QSignalSpy finished(&sink.model, &CNodeDataModel::computingFinished);
    CBlockedFile blocked(sink.file(0));
    for (int i = 0; i < 8; ++i)
        sink.model.setInData(image(i), 0);
    QCoreApplication::processEvents();
    QCOMPARE(sink.model.delivered(), quint64(8));
    QCOMPARE(sink.model.writing().pending, quint64(4));
    QVERIFY(sink.model.files().empty());
    QVERIFY(pngFiles(sink.folder.path()).isEmpty());
    QCOMPARE(started.count(), 1);
    QCOMPARE(finished.count(), 0);

    blocked.release();
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(sink.model.files(), std::vector<QString>({sink.file(0), sink.file(2), sink.file(4), sink.file(6)}));
    QVERIFY(sink.isDone());
    QCOMPARE(sink.model.writing().received, quint64(4));
}

void tst_CPngSinkModel::emptyDataTakesNothingBack()
{
    SWritingSink sink;
    CBlockedFile blocked(sink.file(0));
    sink.model.setInData(image(), 0);
    sink.model.setInData(image(), 0);
    sink.model.setInData({}, 0);
    blocked.release();
    QTRY_VERIFY(sink.isDone());
    QCOMPARE(sink.model.files().size(), std::size_t(2));
}

void tst_CPngSinkModel::outputThatChangesAppliesToWhatComes()
{
    SWritingSink sink;
    const QTemporaryDir other;
    CBlockedFile blocked(sink.file(0));
    sink.model.setInData(image(), 0);
    sink.model.setInData(image(), 0);
    sink.model.setOutput(other.path(), 3);
    for (int i = 0; i < 3; ++i)
        sink.model.setInData(image(), 0);
    blocked.release();
    QTRY_VERIFY(sink.isDone());
    QCOMPARE(sink.model.files(),
             std::vector<QString>({sink.file(0), sink.file(1), other.filePath("frame-000003.png")}));
}

void tst_CPngSinkModel::imagesBeyondTheBoundAreCounted()
{
    SWritingSink sink;
    CBlockedFile blocked(sink.file(0));
    for (int i = 0; i < 40; ++i)
        sink.model.setInData(image(), 0);
    // One is being written, and 32 wait.
    QCOMPARE(sink.model.writing().pending, quint64(33));
    QCOMPARE(sink.model.writing().dropped, quint64(7));
    blocked.release();
    QTRY_VERIFY(sink.isDone());
    QCOMPARE(sink.model.files().size(), std::size_t(33));
    QCOMPARE(sink.model.files().back(), sink.file(32));
    QCOMPARE(sink.failed.count(), 0);
}

void tst_CPngSinkModel::imageIsHeldUntilItIsWritten()
{
    SWritingSink sink;
    CBlockedFile blocked(sink.file(0));
    sink.model.setInData(image(), 0);
    auto data = image();
    const QWeakPointer<CImageData> watched = data;
    sink.model.setInData(data, 0);
    data.reset();
    sink.model.setInData({}, 0);
    QVERIFY(watched);
    blocked.release();
    QTRY_VERIFY(watched.isNull());
}

void tst_CPngSinkModel::fullDiskIsReportedOnce()
{
    SWritingSink sink;
    const QString file = sink.file(1);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file + ".part"));
    for (int i = 0; i < 4; ++i)
        sink.model.setInData(image(i), 0);
    QTRY_VERIFY(sink.isDone());
    sink.model.setInData(image(), 0);
    QVERIFY(sink.isDone());
    QCOMPARE(sink.failed.count(), 1);
    const QString error = QStringLiteral("cannot write '%1': No space left on device").arg(file);
    QCOMPARE(sink.failed.at(0).at(0).toString(), error);
    QCOMPARE(sink.model.validationMessage(), error);
    QCOMPARE(sink.model.validationState(), ENodeValidationState::Error);
    // Counting went on, writing did not, and nothing broken is left.
    QCOMPARE(sink.model.delivered(), quint64(5));
    QCOMPARE(sink.model.files(), std::vector<QString>{sink.file(0)});
    QCOMPARE(allFiles(sink.folder), QStringList{"frame-000000.png"});
    QVERIFY(QFile::exists(QStringLiteral("/dev/full")));
}

void tst_CPngSinkModel::missingFolderIsReported()
{
    SWritingSink sink;
    sink.model.setOutput(sink.folder.filePath("nowhere"), 1);
    sink.model.setInData(image(), 0);
    QTRY_COMPARE(sink.failed.count(), 1);
    QVERIFY(sink.failed.at(0).at(0).toString().contains("nowhere/frame-000000.png"));
    QVERIFY(sink.model.files().empty());
}

void tst_CPngSinkModel::imageWithoutPngFormIsReported()
{
    SWritingSink sink;
    sink.model.setInData(QSharedPointer<CImageData>::create(cv::Mat(), SFrameInfo()), 0);
    QTRY_COMPARE(sink.failed.count(), 1);
    QVERIFY(QDir(sink.folder.path()).isEmpty());
}

void tst_CPngSinkModel::nameThatIsTakenIsReported()
{
    SWritingSink sink;
    QVERIFY(QDir().mkpath(sink.file(0)));
    sink.model.setInData(image(), 0);
    QTRY_COMPARE(sink.failed.count(), 1);
    QCOMPARE(sink.failed.at(0).at(0).toString(), QStringLiteral("cannot write '%1': Is a directory").arg(sink.file(0)));
    QVERIFY(allFiles(sink.folder).isEmpty());
}

void tst_CPngSinkModel::destroyedWhileItWrites()
{
    const QTemporaryDir folder;
    CBlockedFile blocked(folder.filePath("frame-000000.png"));
    // The pool has no thread then. It makes one for the first image, which nobody can take back from it.
    QThreadPool::globalInstance()->waitForDone();
    {
        CPngSinkModel sink;
        sink.setOutput(folder.path(), 1);
        for (int i = 0; i < 3; ++i)
            sink.setInData(image(), 0);
    }
    // It does not wait. What is being written is completed, and nothing else begun.
    blocked.release();
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QCOMPARE(allFiles(folder), QStringList{"frame-000000.png"});
}

void tst_CPngSinkModel::destroyedByItsSignals_data()
{
    QTest::addColumn<bool>("fails");
    QTest::newRow("failed") << true;
    QTest::newRow("computingFinished") << false;
}

void tst_CPngSinkModel::destroyedByItsSignals()
{
    QFETCH(const bool, fails);
    const QTemporaryDir folder;
    auto sink = std::make_unique<CPngSinkModel>();
    sink->setOutput(fails ? folder.filePath("nowhere") : folder.path(), 1);
    const auto destroySink = [&sink] { sink.reset(); };
    if (fails)
        connect(sink.get(), &CPngSinkModel::failed, this, destroySink);
    else
        connect(sink.get(), &CNodeDataModel::computingFinished, this, destroySink);
    sink->setInData(image(), 0);
    sink->setInData(image(), 0);
    QTRY_VERIFY(!sink);
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QCOMPARE(allFiles(folder).size(), fails ? 0 : 2);
}

QTEST_GUILESS_MAIN(tst_CPngSinkModel)
#include "tst_CPngSinkModel.moc"
