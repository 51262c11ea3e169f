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
    void numbersAtRegularDistancesLieWhereTheyBelong_data();
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
}

void tst_CNumberSet::keepsNoMemoryOfWhatIsGone()
{
    CNumberSet set;
    for (quintptr number = 1; number <= 10000; ++number)
        set.insert(number);
    QVERIFY(set.capacity() >= 10000);
    for (quintptr number = 1; number <= 10000; ++number)
        set.erase(number);
    QVERIFY(set.capacity() < 100);
}

void tst_CNumberSet::numbersAtRegularDistancesLieWhereTheyBelong_data()
{
    QTest::addColumn<int>("distance");
    // What objects of one size lie apart in memory.
    for (const int distance : {16, 32, 96, 240, 656, 1024, 2160, 4096, 8208, 65536})
        QTest::addRow("%d", distance) << distance;
}

void tst_CNumberSet::numbersAtRegularDistancesLieWhereTheyBelong()
{
    QFETCH(const int, distance);
    constexpr std::size_t count = 30000; // a little less than half of a power of two, where most places are taken
    CNumberSet set;
    std::vector<quintptr> numbers;
    for (std::size_t i = 1; i <= count; ++i)
        numbers.push_back(quintptr(0x55d0c0de0000) + i * quintptr(distance));
    for (const quintptr number : numbers)
        set.insert(number);

    std::size_t all = 0;
    for (const quintptr number : numbers)
        all += set.distance(number);
    // With numbers that lie anywhere, and half of the places taken, it is 0.5 on average.
    QVERIFY2(all < count, qPrintable(QStringLiteral("%1 on average").arg(double(all) / count)));
}

QTEST_APPLESS_MAIN(tst_CNumberSet)
#include "tst_CNumberSet.moc"
