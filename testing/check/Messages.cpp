// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/check/Messages.h"

#include "testing/SRule_p.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace Plugin::Halvex::Testing {

SRuleInfo ruleNamed(const QString& name)
{
    for (const auto& rules : {modelRules(), pluginRules()}) {
        const auto found =
            std::find_if(rules.begin(), rules.end(), [&](const auto& rule) { return rule.name == name; });
        if (found != rules.end())
            return *found;
    }
    return {name, {}, {}};
}

void sendMessage(const QJsonObject& message)
{
    const QByteArray line = recordSeparator + QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
    std::fflush(stdout);
}

QJsonObject toJson(const SReport& report)
{
    QJsonArray findings;
    for (const SFinding& finding : report.findings)
        findings.append(QJsonObject{{QStringLiteral("rule"), finding.rule}, {QStringLiteral("seen"), finding.seen}});
    QJsonArray leftOut;
    for (const SLeftOut& left : report.leftOut)
        leftOut.append(QJsonObject{{QStringLiteral("rule"), left.rule}, {QStringLiteral("reason"), left.reason}});
    QJsonArray times;
    for (const SCallTimes& call : report.times)
        times.append(QJsonObject{{QStringLiteral("call"), call.call},
                                 {QStringLiteral("median"), call.median},
                                 {QStringLiteral("percentile99"), call.percentile99},
                                 {QStringLiteral("longest"), call.longest}});
    return {{QStringLiteral("subject"), report.subject},
            {QStringLiteral("kept"), report.kept},
            {QStringLiteral("findings"), findings},
            {QStringLiteral("leftOut"), leftOut},
            {QStringLiteral("times"), times}};
}

SReport reportFrom(const QJsonObject& json)
{
    SReport report;
    report.subject = json.value(QLatin1String("subject")).toString();
    report.kept = json.value(QLatin1String("kept")).toInt();
    const QJsonArray findings = json.value(QLatin1String("findings")).toArray();
    for (const QJsonValue& finding : findings)
        report.findings.push_back(makeFinding(ruleNamed(finding[QLatin1String("rule")].toString()),
                                              finding[QLatin1String("seen")].toString()));
    const QJsonArray leftOut = json.value(QLatin1String("leftOut")).toArray();
    for (const QJsonValue& left : leftOut)
        report.leftOut.push_back({left[QLatin1String("rule")].toString(), left[QLatin1String("reason")].toString()});
    const auto nanoseconds = [](const QJsonValue& value) { return qint64(value.toDouble()); };
    const QJsonArray times = json.value(QLatin1String("times")).toArray();
    for (const QJsonValue& call : times)
        report.times.push_back({call[QLatin1String("call")].toString(), nanoseconds(call[QLatin1String("median")]),
                                nanoseconds(call[QLatin1String("percentile99")]),
                                nanoseconds(call[QLatin1String("longest")])});
    return report;
}

} // namespace Plugin::Halvex::Testing
