// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CHelpFormatter.h"

#include "host/report/Terminal.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>

namespace Host {

namespace {

constexpr int mostColumns = 80;
constexpr int below = 6; // what stands below a name

// The first line of \a text is beside \a name, which is to end before \a column, or below it.
QString entry(const QString& name, const QString& text, int column, int columns)
{
    constexpr int leastText = 24;
    if (columns - column < leastText)
        return name + QLatin1Char('\n') + wrapped(text, columns, below);
    const QString lines = wrapped(text, columns, column);
    return name.size() >= column ? name + QLatin1Char('\n') + lines : name.leftJustified(column) + lines.mid(column);
}

QString namedEntry(const std::string& name, const std::string& text, int columns)
{
    constexpr int nameColumns = 26;
    return entry(QLatin1String("  ") + QString::fromStdString(name), QString::fromStdString(text), nameColumns,
                 columns);
}

// A command line that goes on behind a backslash, so that it can still be copied.
QString continued(const QString& command, int columns)
{
    const QString end = QStringLiteral(" \\");
    QString lines = wrapped(command, columns - end.size(), below).trimmed();
    lines.replace(QLatin1Char('\n'), end + QLatin1Char('\n'));
    return QLatin1String("  ") + lines + QLatin1Char('\n');
}

// A line of a footer: a sentence, which begins at the margin, an example, or two columns with more than one blank
// between them.
QString footerLine(const QString& line, int columns)
{
    static const QRegularExpression twoColumns(QStringLiteral(R"(^( *\S+(?: \S+)*)(  +)(\S.*)$)"));
    if (line.size() <= columns)
        return line + QLatin1Char('\n');
    if (!line.startsWith(QLatin1Char(' ')))
        return wrapped(line, columns, below).mid(below);
    const auto match = twoColumns.match(line);
    return match.hasMatch() ? entry(match.captured(1), match.captured(3), match.capturedStart(3), columns)
                            : continued(line, columns);
}

} // namespace

CHelpFormatter::CHelpFormatter(int columns)
    : m_columns(std::min(columns, mostColumns))
{
    label("Positionals", "Arguments");
    label("SUBCOMMAND", "COMMAND");
}

std::string CHelpFormatter::make_description(const CLI::App* command) const
{
    return wrapped(QString::fromStdString(command->get_description()), m_columns, 0).toStdString();
}

std::string CHelpFormatter::make_subcommand(const CLI::App* command) const
{
    return namedEntry(command->get_name(), command->get_description(), m_columns).toStdString();
}

std::string CHelpFormatter::make_usage(const CLI::App* command, std::string name) const
{
    const QString usage = QString::fromStdString(Formatter::make_usage(command, std::move(name)));
    return "\n" + wrapped(usage, m_columns, below).mid(below).toStdString();
}

std::string CHelpFormatter::make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const
{
    const std::string text = Formatter::make_help(command, std::move(name), mode);
    return CLI::detail::find_and_replace(text, "\n\n\n", "\n\n");
}

std::string CHelpFormatter::make_footer(const CLI::App* command) const
{
    QString text;
    const QStringList lines = QString::fromStdString(command->get_footer()).split(QLatin1Char('\n'));
    for (const QString& line : lines)
        text += footerLine(line, m_columns);
    return text.toStdString();
}

std::string CHelpFormatter::make_option(const CLI::Option* option, bool isPositional) const
{
    return namedEntry(make_option_name(option, isPositional) + make_option_opts(option), option->get_description(),
                      m_columns)
        .toStdString();
}

std::string CHelpFormatter::make_option_name(const CLI::Option* option, bool isPositional) const
{
    return CLI::detail::find_and_replace(Formatter::make_option_name(option, isPositional), ",", ", ");
}

std::string CHelpFormatter::make_option_opts(const CLI::Option* option) const
{
    // Whether it must be given is told by the line of usage.
    if (option->get_positional())
        return option->get_items_expected_max() > 1 ? "..." : "";
    const std::string type = option->get_type_name();
    return type.empty() ? "" : " " + type;
}

} // namespace Host
