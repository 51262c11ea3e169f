// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/FaultReport.h"

#include "host/base/Counted.h"
#include "host/base/Shown.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>

namespace Host {

namespace {

constexpr int maxPath = 200; // in a line for people; programs get all of it

QString severity(const SFault& fault)
{
    return fault.isError ? QStringLiteral("error") : QStringLiteral("warning");
}

// As people read it; programs get the severity.
QString severityText(const SFault& fault)
{
    return fault.isError ? QCoreApplication::translate("Host::FaultReport", "error")
                         : QCoreApplication::translate("Host::FaultReport", "warning");
}

QString summary(const SCheckedFile& file)
{
    QStringList parts;
    if (file.errors() > 0)
        parts << counted(quint64(file.errors()), "error");
    if (file.warnings() > 0)
        parts << counted(quint64(file.warnings()), "warning");
    return parts.isEmpty() ? QStringLiteral("no faults") : parts.join(QStringLiteral(", "));
}

QJsonObject faultObject(const SFault& fault)
{
    QJsonObject json{{QStringLiteral("severity"), severity(fault)},
                     {QStringLiteral("rule"), faultRuleName(fault.rule)},
                     {QStringLiteral("message"), fault.message}};
    if (fault.line > 0) {
        json.insert(QStringLiteral("line"), fault.line);
        json.insert(QStringLiteral("column"), fault.column);
    }
    if (!fault.path.isEmpty())
        json.insert(QStringLiteral("path"), fault.path);
    return json;
}

QJsonObject sarifText(const QString& text)
{
    return {{QStringLiteral("text"), text}};
}

QJsonArray sarifRules()
{
    QJsonArray rules;
    for (int i = 0; i < faultRules; ++i)
        rules.append(QJsonObject{{QStringLiteral("id"), faultRuleName(EFaultRule(i))},
                                 {QStringLiteral("shortDescription"), sarifText(faultRuleText(EFaultRule(i)))}});
    return rules;
}

QJsonObject sarifResult(const QString& file, const SFault& fault)
{
    // A name relative to where the program runs, as editors want it; with a colon in it, it would be taken for a
    // scheme.
    const QString uri = QString::fromLatin1(QUrl::toPercentEncoding(file, "/"));
    QJsonObject place{{QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uri}}}};
    if (fault.line > 0)
        place.insert(QStringLiteral("region"), QJsonObject{{QStringLiteral("startLine"), fault.line},
                                                           {QStringLiteral("startColumn"), fault.column}});
    QJsonObject location{{QStringLiteral("physicalLocation"), place}};
    if (!fault.path.isEmpty())
        location.insert(QStringLiteral("logicalLocations"),
                        QJsonArray{QJsonObject{{QStringLiteral("fullyQualifiedName"), fault.path}}});
    return {{QStringLiteral("ruleId"), faultRuleName(fault.rule)},
            {QStringLiteral("ruleIndex"), int(fault.rule)},
            {QStringLiteral("level"), severity(fault)},
            {QStringLiteral("message"), sarifText(fault.message)},
            {QStringLiteral("locations"), QJsonArray{location}}};
}

} // namespace

int SCheckedFile::errors() const
{
    return int(std::count_if(faults.begin(), faults.end(), [](const SFault& fault) { return fault.isError; }));
}

int SCheckedFile::warnings() const
{
    return int(faults.size()) - errors();
}

QString faultLine(const QString& file, const SFault& fault)
{
    QString line = printable(file);
    if (fault.line > 0)
        line += QStringLiteral(":%1:%2").arg(fault.line).arg(fault.column);
    line += QStringLiteral(": ") + severityText(fault) + QStringLiteral(": ");
    if (!fault.path.isEmpty())
        line += cut(fault.path, maxPath) + QStringLiteral(": ");
    return line + fault.message;
}

QStringList errorLines(const SCheckedFile& file)
{
    QStringList lines;
    for (const SFault& fault : file.faults) {
        if (fault.isError)
            lines << faultLine(file.file, fault);
    }
    return lines;
}

QByteArray faultText(const std::vector<SCheckedFile>& files)
{
    QByteArray text;
    for (const SCheckedFile& file : files) {
        for (const SFault& fault : file.faults)
            text += faultLine(file.file, fault).toUtf8() + '\n';
        text += QStringLiteral("%1: %2\n").arg(printable(file.file), summary(file)).toUtf8();
    }
    return text;
}

QByteArray faultJson(const std::vector<SCheckedFile>& files)
{
    QJsonArray list;
    int errors = 0;
    int warnings = 0;
    for (const SCheckedFile& file : files) {
        QJsonArray faults;
        for (const SFault& fault : file.faults)
            faults.append(faultObject(fault));
        list.append(QJsonObject{{QStringLiteral("file"), file.file},
                                {QStringLiteral("errors"), file.errors()},
                                {QStringLiteral("warnings"), file.warnings()},
                                {QStringLiteral("faults"), faults}});
        errors += file.errors();
        warnings += file.warnings();
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("files"), list},
                                     {QStringLiteral("errors"), errors},
                                     {QStringLiteral("warnings"), warnings}})
        .toJson();
}

QByteArray faultSarif(const std::vector<SCheckedFile>& files, const QString& version)
{
    QJsonArray results;
    for (const SCheckedFile& file : files) {
        for (const SFault& fault : file.faults)
            results.append(sarifResult(file.file, fault));
    }
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("halvex-host check")},
                             {QStringLiteral("version"), version},
                             {QStringLiteral("rules"), sarifRules()}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                          {QStringLiteral("columnKind"), QStringLiteral("utf16CodeUnits")},
                          {QStringLiteral("results"), results}};
    return QJsonDocument(
               QJsonObject{{QStringLiteral("$schema"), QStringLiteral("https://json.schemastore.org/sarif-2.1.0.json")},
                           {QStringLiteral("version"), QStringLiteral("2.1.0")},
                           {QStringLiteral("runs"), QJsonArray{run}}})
        .toJson();
}

} // namespace Host
