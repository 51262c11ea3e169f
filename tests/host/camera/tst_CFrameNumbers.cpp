// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CFrameNumbers.h"

#include "TestTable.h"

#include <vector>

using namespace Host;

using Numbers = std::vector<quint64>;
Q_DECLARE_METATYPE(Numbers)

class tst_CFrameNumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missed_data();
    void missed();
    void whatWasToldIsNotCountedAgain();
    void restart();
};

void tst_CFrameNumbers::missed_data()
{
    addColumns<Numbers, quint64>({"numbers", "missed"});
    addRow("none", Numbers{}, quint64(0));
    addRow("in a row", Numbers{7, 8, 9, 10}, quint64(0));
    addRow("gap", Numbers{7, 8, 12, 13}, quint64(3));
    addRow("gap at first", Numbers{7, 12, 13}, quint64(4));
    addRow("two gaps", Numbers{0, 2, 3, 5}, quint64(2));
    addRow("no counter", Numbers{0, 0, 0}, quint64(0));
    addRow("counts something else", Numbers{1000, 1040, 1080}, quint64(0));
    addRow("counts anew", Numbers{65534, 65535, 1, 2, 4}, quint64(1));
}

void tst_CFrameNumbers::missed()
{
    QFETCH(Numbers, numbers);
    CFrameNumbers frames;
    for (const quint64 number : numbers)
        frames.add(number, 0);
    QTEST(frames.missed(0), "missed");
}

void tst_CFrameNumbers::whatWasToldIsNotCountedAgain()
{
    CFrameNumbers frames;
    QCOMPARE(frames.missed(9), quint64(0));
    // What was told before the first frame has no number between two.
    frames.add(20, 9);
    frames.add(21, 9);
    frames.add(25, 11);
    QCOMPARE(frames.missed(11), quint64(1));
    QCOMPARE(frames.missed(15), quint64(0));
}

void tst_CFrameNumbers::restart()
{
    CFrameNumbers frames;
    frames.add(1, 0);
    frames.add(2, 0);
    frames.restart();
    frames.add(100, 0);
    frames.add(102, 0);
    QCOMPARE(frames.missed(0), quint64(1));
}

QTEST_GUILESS_MAIN(tst_CFrameNumbers)
#include "tst_CFrameNumbers.moc"
