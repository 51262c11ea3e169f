// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/platform/CId.h>

#include "support/BoundedWait.h"

#include <QtTest>

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <type_traits>
#include <unordered_set>
#include <vector>

using Core::CId;

static_assert(sizeof(CId) == 16, "sixteen bytes of state");
static_assert(std::is_nothrow_copy_constructible_v<CId> && std::is_nothrow_copy_assignable_v<CId>, "a value");
static_assert(!std::is_convertible_v<const char*, CId>, "text becomes an identifier only on request");

namespace {

const char* const Text = "01234567-89ab-cdef-0123-456789abcdef";

} // namespace

class tst_CId : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaultIsNoId();
    void createdOnesDiffer();
    void createdOnesDifferBetweenThreads();
    void createdOnesAreRandomUuids();
    void textComesBack();
    void createdOneSurvivesItsText();
    void bracesAndCaseDoNotMatter();
    void textThatIsNoId_data();
    void textThatIsNoId();
    void comparesByValue();
    void ordersLikeItsUuid();
    void hashIsThatOfTheUuid();
    void isAKey();
};

void tst_CId::defaultIsNoId()
{
    QVERIFY(CId().uuid().isNull());
    QCOMPARE(CId(), CId());
}

void tst_CId::createdOnesDiffer()
{
    std::unordered_set<CId> seen;
    for (int i = 0; i < 1000; ++i)
        seen.insert(CId::createId());
    QCOMPARE(seen.size(), std::size_t(1000));
    QCOMPARE(seen.count(CId()), std::size_t(0));
}

void tst_CId::createdOnesDifferBetweenThreads()
{
    constexpr std::size_t perThread = 10000;
    std::array<std::vector<CId>, 4> created;
    std::vector<CTestThread> threads;
    threads.reserve(created.size());
    for (std::vector<CId>& ids : created)
        threads.emplace_back([&ids] { std::generate_n(std::back_inserter(ids), perThread, CId::createId); });
    for (CTestThread& thread : threads)
        thread.join();

    std::unordered_set<CId> seen;
    for (const std::vector<CId>& ids : created)
        seen.insert(ids.begin(), ids.end());
    QCOMPARE(seen.size(), perThread * created.size());
}

void tst_CId::createdOnesAreRandomUuids()
{
    QByteArray everSet(16, '\0');
    QByteArray everClear(16, '\0');
    for (int i = 0; i < 1000; ++i) {
        const QUuid uuid = CId::createId().uuid();
        QCOMPARE(uuid.variant(), QUuid::DCE);
        QCOMPARE(uuid.version(), QUuid::Random);
        const QByteArray bytes = uuid.toRfc4122();
        for (int byte = 0; byte < bytes.size(); ++byte) {
            everSet[byte] = char(everSet.at(byte) | bytes.at(byte));
            everClear[byte] = char(everClear.at(byte) | ~bytes.at(byte));
        }
    }
    // All bits but the six that tell the version and the variant take both values.
    QCOMPARE(everSet.toHex(), QByteArray("ffffffffffff4fffbfffffffffffffff"));
    QCOMPARE(everClear.toHex(), QByteArray("ffffffffffffbfff7fffffffffffffff"));
}

void tst_CId::textComesBack()
{
    QCOMPARE(CId(Text).toString(), QString::fromLatin1(Text));
    QCOMPARE(CId(Text).uuid(), QUuid(QString::fromLatin1(Text)));
}

void tst_CId::createdOneSurvivesItsText()
{
    const CId id = CId::createId();
    QCOMPARE(CId(id.toString().toLocal8Bit().constData()), id);
    QCOMPARE(CId(CId().toString().toLocal8Bit().constData()), CId());
}

void tst_CId::bracesAndCaseDoNotMatter()
{
    QCOMPARE(CId("{01234567-89ab-cdef-0123-456789abcdef}"), CId(Text));
    QCOMPARE(CId("01234567-89AB-CDEF-0123-456789ABCDEF"), CId(Text));
}

void tst_CId::textThatIsNoId_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("null pointer") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("blank") << QByteArray(" ");
    QTest::newRow("word") << QByteArray("camera");
    QTest::newRow("word of 36 characters") << QByteArray(36, 'x');
    QTest::newRow("one digit missing") << QByteArray("01234567-89ab-cdef-0123-456789abcde");
    QTest::newRow("one digit too many") << QByteArray("01234567-89ab-cdef-0123-456789abcdef0");
    QTest::newRow("blank behind") << QByteArray("01234567-89ab-cdef-0123-456789abcdef ");
    QTest::newRow("blank in front") << QByteArray(" 01234567-89ab-cdef-0123-456789abcdef");
    QTest::newRow("word behind") << QByteArray("01234567-89ab-cdef-0123-456789abcdef camera");
    QTest::newRow("tail of two") << QByteArray("01234567-89ab-cdef-0123-456789abcdef}}");
    QTest::newRow("letter beyond f") << QByteArray("01234567-89ab-cdef-0123-456789abcdeg");
    QTest::newRow("no dashes") << QByteArray("0123456789abcdef0123456789abcdef");
    QTest::newRow("dash misplaced") << QByteArray("0123456-789ab-cdef-0123-456789abcdef");
    QTest::newRow("brace not closed") << QByteArray("{01234567-89ab-cdef-0123-456789abcdef");
    QTest::newRow("brace not opened") << QByteArray("01234567-89ab-cdef-0123-456789abcdef}");
    QTest::newRow("other brackets") << QByteArray("(01234567-89ab-cdef-0123-456789abcdef)");
    QTest::newRow("braces twice") << QByteArray("{{01234567-89ab-cdef-0123-456789abcdef}}");
    QTest::newRow("text behind the braces") << QByteArray("{01234567-89ab-cdef-0123-456789abcdef}x");
    QTest::newRow("braces and one digit missing") << QByteArray("{01234567-89ab-cdef-0123-456789abcde}");
    QTest::newRow("braces alone") << QByteArray("{}");
}

void tst_CId::textThatIsNoId()
{
    QFETCH(const QByteArray, text);

    QCOMPARE(CId(text.isNull() ? nullptr : text.constData()), CId());
}

void tst_CId::comparesByValue()
{
    const CId id = CId::createId();
    const CId copy = id;
    QVERIFY(copy == id);
    QVERIFY(!(copy != id));
    QVERIFY(id != CId());
    QVERIFY(!(id == CId()));
}

void tst_CId::ordersLikeItsUuid()
{
    const CId low("00000000-0000-0000-0000-000000000001");
    const CId high("ffffffff-ffff-1fff-8fff-ffffffffffff");
    QCOMPARE(low < high, low.uuid() < high.uuid());
    QVERIFY((low < high) != (high < low));
    QVERIFY(!(low < CId("00000000-0000-0000-0000-000000000001")));

    const std::set<CId> ordered{high, low, high};
    QCOMPARE(ordered.size(), std::size_t(2));
}

void tst_CId::hashIsThatOfTheUuid()
{
    for (const CId& id : {CId(), CId(Text), CId::createId()})
        QCOMPARE(std::hash<CId>()(id), std::size_t(qHash(id.uuid(), 0)));
}

void tst_CId::isAKey()
{
    const CId id = CId::createId();
    const std::unordered_set<CId> keys{id, CId(id.toString().toLatin1().constData()), CId()};
    QCOMPARE(keys.size(), std::size_t(2));
}

QTEST_GUILESS_MAIN(tst_CId)

#include "tst_CId.moc"
