// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/GrabResult.h"

#include "TestTable.h"
#include "host/camera/GObjectPtr.h"

#include <arv.h>

using namespace Host;

namespace {

// The rows that it promises are all that is of interest in it.
void leaveEmpty(ArvBuffer*, void*, guint32, guint32, ArvPixelFormat) {}

} // namespace

class tst_GrabResult : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void promisesMoreThanThereIs_data();
    void promisesMoreThanThereIs();
};

// Sizes come in packets of the network, and may be anything.
void tst_GrabResult::promisesMoreThanThereIs_data()
{
    addColumns<unsigned, unsigned>({"width", "height"});
    const auto row = [](const char* name, unsigned width, unsigned height) { addRow(name, width, height); };
    row("more than there is", 64, 64);
    row("row of 2^32 bits", 1U << 29U, 2);
    row("row of 2^33 bits", 1U << 30U, 2);
    row("negative width", 1U << 31U, 2);
    row("negative height", 64, 1U << 31U);
    row("no width", 0, 2);
}

void tst_GrabResult::promisesMoreThanThereIs()
{
    QFETCH(unsigned, width);
    QFETCH(unsigned, height);
    const GObjectPtr<ArvFakeCamera> camera(arv_fake_camera_new("test"));
    arv_fake_camera_set_fill_pattern(camera.get(), &leaveEmpty, nullptr);
    QVERIFY(arv_fake_camera_write_register(camera.get(), ARV_FAKE_CAMERA_REGISTER_WIDTH, width));
    QVERIFY(arv_fake_camera_write_register(camera.get(), ARV_FAKE_CAMERA_REGISTER_HEIGHT, height));
    const GObjectPtr<ArvBuffer> buffer(arv_buffer_new_allocate(std::size_t(64) * 64));
    arv_fake_camera_fill_buffer(camera.get(), buffer.get(), nullptr);
    QCOMPARE(arv_buffer_get_status(buffer.get()), ARV_BUFFER_STATUS_SUCCESS);
    QVERIFY(!grabResult(buffer.get()).complete);
}

QTEST_GUILESS_MAIN(tst_GrabResult)
#include "tst_GrabResult.moc"
