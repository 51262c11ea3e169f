// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CRawSinkModel.h"

#include "TestFile.h"
#include "host/models/CGrabResultData.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <vector>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

// Two rows of three values, with four bytes behind each row.
QByteArray bytes()
{
    return QByteArray("\x01\x02\x03\x04\x05\x06xxxx\x11\x12\x13\x14\x15\x16yyyy", 20);
}

CNodeDataPtr frame(const char* format = "Mono12")
{
    const auto memory = std::make_shared<QByteArray>(bytes() + "behind the picture");
    Veltra::SGrabResult result;
    result.pixels = reinterpret_cast<const std::byte*>(memory->constData());
    result.size = std::size_t(memory->size());
    result.width = 3;
    result.height = 2;
    result.stride = 10;
    result.pixelFormat = QString::fromLatin1(format);
    result.frameNumber = 4711;
    result.owner = memory;
    return QSharedPointer<CGrabResultData>::create(
        Veltra::CGrabResultPtr(result), SFrameInfo{4711, std::chrono::steady_clock::now(), 18446744073709551615ULL});
}

} // namespace

class tst_CRawSinkModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesAreAsTheyCame();
    void formatWithoutANumber();
    void fullDisk();
    void otherDataDoesNotCount();
};

void tst_CRawSinkModel::bytesAreAsTheyCame()
{
    const QTemporaryDir folder;
    CRawSinkModel sink(QStringLiteral("raw"));
    sink.setOutput(folder.path(), 2);
    for (int i = 0; i < 3; ++i)
        sink.setInData(frame(), 0);
    QTRY_COMPARE(sink.written(), quint64(2));
    QCOMPARE(sink.files(),
             std::vector<QString>({folder.filePath("frame-000000.raw"), folder.filePath("frame-000002.raw")}));
    QCOMPARE(content(folder.filePath("frame-000002.raw")), bytes());
    const QJsonObject format = QJsonDocument::fromJson(content(folder.filePath("frame-000002.json"))).object();
    const QJsonObject expected{{"width", 3},    {"height", 2},
                               {"stride", 10},  {"pixel_format", "Mono12"},
                               {"bits", 12},    {"byte_order", "little-endian"},
                               {"frame", 4711}, {"source", QJsonValue()}};
    QCOMPARE(format, expected);
    const QList<QByteArray> table = content(folder.filePath("frames.csv")).split('\n');
    QCOMPARE(table.size(), 4);
    QCOMPARE(table.at(0), QByteArray("file,frame,timestamp_ns,grabbed_utc,source"));
    QVERIFY2(table.at(2).startsWith("frame-000002.raw,4711,18446744073709551615,20"), table.at(2).constData());
    QVERIFY(table.at(2).endsWith("Z,"));
}

void tst_CRawSinkModel::formatWithoutANumber()
{
    const QTemporaryDir folder;
    CRawSinkModel sink;
    sink.setOutput(folder.path(), 1);
    sink.setInData(frame("0x010c0004"), 0);
    QTRY_COMPARE(sink.written(), quint64(1));
    QVERIFY(content(folder.filePath("frame-000000.json")).contains("\"bits\": null"));
}

void tst_CRawSinkModel::fullDisk()
{
    const QTemporaryDir folder;
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), folder.filePath("frames.csv")));
    CRawSinkModel sink;
    const QSignalSpy failed(&sink, &AFileSinkModel::failed);
    sink.setOutput(folder.path(), 1);
    sink.setInData(frame(), 0);
    QTRY_COMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).at(0).toString(),
             QStringLiteral("cannot write '%1': No space left on device").arg(folder.filePath("frames.csv")));
    QCOMPARE(sink.written(), quint64(0));
}

void tst_CRawSinkModel::otherDataDoesNotCount()
{
    CRawSinkModel sink;
    sink.setInData({}, 0);
    sink.setInData(QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(), SFrameInfo()), 0);
    QCOMPARE(sink.delivered(), quint64(0));
    sink.setInData(frame(), 0);
    QCOMPARE(sink.delivered(), quint64(1));
}

QTEST_GUILESS_MAIN(tst_CRawSinkModel)
#include "tst_CRawSinkModel.moc"
