// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngSinkModel.h"

#include "TestFile.h"
#include "host/models/CImageData.h"

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <opencv2/imgcodecs.hpp>

#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

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

    QTemporaryDir folder;
    CPngSinkModel model;
    QSignalSpy failed{&model, &CPngSinkModel::failed};
};

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
    void listenersGetTheImageAfterItsFile();
    void fullDiskIsReportedOnce();
    void missingFolderIsReported();
    void imageWithoutPngFormIsReported();
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
    QVERIFY(watched.isNull());
}

void tst_CPngSinkModel::listenersGetTheImageAfterItsFile()
{
    SWritingSink sink;
    const CNodeDataPtr sent = image();
    CNodeDataPtr received;
    bool wasWritten = false;
    connect(sink.model.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this, [&](const CNodeDataPtr& data) {
        received = data;
        wasWritten = QFile::exists(sink.folder.filePath("frame-000000.png"));
    });
    sink.model.setInData(sent, 0);
    QCOMPARE(received, sent);
    QVERIFY(wasWritten);
}

void tst_CPngSinkModel::fullDiskIsReportedOnce()
{
    SWritingSink sink;
    const QString file = sink.folder.filePath("frame-000001.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file));
    for (int i = 0; i < 4; ++i)
        sink.model.setInData(image(i), 0);
    QCOMPARE(sink.failed.count(), 1);
    const QString error = QStringLiteral("cannot write '%1': No space left on device").arg(file);
    QCOMPARE(sink.failed.at(0).at(0).toString(), error);
    QCOMPARE(sink.model.validationMessage(), error);
    QCOMPARE(sink.model.validationState(), ENodeValidationState::Error);
    // Counting went on, writing did not, and nothing broken is left.
    QCOMPARE(sink.model.delivered(), quint64(4));
    QCOMPARE(QDir(sink.folder.path()).entryList(QDir::Files | QDir::System), QStringList{"frame-000000.png"});
    QVERIFY(QFile::exists(QStringLiteral("/dev/full")));
}

void tst_CPngSinkModel::missingFolderIsReported()
{
    SWritingSink sink;
    sink.model.setOutput(sink.folder.filePath("nowhere"), 1);
    sink.model.setInData(image(), 0);
    QCOMPARE(sink.failed.count(), 1);
    QVERIFY(sink.failed.at(0).at(0).toString().contains("nowhere/frame-000000.png"));
    QVERIFY(sink.model.files().empty());
}

void tst_CPngSinkModel::imageWithoutPngFormIsReported()
{
    SWritingSink sink;
    sink.model.setInData(QSharedPointer<CImageData>::create(cv::Mat(), SFrameInfo()), 0);
    QCOMPARE(sink.failed.count(), 1);
    QVERIFY(QDir(sink.folder.path()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CPngSinkModel)
#include "tst_CPngSinkModel.moc"
