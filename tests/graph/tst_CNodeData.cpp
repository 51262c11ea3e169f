// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeData.h>

#include "support/CTestData.h"
#include "support/MetaTypes.h"

#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/graph/NodePortIndex.h>

#include <QtTest>

#include <type_traits>

using namespace Plugin::Halvex;

namespace {

/// What a plugin would derive: its type alone, everything else as the base has it.
class CPlainData : public CNodeData
{
public:
    SNodeDataType type() const override { return {QStringLiteral("Plain"), QStringLiteral("P")}; }
};

// Without fields of its own, so that a derived class copies as its own fields do.
static_assert(sizeof(CNodeData) == sizeof(void*), "a virtual table and nothing else");
static_assert(std::is_abstract_v<CNodeData> && std::has_virtual_destructor_v<CNodeData>, "a base");
static_assert(std::is_nothrow_default_constructible_v<CPlainData>, "made from nothing");
static_assert(std::is_nothrow_copy_constructible_v<CPlainData> && std::is_nothrow_copy_assignable_v<CPlainData>,
              "copied at no cost");
static_assert(std::is_same_v<CNodeDataPtr, QSharedPointer<CNodeData>>, "shared");
static_assert(std::is_same_v<NodeDataConverter, std::function<CNodeDataPtr(CNodeDataPtr)>>, "any callable");

static_assert(std::is_same_v<NodePortIndex, int>, "signed, and known to Qt's meta-types as int");
static_assert(int(ENodePortType::None) == 0 && int(ENodePortType::In) == 1 && int(ENodePortType::Out) == 2,
              "the numbers stand in messages");

} // namespace

class tst_CNodeData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typeStartsWithItsId();
    void sameTypeComparesIds();
    void sameTypeAcrossClasses();
    void copiesHaveTheSameType();
    void isDestroyedThroughItsBase();
    void pointerIsAMetaType();
};

void tst_CNodeData::typeStartsWithItsId()
{
    const SNodeDataType type{QStringLiteral("first"), QStringLiteral("second")};
    QCOMPARE(type.id, QStringLiteral("first"));
    QCOMPARE(type.name, QStringLiteral("second"));

    QVERIFY(SNodeDataType().id.isEmpty());
    QVERIFY(SNodeDataType().name.isEmpty());
}

void tst_CNodeData::sameTypeComparesIds()
{
    const struct
    {
        const char* what = nullptr;
        SNodeDataType one;
        SNodeDataType other;
        bool isSame = false;
    } rows[] = {
        {"equal", {"Image", "I"}, {"Image", "I"}, true},
        {"other name", {"Image", "I"}, {"Image", "IMG"}, true},
        {"other id", {"Image", "I"}, {"Frame", "I"}, false},
        {"id is the other's name", {"Image", "I"}, {"I", "Image"}, false},
        {"other case", {"Image", "I"}, {"image", "I"}, false},
        {"blank behind", {"Image", "I"}, {"Image ", "I"}, false},
        {"no ids", {"", "I"}, {"", "J"}, true},
        {"one id", {"Image", "I"}, {"", "I"}, false},
    };
    for (const auto& row : rows) {
        const CTestData data(0, row.one);
        const CTestData other(0, row.other);
        QVERIFY2(data.sameType(other) == row.isSame && other.sameType(data) == row.isSame, row.what);
        QVERIFY2(data.sameType(data), row.what);
    }
}

void tst_CNodeData::sameTypeAcrossClasses()
{
    const CPlainData plain;
    QVERIFY(plain.sameType(CTestData(0, {QStringLiteral("Plain"), QString()})));
    QVERIFY(!plain.sameType(CTestData()));
}

void tst_CNodeData::copiesHaveTheSameType()
{
    const CPlainData data;
    CPlainData copy(data);
    copy = data;
    QVERIFY(copy.sameType(data));
    QCOMPARE(copy.type().name, QStringLiteral("P"));
}

void tst_CNodeData::isDestroyedThroughItsBase()
{
    CNodeDataPtr shared = CTestData::make(1);
    QScopedPointer<CNodeData> owned(new CTestData);
    QCOMPARE(CTestData::alive(), 2);
    owned.reset();
    shared.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeData::pointerIsAMetaType()
{
    const int type = qMetaTypeId<CNodeDataPtr>();
    QCOMPARE(MetaTypes::idOf("Plugin::Halvex::CNodeDataPtr"), type);
    QCOMPARE(MetaTypes::nameOf(type), MetaTypes::nameOfData());
    QCOMPARE(qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr"), type); // an alias
    QCOMPARE(MetaTypes::idOf("CNodeDataPtr"), type);
    QCOMPARE(qRegisterMetaType<NodePortIndex>("NodePortIndex"), int(QMetaType::Int));

    const CNodeDataPtr data = CTestData::make(5);
    QCOMPARE(QVariant::fromValue(data).value<CNodeDataPtr>(), data);
}

QTEST_GUILESS_MAIN(tst_CNodeData)

#include "tst_CNodeData.moc"
