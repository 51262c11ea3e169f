// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/platform/CGrabResultPtr.h>

#include "support/BoundedWait.h"

#include <QtTest>

#include <array>
#include <atomic>
#include <type_traits>
#include <vector>

using Veltra::CGrabResultPtr;
using Veltra::SGrabResult;

static_assert(std::is_nothrow_default_constructible_v<CGrabResultPtr>, "an empty handle costs nothing");
static_assert(std::is_copy_constructible_v<CGrabResultPtr> && std::is_nothrow_move_constructible_v<CGrabResultPtr>,
              "a handle is copied and moved");
static_assert(std::is_same_v<decltype(*std::declval<CGrabResultPtr&>()), const SGrabResult&>, "a result never changes");

namespace {

/// A driver's buffer; counts how often it was given back.
struct SBuffer
{
    std::array<std::byte, 16> pixels{};
    std::atomic<int> returned{0};

    CGrabResultPtr grab()
    {
        SGrabResult result;
        result.pixels = pixels.data();
        result.size = pixels.size();
        result.width = 3;
        result.height = 4;
        result.stride = 4;
        result.pixelFormat = QStringLiteral("Mono8");
        result.frameNumber = 7;
        result.timestampNs = 8'000'000'000;
        result.complete = true;
        result.owner = std::shared_ptr<const void>(this, [this](const void*) { ++returned; });
        return CGrabResultPtr(std::move(result));
    }
};

} // namespace

class tst_CGrabResultPtr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultIsEmpty();
    void resultStartsIncomplete();
    void handlesShareWhatWasGrabbed();
    void lastHandleGivesTheBufferBack();
    void assigningGivesTheBufferBack();
    void lastHandleOfSeveralThreadsGivesTheBufferBackOnce();
};

void tst_CGrabResultPtr::defaultIsEmpty()
{
    QVERIFY(!CGrabResultPtr());
    const std::vector<CGrabResultPtr> copies(2, CGrabResultPtr());
    QVERIFY(!copies.back());
}

void tst_CGrabResultPtr::resultStartsIncomplete()
{
    const CGrabResultPtr frame{SGrabResult()};
    QVERIFY(frame);
    QVERIFY(!frame->complete);
    QVERIFY(frame->pixels == nullptr);
    QCOMPARE(frame->size, std::size_t(0));
    QCOMPARE(frame->width, 0);
    QCOMPARE(frame->height, 0);
    QCOMPARE(frame->stride, 0);
    QVERIFY(frame->pixelFormat.isEmpty());
    QCOMPARE(frame->frameNumber, quint64(0));
    QCOMPARE(frame->timestampNs, quint64(0));
}

void tst_CGrabResultPtr::handlesShareWhatWasGrabbed()
{
    SBuffer buffer;
    const CGrabResultPtr frame = buffer.grab();
    QVERIFY(frame);
    QCOMPARE(frame->pixels, buffer.pixels.data());
    QCOMPARE(frame->size, std::size_t(16));
    QCOMPARE(frame->width, 3);
    QCOMPARE(frame->height, 4);
    QCOMPARE(frame->stride, 4);
    QCOMPARE(frame->pixelFormat, QStringLiteral("Mono8"));
    QCOMPARE(frame->frameNumber, quint64(7));
    QCOMPARE(frame->timestampNs, quint64(8'000'000'000));
    QVERIFY(frame->complete);
    const std::vector<CGrabResultPtr> copies(2, frame);
    QCOMPARE(&*copies.back(), &*frame);
}

void tst_CGrabResultPtr::lastHandleGivesTheBufferBack()
{
    SBuffer buffer;
    {
        CGrabResultPtr frame = buffer.grab();
        std::vector<CGrabResultPtr> copies(5, frame);
        copies.clear();
        QCOMPARE(buffer.returned.load(), 0);
        const CGrabResultPtr moved = std::move(frame);
        QCOMPARE(moved->pixels, buffer.pixels.data());
        QCOMPARE(buffer.returned.load(), 0);
    }
    QCOMPARE(buffer.returned.load(), 1);
}

void tst_CGrabResultPtr::assigningGivesTheBufferBack()
{
    SBuffer first;
    SBuffer second;
    CGrabResultPtr frame = first.grab();
    frame = second.grab();
    QCOMPARE(first.returned.load(), 1);
    QCOMPARE(second.returned.load(), 0);
    frame = CGrabResultPtr();
    QVERIFY(!frame);
    QCOMPARE(second.returned.load(), 1);
}

void tst_CGrabResultPtr::lastHandleOfSeveralThreadsGivesTheBufferBackOnce()
{
    for (int round = 0; round < 200; ++round) {
        SBuffer buffer;
        std::atomic<int> wrongPixels{0};
        std::vector<CTestThread> readers;
        {
            const CGrabResultPtr frame = buffer.grab();
            for (int thread = 0; thread < 4; ++thread) {
                readers.emplace_back([frame, &buffer, &wrongPixels] {
                    for (int i = 0; i < 50; ++i) {
                        const std::vector<CGrabResultPtr> copies(3, frame);
                        if (copies.back()->pixels != buffer.pixels.data() || buffer.returned.load() != 0)
                            ++wrongPixels;
                    }
                });
            }
        }
        for (CTestThread& reader : readers)
            reader.join();
        QCOMPARE(wrongPixels.load(), 0);
        QCOMPARE(buffer.returned.load(), 1);
    }
}

QTEST_GUILESS_MAIN(tst_CGrabResultPtr)

#include "tst_CGrabResultPtr.moc"
