// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CNumberSet_p.h"

#include <QtTest>

#include <algorithm>
#include <random>
#include <unordered_set>
#include <vector>

using namespace Plugin::Halvex;

class tst_CNumberSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void doesWhatAnotherSetDoes();
    void growsWhenItIsFull();
    void keepsNoMemoryOfWhatIsGone();
    void numbersAtRegularDistancesLieWhereTheyBelong();
};

void tst_CNumberSet::isEmptyAtFirst()
{
    CNumberSet set;
    QVERIFY(!set.contains(0));
    QVERIFY(!set.contains(16));
    set.erase(16);
    QVERIFY(!set.contains(16));
}

void tst_CNumberSet::doesWhatAnotherSetDoes()
{
    CNumberSet set;
    std::unordered_set<quintptr> expected;
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        // More are taken in than out at first, then the other way round; few numbers, so that they meet.
        const quintptr number = 1 + random() % 500;
        const bool isToBeIn = random() % 100 < (i < 10000 ? 70U : 30U);
        if (isToBeIn && expected.insert(number).second)
            set.insert(number);
        else if (!isToBeIn && (expected.erase(number), true))
            set.erase(number);
        if (i % 100 != 0)
            continue;
        for (quintptr any = 0; any <= 501; ++any)
            QCOMPARE(set.contains(any), expected.count(any) != 0);
    }
}

void tst_CNumberSet::growsWhenItIsFull()
{
    CNumberSet set;
    set.insert(1);
    const std::size_t capacity = set.capacity();
    QVERIFY(capacity >= 16);
    for (quintptr number = 2; number <= capacity; ++number)
        set.insert(number);
    QCOMPARE(set.capacity(), capacity);
    set.insert(capacity + 1);
    QCOMPARE(set.capacity(), 2 * capacity);
    for (quintptr number = 1; number <= capacity + 1; ++number)
        QVERIFY(set.contains(number));
}

void tst_CNumberSet::keepsNoMemoryOfWhatIsGone()
{
    CNumberSet set;
    set.insert(1);
    const std::size_t smallest = set.capacity();
    const quintptr count = 4 * smallest;
    for (quintptr number = 2; number <= count; ++number)
        set.insert(number);
    QCOMPARE(set.capacity(), count);

    // When less than a quarter is used, half goes.
    for (quintptr number = count; number > count / 4; --number)
        set.erase(number);
    QCOMPARE(set.capacity(), count);
    set.erase(count / 4);
    QCOMPARE(set.capacity(), count / 2);
    for (quintptr number = 1; number <= count; ++number)
        QCOMPARE(set.contains(number), number < count / 4);

    for (quintptr number = 1; number < count; ++number)
        set.erase(number);
    QCOMPARE(set.capacity(), smallest);
}

void tst_CNumberSet::numbersAtRegularDistancesLieWhereTheyBelong()
{
    constexpr std::size_t count = 7500; // a little less than half of a power of two, where most places are taken
    double longest = 0;
    int ofObjectsOf = 0;
    for (int size = 16; size <= 9000; size += 16) {
        const auto addressOf = [size](std::size_t i) { return quintptr(0x55d0c0de0000) + i * quintptr(size); };
        CNumberSet set;
        for (std::size_t i = 1; i <= count; ++i)
            set.insert(addressOf(i));
        std::size_t all = 0;
        for (std::size_t i = 1; i <= count; ++i)
            all += set.distance(addressOf(i));
        const double average = double(all) / count;
        if (average > longest) {
            longest = average;
            ofObjectsOf = size;
        }
    }
    // With numbers that lie anywhere, and nearly half of the places taken, it is a little less than 0.5 on average.
    QVERIFY2(longest > 0.4 && longest < 0.6,
             qPrintable(QStringLiteral("%1 for objects of %2 bytes").arg(longest).arg(ofObjectsOf)));
}

QTEST_APPLESS_MAIN(tst_CNumberSet)
#include "tst_CNumberSet.moc"
