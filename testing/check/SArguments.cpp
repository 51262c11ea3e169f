// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/check/SArguments.h"

#include "testing/check/EExitCode.h"

#include <Halvex/testing/SRuleInfo.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace Plugin::Halvex::Testing {

namespace {

// Each as it is parsed and as it is handed on.
const char* const withOption = "with";
const char* const modelOption = "model";
const char* const skipOption = "skip";
const char* const instancesOption = "instances";
const char* const longestCallOption = "longest-call";
const char* const timeoutOption = "timeout";
const char* const timesOption = "times";
const char* const rulesOption = "rules";
const char* const roleOption = "role";

[[noreturn]] void endWith(const QString& mistake)
{
    std::fprintf(stderr, "halvex-check: %s\n", qUtf8Printable(mistake));
    std::exit(int(EExitCode::NotChecked));
}

int numberOf(const QCommandLineParser& parser, const char* option, int least)
{
    const QString text = parser.value(QString::fromLatin1(option));
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < least)
        endWith(QStringLiteral("--%1 takes a number from %2 on, not '%3'")
                    .arg(QString::fromLatin1(option))
                    .arg(least)
                    .arg(text));
    return number;
}

QCommandLineOption option(const char* name, const char* description, const char* value = nullptr,
                          const char* defaultValue = nullptr)
{
    return {QString::fromLatin1(name), QString::fromLatin1(description), QString::fromLatin1(value),
            QString::fromLatin1(defaultValue)};
}

void addOptions(QCommandLineParser* parser)
{
    parser->setApplicationDescription(QStringLiteral(
        "Takes a plugin and every model that it registers through what a host will do to them, and tells\n"
        "which rules they break. Each model runs in a process of its own, so that one that crashes is a\n"
        "finding.\n\n"
        "Exit code: 0 if all rules are kept, 1 if one is broken, 2 if nothing could be checked."));
    parser->addHelpOption();
    parser->addVersionOption();
    parser->addPositionalArgument(QStringLiteral("plugin"), QStringLiteral("The plugin's file."));
    parser->addOption(option(withOption, "A plugin that it needs; may be given several times.", "file"));
    parser->addOption(option(modelOption, "Check this model and nothing else; may be given several times.", "name"));
    parser->addOption(option(skipOption, "Do not try this rule; may be given several times.", "rule"));
    parser->addOption(
        option(instancesOption, "How many models are made at once to see what they leave behind.", "count", "1000"));
    parser->addOption(
        option(longestCallOption, "What 99 of 100 calls must stay below; 0: no limit.", "microseconds", "0"));
    parser->addOption(option(timeoutOption, "After how long a rule is given up.", "seconds", "60"));
    parser->addOption(option(timesOption, "Print how long calls of each model take."));
    parser->addOption(option(rulesOption, "List the rules, and why each exists."));
    QCommandLineOption role = option(roleOption, "The part that this process does.", "number", "0");
    role.setFlags(QCommandLineOption::HiddenFromHelp);
    parser->addOption(role);
}

bool isRule(const QString& name)
{
    const auto isIn = [&](const std::vector<SRuleInfo>& rules) {
        return std::any_of(rules.begin(), rules.end(), [&](const SRuleInfo& rule) { return rule.name == name; });
    };
    return isIn(modelRules()) || isIn(pluginRules());
}

QStringList repeated(const char* name, const QStringList& values)
{
    QStringList arguments;
    for (const QString& value : values)
        arguments << QStringLiteral("--%1=%2").arg(QString::fromLatin1(name), value);
    return arguments;
}

} // namespace

SArguments SArguments::parse()
{
    QCommandLineParser parser;
    addOptions(&parser);
    if (!parser.parse(QCoreApplication::arguments()))
        endWith(parser.errorText());
    parser.process(QCoreApplication::arguments()); // --help and --version end here

    SArguments arguments;
    arguments.role = ERole(numberOf(parser, roleOption, 0));
    if (parser.isSet(QString::fromLatin1(rulesOption))) {
        arguments.role = ERole::ListRules;
        return arguments;
    }
    if (parser.positionalArguments().size() != 1)
        endWith(QStringLiteral("it takes the file of one plugin; --help tells more"));
    arguments.file = parser.positionalArguments().constFirst();
    if (!QFileInfo(arguments.file).isFile())
        endWith(QStringLiteral("there is no file '%1'").arg(arguments.file));
    arguments.companions = parser.values(QString::fromLatin1(withOption));
    arguments.models = parser.values(QString::fromLatin1(modelOption));
    arguments.skip = parser.values(QString::fromLatin1(skipOption));
    for (const QString& rule : qAsConst(arguments.skip)) {
        if (!isRule(rule))
            endWith(QStringLiteral("there is no rule '%1'; --rules lists them").arg(rule));
    }
    arguments.instances = numberOf(parser, instancesOption, 1);
    arguments.longestCall = std::chrono::microseconds(numberOf(parser, longestCallOption, 0));
    arguments.timeout = std::chrono::seconds(numberOf(parser, timeoutOption, 1));
    arguments.withTimes = parser.isSet(QString::fromLatin1(timesOption));
    return arguments;
}

QStringList SArguments::forChild(ERole childRole, const QString& model, const QStringList& skipped) const
{
    QStringList arguments = repeated(withOption, companions) + repeated(skipOption, skip + skipped);
    if (childRole == ERole::CheckModel)
        arguments += repeated(modelOption, {model});
    arguments += repeated(instancesOption, {QString::number(instances)});
    arguments += repeated(longestCallOption, {QString::number(longestCall.count())});
    arguments += repeated(roleOption, {QString::number(int(childRole))});
    return arguments << QStringLiteral("--") << file;
}

} // namespace Plugin::Halvex::Testing
