// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The host's models keep the rules of models, with real frames and images to work on.

#include "host/models/CGrabResultConverter.h"
#include "host/models/CGrabResultData.h"
#include "host/models/CHostModelService.h"
#include "host/models/CImageData.h"
#include "host/models/HostModels.h"
#ifdef HAS_VIEW_MODELS
#include "host/viewer/images/ViewModels.h"
#endif

#include <Halvex/service/CNodeService.h>
#include <Halvex/testing/CheckConverter.h>
#include <Halvex/testing/CheckData.h>
#include <Halvex/testing/CheckModel.h>

#include <QCryptographicHash>
#include <QtTest>

using namespace Host;
using namespace Plugin::Halvex;
using namespace Plugin::Halvex::Testing;

Q_DECLARE_METATYPE(ModelCreator)
Q_DECLARE_METATYPE(DataCreator)

namespace {

constexpr int width = 64;
constexpr int height = 48;

cv::Mat imageOf(int number)
{
    cv::Mat image(height, width, CV_8UC1);
    for (int i = 0; i < width * height; ++i)
        image.data[i] = uchar(i * (number + 1));
    return image;
}

CNodeDataPtr makeImage(int number)
{
    return QSharedPointer<CImageData>::create(imageOf(number), SFrameInfo{});
}

CNodeDataPtr makeFrame(int number)
{
    const auto image = std::make_shared<const cv::Mat>(imageOf(number));
    Veltra::SGrabResult result;
    result.pixels = reinterpret_cast<const std::byte*>(image->data);
    result.size = std::size_t(width) * height;
    result.width = result.stride = width;
    result.height = height;
    result.pixelFormat = QStringLiteral("Mono8");
    result.complete = true;
    result.owner = image;
    return QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(std::move(result)), SFrameInfo{});
}

QByteArray hashOf(const void* bytes, std::size_t size)
{
    return QCryptographicHash::hash(QByteArray::fromRawData(static_cast<const char*>(bytes), int(size)),
                                    QCryptographicHash::Md5);
}

QByteArray checksum(const CNodeData& data)
{
    if (const auto* const image = dynamic_cast<const CImageData*>(&data)) {
        const cv::Mat pixels = image->image().isContinuous() ? image->image() : image->image().clone();
        return hashOf(pixels.data, pixels.total() * pixels.elemSize());
    }
    const auto* const frame = dynamic_cast<const CVeltraGrabResultData*>(&data);
    return frame && frame->grabResult() ? hashOf(frame->grabResult()->pixels, frame->grabResult()->size) : QByteArray();
}

SCheckOptions hostOptions()
{
    SCheckOptions options;
    options.makeData = [](const SNodeDataType& type, int number) {
        return type.id == CImageData::dataType().id ? makeImage(number) : CNodeDataPtr(); // the kit has frames
    };
    options.checksum = &checksum;
    return options;
}

} // namespace

class tst_ModelContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void models_data();
    void models();
    void data_data();
    void data();
    void converter();

private:
    CNodeService m_service{nullptr};
};

void tst_ModelContract::initTestCase()
{
    registerHostModels(m_service);
#ifdef HAS_VIEW_MODELS
    registerViewModels(m_service, CHostModelService());
#endif
}

void tst_ModelContract::models_data()
{
    QTest::addColumn<ModelCreator>("creator");
    for (const auto& [name, creator] : m_service.registry()->registeredModelCreators())
        QTest::newRow(qPrintable(name)) << creator;
}

void tst_ModelContract::models()
{
    QFETCH(ModelCreator, creator);
    const SReport report = checkModel(creator, hostOptions());
    QVERIFY2(report.findings.empty(), qPrintable(toText(report)));
    QVERIFY2(report.leftOut.empty(), qPrintable(toText(report)));
}

void tst_ModelContract::data_data()
{
    QTest::addColumn<DataCreator>("creator");
    QTest::newRow("image") << DataCreator(&makeImage);
    QTest::newRow("frame") << DataCreator(&makeFrame);
}

void tst_ModelContract::data()
{
    QFETCH(DataCreator, creator);
    const SReport report = checkData(creator, hostOptions());
    QVERIFY2(report.findings.empty() && report.leftOut.empty(), qPrintable(toText(report)));
}

void tst_ModelContract::converter()
{
    const SReport report =
        checkConverter(CGrabResultConverter(), {CVeltraGrabResultData().type(), CImageData::dataType()}, hostOptions());
    QVERIFY2(report.findings.empty() && report.leftOut.empty(), qPrintable(toText(report)));
}

QTEST_GUILESS_MAIN(tst_ModelContract)
#include "tst_ModelContract.moc"
