// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// halvex-check PLUGIN: which rules a plugin and its models break.

#include "testing/SModelSubject_p.h"
#include "testing/check/CChildProcess.h"
#include "testing/check/Child.h"
#include "testing/check/Messages.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

using namespace Plugin::Halvex::Testing;

namespace {

using ERole = SArguments::ERole;

// Each starts the check anew.
constexpr int mostEnds = 5;

void print(const QString& text)
{
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout);
}

void listRules()
{
    for (const auto& [title, rules] :
         {std::make_pair("Models", modelRules()), std::make_pair("Data", dataRules()),
          std::make_pair("Converters", converterRules()), std::make_pair("Plugins", pluginRules())}) {
        print(QStringLiteral("%1\n").arg(QString::fromLatin1(title)));
        for (const SRuleInfo& rule : rules)
            print(QStringLiteral("  %1\n      %2\n").arg(rule.name, rule.why));
    }
}

SFinding findingOfAnEnd(const SChildResult& result)
{
    // Before the first rule and behind the last one it is the plugin that ends the process.
    const QString rule = result.isDone               ? QStringLiteral("unloads")
                         : result.lastRule.isEmpty() ? QStringLiteral("comes-up")
                                                     : result.lastRule;
    return makeFinding(ruleNamed(rule), result.fault);
}

/// One part of the check. Where the process ends, it is tried again without that rule. The first end is a finding;
/// where it ends then may have the same cause.
SReport check(const SArguments& arguments, ERole role, const QString& model)
{
    SReport ends;
    QStringList skipped;
    SChildResult result;
    for (int attempt = 0; attempt < mostEnds && !result.isDone && !result.hasHung; ++attempt) {
        result = CChildProcess(arguments).run(role, model, skipped);
        if (result.fault.isEmpty())
            break;
        if (ends.findings.empty())
            ends.findings.push_back(findingOfAnEnd(result));
        else
            ends.leftOut.push_back({result.lastRule, QStringLiteral("the process ended there, too")});
        if (result.lastRule.isEmpty())
            break;
        skipped << result.lastRule;
    }
    if (!result.isDone)
        ends.leftOut.push_back(
            {QStringLiteral("all rules behind it"), QStringLiteral("the process has not come through")});
    SReport report = result.report;
    report.subject = role == ERole::CheckPlugin ? QFileInfo(arguments.file).fileName() : subjectNamed(model);
    report.findings.insert(report.findings.begin(), ends.findings.begin(), ends.findings.end());
    report.leftOut.insert(report.leftOut.begin(), ends.leftOut.begin(), ends.leftOut.end());
    if (!arguments.withTimes)
        report.times.clear();
    return report;
}

int checkAll(const SArguments& arguments)
{
    std::size_t broken = 0;
    const auto tell = [&](const SReport& report) {
        broken += report.findings.size();
        print(toText(report) + QLatin1Char('\n'));
    };
    if (arguments.models.isEmpty())
        tell(check(arguments, ERole::CheckPlugin, {}));
    const SChildResult list = CChildProcess(arguments).run(ERole::ListModels);
    if (!list.isDone && broken == 0) {
        std::fprintf(stderr, "halvex-check: %s\n", qUtf8Printable(list.fault));
        return int(EExitCode::NotChecked);
    }
    for (const QString& wanted : arguments.models) {
        if (!list.models.contains(wanted)) {
            std::fprintf(stderr, "halvex-check: the plugin registers no model '%s'\n", qUtf8Printable(wanted));
            return int(EExitCode::NotChecked);
        }
    }
    const QStringList models = arguments.models.isEmpty() ? list.models : arguments.models;
    for (const QString& model : models)
        tell(check(arguments, ERole::CheckModel, model));
    print(QStringLiteral("%1: models checked: %2, rules broken: %3\n")
              .arg(QFileInfo(arguments.file).fileName())
              .arg(models.size())
              .arg(broken));
    return int(broken == 0 ? EExitCode::Kept : EExitCode::Broken);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("halvex-check"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HALVEX_VERSION));
    const SArguments arguments = SArguments::parse();
    switch (arguments.role) {
    case ERole::Parent:
        return checkAll(arguments);
    case ERole::ListRules:
        listRules();
        return int(EExitCode::Kept);
    default:
        return int(runChild(arguments));
    }
}
