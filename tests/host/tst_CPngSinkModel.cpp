// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CPngSinkModel.h"

#include "host/models/CImageData.h"

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <opencv2/imgcodecs.hpp>

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QSharedPointer<CImageData> image(int value, int type = CV_8UC1)
{
    cv::Mat pixels(20, 30, type, cv::Scalar::all(0));
    pixels.row(3).setTo(cv::Scalar(value, 2, 3));
    return QSharedPointer<CImageData>::create(pixels, SFrameInfo{0, std::chrono::steady_clock::now()});
}

} // namespace

class tst_CPngSinkModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void portsAndNames();
    void nameSurvivesADocument();
    void restore_data();
    void restore();
    void withoutAFolderItOnlyCounts();
    void writesEveryNthImage();
    void filesHoldTheImages_data();
    void filesHoldTheImages();
    void delaysAreMeasuredFromTheGrab();
    void emptyDataIsNoImage();
    void listenersGetTheImageAfterItsFile();
    void fullDiskIsReportedOnce();
    void missingFolderIsReported();
    void imageWithoutPngFormIsReported();
};

void tst_CPngSinkModel::portsAndNames()
{
    CPngSinkModel model;
    QCOMPARE(model.name(), QStringLiteral("PNG Sink"));
    QCOMPARE(model.caption(), QStringLiteral("PNG files"));
    QCOMPARE(CPngSinkModel(QStringLiteral("edges")).caption(), QStringLiteral("PNG files: edges"));
    QCOMPARE(model.nPorts(ENodePortType::In), 1U);
    QCOMPARE(model.nPorts(ENodePortType::Out), 0U);
    QCOMPARE(model.dataType(ENodePortType::In, 0).id, CImageData::dataType().id);
    QCOMPARE(int(model.getType()), 1);
    QVERIFY(!model.isUnique());
    QVERIFY(!model.outData(0));
    QCOMPARE(model.delivered(), quint64(0));
    QVERIFY(model.files().empty());
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_CPngSinkModel::nameSurvivesADocument()
{
    const CPngSinkModel model(QStringLiteral("edges"));
    const QJsonObject saved = model.save();
    const QJsonObject expected{
        {"name", "PNG Sink"}, {"is_unique", false}, {"property", QJsonObject{{"sink_name", "edges"}}}};
    QCOMPARE(saved, expected);
    CPngSinkModel restored;
    restored.restore(saved);
    QCOMPARE(restored.sinkName(), QStringLiteral("edges"));
    QCOMPARE(restored.save(), expected);
    QVERIFY(!CPngSinkModel().save().contains("property"));
}

void tst_CPngSinkModel::restore_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing") << QJsonObject() << "old";
    QTest::newRow("no object") << QJsonObject{{"property", 3}} << "old";
    QTest::newRow("other key") << QJsonObject{{"property", QJsonObject{{"x", 1}}}} << "old";
    QTest::newRow("no text") << QJsonObject{{"property", QJsonObject{{"sink_name", 1}}}} << "";
    QTest::newRow("text") << QJsonObject{{"property", QJsonObject{{"sink_name", "new"}}}} << "new";
}

void tst_CPngSinkModel::restore()
{
    QFETCH(QJsonObject, json);
    QFETCH(QString, name);
    CPngSinkModel model(QStringLiteral("old"));
    model.restore(json);
    QCOMPARE(model.sinkName(), name);
}

void tst_CPngSinkModel::withoutAFolderItOnlyCounts()
{
    CPngSinkModel model;
    model.setInData(image(1), 0);
    QCOMPARE(model.delivered(), quint64(1));
    QVERIFY(model.files().empty());
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_CPngSinkModel::writesEveryNthImage()
{
    const QTemporaryDir folder;
    CPngSinkModel model;
    model.setOutput(folder.path(), 3);
    for (int i = 0; i < 8; ++i)
        model.setInData(image(i), 0);
    QCOMPARE(model.delivered(), quint64(8));
    const QStringList expected{"frame-000000.png", "frame-000003.png", "frame-000006.png"};
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), expected);
    QCOMPARE(model.files().size(), std::size_t(3));
    for (std::size_t i = 0; i < 3; ++i)
        QCOMPARE(model.files()[i], folder.filePath(expected[int(i)]));
}

void tst_CPngSinkModel::filesHoldTheImages_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("gray") << CV_8UC1;
    QTest::newRow("color") << CV_8UC3;
}

void tst_CPngSinkModel::filesHoldTheImages()
{
    QFETCH(int, type);
    const QTemporaryDir folder;
    CPngSinkModel model;
    model.setOutput(folder.path(), 1);
    for (int i = 0; i < 3; ++i) {
        const auto data = image(100 + i, type);
        model.setInData(data, 0);
        const cv::Mat read = cv::imread(model.files().back().toStdString(), cv::IMREAD_UNCHANGED);
        QCOMPARE(read.type(), type);
        QCOMPARE(read.size(), data->image().size());
        QCOMPARE(cv::norm(read, data->image(), cv::NORM_INF), 0.0);
    }
}

void tst_CPngSinkModel::delaysAreMeasuredFromTheGrab()
{
    CPngSinkModel model;
    const auto before = std::chrono::steady_clock::now();
    const SFrameInfo old{0, before - std::chrono::seconds(5)};
    model.setInData(QSharedPointer<CImageData>::create(cv::Mat(2, 2, CV_8UC1), old), 0);
    const auto upTo = std::chrono::steady_clock::now() - old.grabbed;
    QCOMPARE(model.delays().size(), std::size_t(1));
    QVERIFY(model.delays()[0] >= std::chrono::seconds(5));
    QVERIFY(model.delays()[0] <= upTo);
}

void tst_CPngSinkModel::emptyDataIsNoImage()
{
    const QTemporaryDir folder;
    CPngSinkModel model;
    model.setOutput(folder.path(), 1);
    QSignalSpy available(model.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable);
    model.setInData({}, 0);
    QCOMPARE(model.delivered(), quint64(0));
    QVERIFY(model.files().empty());
    // It is passed on, so that nobody keeps the image before.
    QCOMPARE(available.count(), 1);
    QVERIFY(!available.at(0).at(0).value<CNodeDataPtr>());

    const auto last = image(1);
    const QWeakPointer<CImageData> watched = last;
    model.setInData(last, 0);
    available.clear();
    const_cast<QSharedPointer<CImageData>&>(last).reset();
    QVERIFY(!watched.isNull());
    model.setInData({}, 0);
    available.clear();
    QVERIFY(watched.isNull());
}

void tst_CPngSinkModel::listenersGetTheImageAfterItsFile()
{
    const QTemporaryDir folder;
    CPngSinkModel model;
    model.setOutput(folder.path(), 1);
    const CNodeDataPtr sent = image(9);
    CNodeDataPtr received;
    bool wasWritten = false;
    connect(model.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this, [&](const CNodeDataPtr& data) {
        received = data;
        wasWritten = QFile::exists(folder.filePath("frame-000000.png"));
    });
    model.setInData(sent, 0);
    QCOMPARE(received, sent);
    QVERIFY(wasWritten);
}

void tst_CPngSinkModel::fullDiskIsReportedOnce()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("frame-000001.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file));
    CPngSinkModel model;
    model.setOutput(folder.path(), 1);
    QSignalSpy failed(&model, &CPngSinkModel::failed);
    QVERIFY(failed.isValid());
    for (int i = 0; i < 4; ++i)
        model.setInData(image(i), 0);
    QCOMPARE(failed.count(), 1);
    const QString error = failed.at(0).at(0).toString();
    QCOMPARE(error, QStringLiteral("cannot write '%1': No space left on device").arg(file));
    QCOMPARE(model.validationMessage(), error);
    QCOMPARE(model.validationState(), ENodeValidationState::Error);
    // Counting went on, writing did not, and nothing broken is left.
    QCOMPARE(model.delivered(), quint64(4));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::System), QStringList{"frame-000000.png"});
    QVERIFY(QFile::exists(QStringLiteral("/dev/full")));
}

void tst_CPngSinkModel::missingFolderIsReported()
{
    const QTemporaryDir folder;
    CPngSinkModel model;
    model.setOutput(folder.filePath("nowhere"), 1);
    QSignalSpy failed(&model, &CPngSinkModel::failed);
    model.setInData(image(1), 0);
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.at(0).at(0).toString().contains(QStringLiteral("nowhere/frame-000000.png")));
    QVERIFY(model.files().empty());
}

void tst_CPngSinkModel::imageWithoutPngFormIsReported()
{
    const QTemporaryDir folder;
    CPngSinkModel model;
    model.setOutput(folder.path(), 1);
    QSignalSpy failed(&model, &CPngSinkModel::failed);
    model.setInData(QSharedPointer<CImageData>::create(cv::Mat(), SFrameInfo()), 0);
    QCOMPARE(failed.count(), 1);
    QVERIFY(QDir(folder.path()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CPngSinkModel)
#include "tst_CPngSinkModel.moc"
