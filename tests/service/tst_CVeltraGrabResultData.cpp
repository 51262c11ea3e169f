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

/// A frame with something along.
class CMarkedData : public CVeltraGrabResultData
{
public:
    using CVeltraGrabResultData::CVeltraGrabResultData;
};

} // namespace

class tst_CVeltraGrabResultData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAFrameItIsValidData();
    void hasTheTypeOfGrabResults();
    void carriesTheFrame();
    void releasesTheFrame();
    void sameTypeGoesByTheTypesId();
    void subclassIsOfTheSameType();
};

void tst_CVeltraGrabResultData::withoutAFrameItIsValidData()
{
    const CVeltraGrabResultData data;
    QVERIFY(!data.grabResult());
    QCOMPARE(data.type().id, QStringLiteral("Veltra Grab Result"));
    QCOMPARE(data.type().name, QStringLiteral("VGR"));

    const CNodeDataPtr shared = QSharedPointer<CVeltraGrabResultData>::create();
    QVERIFY(!shared.isNull());
}

void tst_CVeltraGrabResultData::hasTheTypeOfGrabResults()
{
    const CVeltraGrabResultData data(frame(1));
    const CNodeData& base = data;
    QCOMPARE(base.type().id, QStringLiteral("Veltra Grab Result"));
    QCOMPARE(base.type().name, QStringLiteral("VGR"));
}

void tst_CVeltraGrabResultData::carriesTheFrame()
{
    const auto grabbed = frame(7);
    const CNodeDataPtr data = QSharedPointer<CVeltraGrabResultData>::create(grabbed);
    const auto carrier = data.dynamicCast<CVeltraGrabResultData>();
    QVERIFY(carrier);
    QCOMPARE(&*carrier->grabResult(), &*grabbed); // the very result, uncopied
    QCOMPARE(carrier->grabResult()->frameNumber, quint64(7));
}

void tst_CVeltraGrabResultData::releasesTheFrame()
{
    auto memory = std::make_shared<int>(0);
    const std::weak_ptr<int> guard = memory;
    CNodeDataPtr data = QSharedPointer<CVeltraGrabResultData>::create(frame(1, std::exchange(memory, nullptr)));
    QVERIFY(!guard.expired());
    data.reset();
    QVERIFY(guard.expired());
}

void tst_CVeltraGrabResultData::sameTypeGoesByTheTypesId()
{
    const CVeltraGrabResultData data(frame(1));
    QVERIFY(data.sameType(CVeltraGrabResultData()));
    QVERIFY(!data.sameType(CTestData(1)));
    QVERIFY(!CTestData(1).sameType(data));
}

void tst_CVeltraGrabResultData::subclassIsOfTheSameType()
{
    const CMarkedData marked(frame(2));
    QVERIFY(marked.sameType(CVeltraGrabResultData()));
    QCOMPARE(marked.type().name, QStringLiteral("VGR"));
}

QTEST_GUILESS_MAIN(tst_CVeltraGrabResultData)

#include "tst_CVeltraGrabResultData.moc"
