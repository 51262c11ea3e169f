// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/CVeltraGrabResultData.h>

#include "support/CTestData.h"

#include <QtTest>

#include <memory>
#include <type_traits>
#include <utility>

using namespace Plugin::Halvex;

static_assert(std::is_base_of_v<CNodeData, CVeltraGrabResultData>, "it travels through graphs");
static_assert(std::is_default_constructible_v<CVeltraGrabResultData>, "a decoupler makes one to learn its type");
static_assert(!std::is_convertible_v<Veltra::CGrabResultPtr, CVeltraGrabResultData>, "data is made on request");

namespace {

/// A grab result that keeps \a memory.
Veltra::CGrabResultPtr frame(quint64 number, std::shared_ptr<const void> memory = {})
{
    Veltra::SGrabResult result;
    result.frameNumber = number;
    result.owner = std::move(memory);
    return Veltra::CGrabResultPtr(std::move(result));
}

} // namespace

class tst_CVeltraGrabResultData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheTypeOfGrabResults();
    void carriesTheFrame();
};

void tst_CVeltraGrabResultData::hasTheTypeOfGrabResults()
{
    class CSubclass : public CVeltraGrabResultData
    {
    };
    const CVeltraGrabResultData full(frame(2));
    const CSubclass subclass;
    const CVeltraGrabResultData emptyData;
    for (const CNodeData* data : std::initializer_list<const CNodeData*>{&emptyData, &full, &subclass}) {
        QCOMPARE(data->type().id, QString("Veltra Grab Result"));
        QCOMPARE(data->type().name, QString("VGR"));
        QVERIFY(data->sameType(emptyData));
        QVERIFY(!data->sameType(CTestData(1)));
        QVERIFY(!CTestData(1).sameType(*data));
    }
}

void tst_CVeltraGrabResultData::carriesTheFrame()
{
    auto memory = std::make_shared<int>(0);
    const std::weak_ptr<int> guard = memory;
    auto grabbed = frame(7, std::exchange(memory, nullptr));
    CNodeDataPtr data = QSharedPointer<CVeltraGrabResultData>::create(grabbed);
    QCOMPARE(&*data.dynamicCast<CVeltraGrabResultData>()->grabResult(), &*grabbed); // the very result, uncopied
    grabbed = {};
    QVERIFY(!guard.expired());
    QCOMPARE(data.dynamicCast<CVeltraGrabResultData>()->grabResult()->frameNumber, quint64(7));
    data.reset();
    QVERIFY(guard.expired());
    QVERIFY(!CVeltraGrabResultData().grabResult());
}

QTEST_GUILESS_MAIN(tst_CVeltraGrabResultData)
#include "tst_CVeltraGrabResultData.moc"
