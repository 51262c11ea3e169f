// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CProgressLine.h"

#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/ioctl.h>
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

// A terminal of so many columns.
struct CTerminal
{
    explicit CTerminal(unsigned short columns)
        : terminal(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
            qFatal("no terminal");
        stream = std::fopen(ptsname(terminal), "w");
        winsize size{};
        size.ws_col = columns;
        if (!stream || ioctl(terminal, TIOCSWINSZ, &size) != 0)
            qFatal("no terminal");
    }
    ~CTerminal()
    {
        if (stream)
            std::fclose(stream);
        close(terminal);
    }
    Q_DISABLE_COPY(CTerminal)

    // All that was written. A terminal hands it out in parts, and an error behind the last one once nobody writes.
    QByteArray shown()
    {
        std::fclose(std::exchange(stream, nullptr));
        QByteArray shown;
        char bytes[100];
        for (ssize_t got = 0; (got = read(terminal, bytes, sizeof bytes)) > 0;)
            shown.append(bytes, int(got));
        return shown;
    }

    const int terminal;
    std::FILE* stream = nullptr;
};

} // namespace

class tst_CProgressLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstLineIsShownAtOnce();
    void nextLineWaits();
    void terminalLineIsDrawnAnew();
    void narrowTerminalShowsWhatFits();
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
    const auto drawTwice = [](CProgressLine& line) {
        line.show(QStringLiteral("one"));
        line.showLast(QString());
        line.showLast(QStringLiteral("one"));
    };
    QCOMPARE(written(0ms, drawTwice), QByteArray("one\n"));
}

void tst_CProgressLine::terminalLineIsDrawnAnew()
{
    CTerminal terminal(80);
    {
        CProgressLine line(terminal.stream, 1h);
        line.show(QStringLiteral("three"));
        line.show(QStringLiteral("two"));
        line.finish();
        line.finish();
    }
    // The terminal itself puts a carriage return before the line's end.
    QCOMPARE(terminal.shown(), QByteArray("\rthree\rtwo  \r\n"));
}

void tst_CProgressLine::narrowTerminalShowsWhatFits()
{
    CTerminal terminal(10);
    {
        CProgressLine line(terminal.stream, 1h);
        line.show(QStringLiteral("1234567890123"));
        line.showLast(QStringLiteral("12345678, ended"));
    }
    QCOMPARE(terminal.shown(), QByteArray("\r12345678\xE2\x80\xA6\r12345678,\r\nended\r\n"));
}

QTEST_GUILESS_MAIN(tst_CProgressLine)
#include "tst_CProgressLine.moc"
