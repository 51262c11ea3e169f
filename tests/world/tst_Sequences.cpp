// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// That random sequences reach what they are for, and that what they find is shrunk.

#include "support/CMessageCatcher.h"
#include "support/FreshSeed.h"
#include "world/CSequence.h"

#include <QTest>

#include <algorithm>

class TestSequences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomReachesEveryOperationAndEveryHook();
    void sameBytesDoTheSame();
    void anyBytesAreASequence();
    void faultIsFoundAndShrunk();
};

namespace {

/// Says something once a second connection has been deleted.
CSequence::Fault secondDeletion()
{
    return [deletions = 0](const CWitness& witness) mutable {
        for (const CWitness::STold& told : witness.told())
            deletions += told.signal == EHook::ConnectionDeleted ? 1 : 0;
        return deletions >= 2 ? QStringLiteral("a second deletion") : QString();
    };
}

bool showsSecondDeletion(const QByteArray& bytes)
{
    return CSequence::run(bytes, secondDeletion()).startsWith(QStringLiteral("a second deletion"));
}

} // namespace

void TestSequences::randomReachesEveryOperationAndEveryHook()
{
    const unsigned int first = freshSeed(); // says it, which the catcher would keep to itself
    const CMessageCatcher messages;         // of what is refused
    for (unsigned int seed = first; seed < first + 200; ++seed) {
        const QByteArray bytes = CSequence::random(seed, 200);
        const QString wrong = CSequence::run(bytes);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("%1\n%2").arg(wrong, QString::fromLatin1(bytes.toHex()))));
    }
    for (std::size_t i = 0; i < operations().size(); ++i)
        QVERIFY2(CSequence::runs()[i] > 0, operations()[i].name);
    for (std::size_t i = 0; i < CSequence::nested().size(); ++i)
        QVERIFY2(CSequence::nested()[i] > 0, qPrintable(QString::number(i)));
}

void TestSequences::sameBytesDoTheSame()
{
    const CMessageCatcher messages;
    const auto told = [](unsigned int seed) {
        std::vector<int> numbers;
        const QString wrong = CSequence::run(CSequence::random(seed, 100), [&numbers](const CWitness& witness) {
            for (const CWitness::STold& signal : witness.told())
                numbers.insert(numbers.end(), {int(signal.signal), signal.scene, signal.node, signal.out});
            return QString();
        });
        numbers.push_back(wrong.isEmpty());
        return numbers;
    };
    QCOMPARE(told(3), told(3));
    QVERIFY(told(4) != told(3));
}

void TestSequences::anyBytesAreASequence()
{
    QCOMPARE(CSequence::run({}), QString());
    QCOMPARE(CSequence::run(QByteArray(3, 'a')), QString());
    QCOMPARE(CSequence::run(QByteArray(100, '\xff')), QString());
}

void TestSequences::faultIsFoundAndShrunk()
{
    const CMessageCatcher messages;
    const QByteArray bytes = CSequence::random(5, 200);
    QVERIFY(showsSecondDeletion(bytes));
    const QByteArray shrunk = shrink(bytes, &showsSecondDeletion);
    QVERIFY(showsSecondDeletion(shrunk));
    QVERIFY2(shrunk.size() <= 6 * SRecord::size, qPrintable(CSequence::textOf(shrunk)));
    for (int at = 0; at < shrunk.size(); at += SRecord::size)
        QVERIFY2(!showsSecondDeletion(QByteArray(shrunk).remove(at, SRecord::size)),
                 qPrintable(CSequence::textOf(shrunk)));
}

QTEST_GUILESS_MAIN(TestSequences)
#include "tst_Sequences.moc"
