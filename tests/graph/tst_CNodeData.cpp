// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeData.h>

#include "support/CTestData.h"

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
    void sameTypeComparesIds_data();
    void sameTypeComparesIds();
    void sameTypeAcrossClasses();
    void copiesHaveTheSameType();
    void isDestroyedThroughItsBase();
    void nullPointerIsEmptyData();
    void pointerHasItsQualifiedName();
    void aliasNamesTheSamePointer();
    void pointerTravelsInAVariant();
};

void tst_CNodeData::typeStartsWithItsId()
{
    const SNodeDataType type{QStringLiteral("first"), QStringLiteral("second")};
    QCOMPARE(type.id, QStringLiteral("first"));
    QCOMPARE(type.name, QStringLiteral("second"));

    QVERIFY(SNodeDataType().id.isEmpty());
    QVERIFY(SNodeDataType().name.isEmpty());
}

void tst_CNodeData::sameTypeComparesIds_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("otherId");
    QTest::addColumn<QString>("otherName");
    QTest::addColumn<bool>("same");

    QTest::newRow("equal") << "Image"
                           << "I"
                           << "Image"
                           << "I" << true;
    QTest::newRow("other name") << "Image"
                                << "I"
                                << "Image"
                                << "IMG" << true;
    QTest::newRow("other id") << "Image"
                              << "I"
                              << "Frame"
                              << "I" << false;
    QTest::newRow("id is the other's name") << "Image"
                                            << "I"
                                            << "I"
                                            << "Image" << false;
    QTest::newRow("other case") << "Image"
                                << "I"
                                << "image"
                                << "I" << false;
    QTest::newRow("blank behind") << "Image"
                                  << "I"
                                  << "Image "
                                  << "I" << false;
    QTest::newRow("no ids") << ""
                            << "I"
                            << ""
                            << "J" << true;
    QTest::newRow("one id") << "Image"
                            << "I"
                            << ""
                            << "I" << false;
}

void tst_CNodeData::sameTypeComparesIds()
{
    QFETCH(const QString, id);
    QFETCH(const QString, name);
    QFETCH(const QString, otherId);
    QFETCH(const QString, otherName);
    QFETCH(const bool, same);

    const CTestData data(0, {id, name});
    const CTestData other(0, {otherId, otherName});
    QCOMPARE(data.sameType(other), same);
    QCOMPARE(other.sameType(data), same);
    QVERIFY(data.sameType(data));
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
    CNodeDataPtr data = CTestData::make(1);
    QCOMPARE(CTestData::alive(), 1);
    const CNodeDataPtr second = std::exchange(data, CNodeDataPtr());
    QCOMPARE(CTestData::alive(), 1);
    data = second;
    QCOMPARE(data, second);

    QScopedPointer<CNodeData> other(new CTestData);
    QCOMPARE(CTestData::alive(), 2);
    other.reset();
    QCOMPARE(CTestData::alive(), 1);
}

void tst_CNodeData::nullPointerIsEmptyData()
{
    QVERIFY(CNodeDataPtr().isNull());
    QCOMPARE(CTestData::valueOf(CNodeDataPtr()), -1);
}

void tst_CNodeData::pointerHasItsQualifiedName()
{
    const int type = qMetaTypeId<CNodeDataPtr>();
    QCOMPARE(QByteArray(QMetaType::typeName(type)), QByteArray("Plugin::Halvex::CNodeDataPtr"));
}

void tst_CNodeData::aliasNamesTheSamePointer()
{
    QCOMPARE(qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
    QCOMPARE(QMetaType::type("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
    QCOMPARE(qRegisterMetaType<NodePortIndex>("NodePortIndex"), int(QMetaType::Int));
}

void tst_CNodeData::pointerTravelsInAVariant()
{
    const CNodeDataPtr data = CTestData::make(5);
    const QVariant variant = QVariant::fromValue(data);
    QCOMPARE(variant.value<CNodeDataPtr>(), data);
}

QTEST_GUILESS_MAIN(tst_CNodeData)

#include "tst_CNodeData.moc"
