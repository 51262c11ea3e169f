// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/Terminal.h"

#include <QStringList>

#include <algorithm>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Host {

int columnsOf(std::FILE* stream)
{
    constexpr int usual = 80;
    winsize size{};
    const bool isTerminal = isatty(fileno(stream)) == 1 && ioctl(fileno(stream), TIOCGWINSZ, &size) == 0;
    if (isTerminal && size.ws_col > 0)
        return int(size.ws_col);
    const int asked = qEnvironmentVariableIntValue("COLUMNS");
    return asked > 0 ? asked : usual;
}

bool takesColors(std::FILE* stream)
{
    return isatty(fileno(stream)) == 1 && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

QString headingLine(const QString& text, bool isBold)
{
    return isBold ? QLatin1String("\x1b[1m") + text + QLatin1String("\x1b[0m\n") : text + QLatin1Char('\n');
}

QString wrapped(const QString& text, int width, int indent)
{
    constexpr int mostReadable = 100;
    const int most = std::min(width, mostReadable);
    QString result;
    QString line;
    const QString margin(indent, QLatin1Char(' '));
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    for (const QString& word : words) {
        if (!line.isEmpty() && indent + line.size() + 1 + word.size() > most) {
            result += margin + line + QLatin1Char('\n');
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    return result + margin + line + QLatin1Char('\n');
}

} // namespace Host
