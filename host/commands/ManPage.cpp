// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/ManPage.h"

#include <Halvex/Halvex.h>

#include <CLI/CLI.hpp>

#include <QStringList>

namespace Host {

namespace {

QString escaped(const std::string& text)
{
    QString line = QString::fromStdString(text);
    line.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    // At the beginning of a line they would be requests.
    return line.startsWith(QLatin1Char('.')) || line.startsWith(QLatin1Char('\'')) ? QStringLiteral("\\&") + line
                                                                                   : line;
}

QString bold(const QString& text)
{
    return QStringLiteral("\\fB%1\\fR").arg(text);
}

QString italic(const QString& text)
{
    return QStringLiteral("\\fI%1\\fR").arg(text);
}

QString entry(const QString& term, const QString& text)
{
    return QStringLiteral(".TP\n%1\n%2\n").arg(term, text);
}

// "--camera ID"
QString optionTerm(const CLI::Option& option)
{
    if (option.get_positional())
        return italic(escaped(option.get_name()));
    QStringList names;
    for (const std::string& name : option.get_snames())
        names << bold(escaped("-" + name));
    for (const std::string& name : option.get_lnames())
        names << bold(escaped("--" + name));
    const QString value = option.get_items_expected_max() > 0 ? escaped(option.get_type_name()) : QString();
    return names.join(QStringLiteral(", ")) + (value.isEmpty() ? QString() : QLatin1Char(' ') + italic(value));
}

QString optionEntries(const CLI::App& command)
{
    QString text;
    for (const CLI::Option* option : command.get_options()) {
        const bool isTold = command.get_parent() && option == command.get_help_ptr();
        if (!option->get_group().empty() && !isTold)
            text += entry(optionTerm(*option), escaped(option->get_description()));
    }
    return text;
}

// "Examples:", and a line for each, up to the first empty one.
QString exampleText(const CLI::App& command)
{
    QString text;
    const QStringList lines = QString::fromStdString(command.get_footer()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.isEmpty())
            break;
        if (line.startsWith(QLatin1String("  ")))
            text += escaped(line.trimmed().toStdString()) + QLatin1Char('\n');
    }
    return text.isEmpty() ? text : QStringLiteral(".PP\nExamples:\n.PP\n.RS 4\n.nf\n%1.fi\n.RE\n").arg(text);
}

QString commandText(const CLI::App& command)
{
    QString arguments = command.get_options().size() > 1 ? QStringLiteral(" [OPTION]...") : QString();
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional())
            arguments += QString(QLatin1String(option->get_required() ? " %1%2" : " [%1]%2"))
                             .arg(QString::fromStdString(option->get_name()),
                                  QLatin1String(option->get_items_expected_max() > 1 ? "..." : ""));
    }
    return QStringLiteral(".SS %1%2\n%3\n")
               .arg(escaped(command.get_name()), escaped(arguments.toStdString()), escaped(command.get_description())) +
           optionEntries(command) + exampleText(command);
}

} // namespace

QString manPage(const CLI::App& program, const ExitCodes& exitCodes)
{
    const QString about = escaped(program.get_description());
    // As part of the line that names the program.
    const QString inShort = about.at(0).toLower() + about.mid(1).chopped(1);
    QString text = QStringLiteral(".TH HALVEX\\-HOST 1 \"\" \"halvex\\-host %1\" \"User Commands\"\n"
                                  ".SH NAME\nhalvex\\-host \\- %2\n"
                                  ".SH SYNOPSIS\n.B halvex\\-host\n\\fICOMMAND\\fR [\\fIOPTION\\fR]...\n"
                                  ".SH DESCRIPTION\n%3\n")
                       .arg(QLatin1String(HALVEX_VERSION_STR), inShort, about);
    text += exampleText(program) + QStringLiteral(".SH OPTIONS\n") + optionEntries(program);
    text += QStringLiteral(".SH COMMANDS\n");
    for (const CLI::App* command : program.get_subcommands({}))
        text += commandText(*command);
    text += QStringLiteral(".SH EXIT STATUS\n");
    for (const auto& code : exitCodes)
        text += entry(bold(escaped(code.first.toStdString())), escaped(code.second.toStdString()));
    return text + QStringLiteral(".SH ENVIRONMENT\n") +
           entry(bold(QStringLiteral("NO_COLOR")), QStringLiteral("Nothing is printed in bold when it is set.")) +
           entry(bold(QStringLiteral("COLUMNS")),
                 QStringLiteral("How wide texts are where there is no terminal; 80 without it."));
}

} // namespace Host
