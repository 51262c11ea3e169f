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
    void createdOnesDifferBetweenThreads();
    void createdOnesAreRandomUuids();
    void textComesBack();
    void textThatIsNoId();
    void comparesByValue();
    void ordersLikeItsUuid();
    void hashIsThatOfTheUuid();
};

void tst_CId::defaultIsNoId()
{
    QVERIFY(CId().uuid().isNull());
    QCOMPARE(CId(), CId());
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

    std::unordered_set<CId> seen{CId()};
    for (const std::vector<CId>& ids : created)
        seen.insert(ids.begin(), ids.end());
    QCOMPARE(seen.size(), 1 + perThread * created.size());
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
    QCOMPARE(CId("{01234567-89ab-cdef-0123-456789abcdef}"), CId(Text));
    QCOMPARE(CId("01234567-89AB-CDEF-0123-456789ABCDEF"), CId(Text));
    for (const CId& id : {CId::createId(), CId()})
        QCOMPARE(CId(id.toString().toLocal8Bit().constData()), id);
}

void tst_CId::textThatIsNoId()
{
    QCOMPARE(CId(nullptr), CId());
    const char* const texts[] = {
        "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx",        // word of 36 characters
        "",                                            // empty
        " ",                                           // blank
        "camera",                                      // word
        "01234567-89ab-cdef-0123-456789abcde",         // one digit missing
        "01234567-89ab-cdef-0123-456789abcdef0",       // one digit too many
        "01234567-89ab-cdef-0123-456789abcdef ",       // blank behind
        " 01234567-89ab-cdef-0123-456789abcdef",       // blank in front
        "01234567-89ab-cdef-0123-456789abcdef camera", // word behind
        "01234567-89ab-cdef-0123-456789abcdef}}",      // tail of two
        "01234567-89ab-cdef-0123-456789abcdeg",        // letter beyond f
        "0123456789abcdef0123456789abcdef",            // no dashes
        "0123456-789ab-cdef-0123-456789abcdef",        // dash misplaced
        "{01234567-89ab-cdef-0123-456789abcdef",       // brace not closed
        "01234567-89ab-cdef-0123-456789abcdef}",       // brace not opened
        "(01234567-89ab-cdef-0123-456789abcdef)",      // other brackets
        "{{01234567-89ab-cdef-0123-456789abcdef}}",    // braces twice
        "{01234567-89ab-cdef-0123-456789abcdef}x",     // text behind the braces
        "{01234567-89ab-cdef-0123-456789abcde}",       // braces and one digit missing
        "{}",                                          // braces alone
    };
    for (const char* text : texts)
        QVERIFY2(CId(text) == CId(), text);
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

QTEST_GUILESS_MAIN(tst_CId)

#include "tst_CId.moc"
