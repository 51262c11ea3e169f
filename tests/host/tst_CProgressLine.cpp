// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CProgressLine.h"

#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

using namespace Host;
using namespace std::chrono_literals;

namespace {

// What was written to a plain file.
template <typename Draw>
QByteArray written(std::chrono::milliseconds quietTime, Draw draw)
{
    QTemporaryFile file;
    if (!file.open())
        return {};
    std::FILE* stream = fdopen(dup(file.handle()), "w");
    {
        CProgressLine line(stream, quietTime);
        draw(line);
    }
    std::fclose(stream);
    // Both handles share one position.
    file.seek(0);
    return file.readAll();
}

} // namespace

class tst_CProgressLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstLineIsShownAtOnce();
    void nextLineWaits();
    void terminalLineIsDrawnAnew();
};

void tst_CProgressLine::firstLineIsShownAtOnce()
{
    QCOMPARE(written(1h, [](CProgressLine& line) { line.show(QStringLiteral("one")); }), QByteArray("one\n"));
    QCOMPARE(written(1h, [](CProgressLine&) {}), QByteArray());
}

void tst_CProgressLine::nextLineWaits()
{
    const auto draw = [](CProgressLine& line) {
        line.show(QStringLiteral("one"));
        line.show(QStringLiteral("two"));
    };
    QCOMPARE(written(1h, draw), QByteArray("one\n"));
    QCOMPARE(written(0ms, draw), QByteArray("one\ntwo\n"));
}

void tst_CProgressLine::terminalLineIsDrawnAnew()
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    std::FILE* stream = std::fopen(ptsname(terminal), "w");
    QVERIFY(stream);
    {
        CProgressLine line(stream, 1h);
        line.show(QStringLiteral("three"));
        line.show(QStringLiteral("two"));
        line.finish();
        line.finish();
    }
    std::fflush(stream);
    // A terminal hands out what it has, which may be a part.
    QByteArray shown;
    while (!shown.endsWith('\n')) {
        char bytes[100];
        const auto got = read(terminal, bytes, sizeof bytes);
        QVERIFY(got > 0);
        shown.append(bytes, int(got));
    }
    // The terminal itself puts a carriage return before the line's end.
    QCOMPARE(shown, QByteArray("\rthree\rtwo  \r\n"));
    std::fclose(stream);
    close(terminal);
}

QTEST_GUILESS_MAIN(tst_CProgressLine)
#include "tst_CProgressLine.moc"
