// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CFeatures.h"

#include "TestFile.h"
#include "TestTable.h"
#include "host/camera/GObjectPtr.h"

#include <QTemporaryDir>

#include <algorithm>
#include <arv.h>
#include <functional>
#include <utility>

using namespace Host;

namespace {

GObjectPtr<ArvDevice> fakeDevice()
{
    return GObjectPtr<ArvDevice>(arv_fake_device_new("test", nullptr));
}

// With a description in which \a part is replaced; null if there is no such part.
GObjectPtr<ArvDevice> changedDevice(const QByteArray& part, const QByteArray& changed)
{
    const GObjectPtr<ArvFakeCamera> camera(arv_fake_camera_new("test"));
    std::size_t size = 0;
    const char* const xml = arv_fake_camera_get_genicam_xml(camera.get(), &size);
    QByteArray description(xml, int(size));
    const QTemporaryDir folder;
    const QString file = folder.filePath("camera.xml");
    if (!description.contains(part) || !write(file, description.replace(part, changed)))
        return GObjectPtr<ArvDevice>();
    arv_set_fake_camera_genicam_filename(file.toUtf8().constData());
    auto device = fakeDevice();
    arv_set_fake_camera_genicam_filename(nullptr);
    return device;
}

// The height locks the width, as it is not 0.
GObjectPtr<ArvDevice> deviceWithALock()
{
    const QByteArray width = "<Integer Name=\"Width\" NameSpace=\"Standard\">";
    return changedDevice(width, width + "<pIsLocked>Height</pIsLocked>");
}

/// Counts what is read of fake cameras.
class CReadCounter
{
public:
    explicit CReadCounter(ArvDevice* device)
        : m_class(ARV_DEVICE_GET_CLASS(device))
    {
        count = 0;
        readMemory = std::exchange(m_class->read_memory, [](auto... read) { return ++count, readMemory(read...); });
        readRegister =
            std::exchange(m_class->read_register, [](auto... read) { return ++count, readRegister(read...); });
    }
    ~CReadCounter()
    {
        m_class->read_memory = readMemory;
        m_class->read_register = readRegister;
    }
    Q_DISABLE_COPY(CReadCounter)

    static inline int count = 0;

private:
    static inline decltype(ArvDeviceClass::read_memory) readMemory = nullptr;
    static inline decltype(ArvDeviceClass::read_register) readRegister = nullptr;
    ArvDeviceClass* const m_class;
};

int readsOf(ArvDevice* device, const std::function<bool()>& isGone)
{
    const CReadCounter reads(device);
    (void)CFeatures(device, isGone).all();
    return CReadCounter::count;
}

std::vector<SFeature> featuresOf(const std::vector<SFeature>& all, const QString& name)
{
    std::vector<SFeature> found;
    std::copy_if(all.begin(), all.end(), std::back_inserter(found),
                 [&name](const SFeature& feature) { return feature.name == name; });
    return found;
}

} // namespace

class tst_CFeatures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeNumbers_data();
    void wholeNumbers();
    void readOnlyFeature();
    void lockedFeature();
    void lockIsReadOnce();
    void nothingIsReadOfACameraThatHasGone();
    void categoryInItself();
    void outsideOfAllCategories();
    void plainValues();
};

void tst_CFeatures::wholeNumbers_data()
{
    addColumns<QString, QString>({"value", "width"});
    const auto row = [](const char* value, const char* width) { addRow(value, QString(value), QString(width)); };
    row("64", "64");
    row("0100", "100");
    row("0x40", "64");
    row("0X40", "64");
    row("40h", "512");
    row("099", "99");
}

// The width is 512 as long as nothing else is set.
void tst_CFeatures::wholeNumbers()
{
    QFETCH(QString, value);
    QFETCH(QString, width);
    const auto device = fakeDevice();
    const CFeatures features(device.get());
    QCOMPARE(features.set("Width", value).isEmpty(), width != "512");
    const std::vector<SFeature> found = featuresOf(features.all(), "Width");
    QCOMPARE(found.size(), std::size_t(1));
    QCOMPARE(found[0].value, width);
}

void tst_CFeatures::readOnlyFeature()
{
    const auto device = fakeDevice();
    QCOMPARE(CFeatures(device.get()).set("DeviceID", "3"), QStringLiteral("the feature 'DeviceID' is read only"));
}

// One that may be written at another time is not called read only.
void tst_CFeatures::lockedFeature()
{
    const auto device = deviceWithALock();
    QVERIFY(device.get());
    const CFeatures features(device.get());
    QCOMPARE(features.set("Width", "64"), QStringLiteral("the feature 'Width' cannot be written now"));
    QVERIFY(featuresOf(features.all(), "Width").at(0).isLocked);
    QVERIFY(!featuresOf(features.all(), "Width").at(0).isWritable);
    QVERIFY(!featuresOf(features.all(), "SensorWidth").at(0).isLocked);
}

void tst_CFeatures::lockIsReadOnce()
{
    const auto device = deviceWithALock();
    QVERIFY(device.get());
    const auto isGone = [] { return false; };
    const int unlocked = readsOf(fakeDevice().get(), isGone);
    QVERIFY(unlocked > 0);
    QCOMPARE(readsOf(device.get(), isGone), unlocked + 1);
}

void tst_CFeatures::nothingIsReadOfACameraThatHasGone()
{
    const auto device = deviceWithALock();
    QVERIFY(device.get());
    QCOMPARE(readsOf(device.get(), [] { return true; }), 0);
    QVERIFY(CFeatures(device.get(), [] { return true; }).all().empty());
    int asked = 0;
    const auto few = CFeatures(device.get(), [&asked] { return ++asked > 10; }).all();
    QVERIFY(!few.empty());
    QVERIFY(few.size() < 10);
}

void tst_CFeatures::categoryInItself()
{
    const QByteArray root = "<Category Name=\"Root\" NameSpace=\"Standard\">";
    const auto device = changedDevice(root, root + "<pFeature>Root</pFeature><pFeature>Width</pFeature>");
    QVERIFY(device.get());
    const std::vector<SFeature> found = featuresOf(CFeatures(device.get()).all(), "Width");
    QCOMPARE(found.size(), std::size_t(1));
    QCOMPARE(found[0].category, QString("Root"));
}

void tst_CFeatures::outsideOfAllCategories()
{
    const auto device = fakeDevice();
    const std::vector<SFeature> all = CFeatures(device.get()).all();
    const std::vector<SFeature> found = featuresOf(all, "TestBoolean");
    QCOMPARE(found.size(), std::size_t(1));
    QCOMPARE(found[0].category, QStringLiteral("In no category"));
    QVERIFY(featuresOf(all, "WidthRegister").empty());
    QCOMPARE(featuresOf(all, "Width").size(), std::size_t(1));
}

void tst_CFeatures::plainValues()
{
    const auto device = fakeDevice();
    const std::vector<SFeature> all = CFeatures(device.get()).all();
    const auto feature = [&all](const char* name) {
        const std::vector<SFeature> found = featuresOf(all, QString(name));
        return found.empty() ? SFeature() : found[0];
    };
    const SFeature width = feature("Width");
    QCOMPARE(width.plainValue, QString("512"));
    QCOMPARE(width.least.value_or(0), 1.0);
    QCOMPARE(width.most.value_or(0), 2048.0);
    QVERIFY(width.choices.isEmpty());
    const SFeature format = feature("PixelFormat");
    QVERIFY(format.choices.contains("Mono8") && format.choices.contains("RGB8"));
    QCOMPARE(format.plainValue, QString("Mono8"));
    QVERIFY(!format.least && !format.most);
    const SFeature exposure = feature("ExposureTimeAbs");
    QVERIFY(exposure.value.startsWith(exposure.plainValue));
    QCOMPARE(exposure.value, exposure.unit.isEmpty() ? exposure.plainValue : exposure.plainValue + " " + exposure.unit);
    QVERIFY(exposure.help.contains("microseconds"));
    QCOMPARE(feature("TriggerSoftware").plainValue, QString());
}

QTEST_GUILESS_MAIN(tst_CFeatures)
#include "tst_CFeatures.moc"
