// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/FaultReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTest>

using namespace Host;

namespace {

// A test program has one thread, and nothing before main() reads these. clazy:excludeall=non-pod-global-static
const SFault error{true, EFaultRule::UnknownKey, 3, 14, "$[2].colour", "unknown key 'colour'"};
const SFault warning{false, EFaultRule::Source, 5, 1, "$[3]", "no camera"};
const SFault unreadable{true, EFaultRule::Unreadable, 0, 0, {}, "cannot read"};
const std::vector<SCheckedFile> files{{"a b/chain.json", {error, warning}}, {"none:1.json", {unreadable}}};

QJsonObject parsed(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

class tst_FaultReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines();
    void longPath();
    void unprintableName();
    void linesOfErrors();
    void text();
    void json();
    void sarif();
    void rules();
};

void tst_FaultReport::lines()
{
    QCOMPARE(faultLine("chain.json", error), QString("chain.json:3:14: error: $[2].colour: unknown key 'colour'"));
    QCOMPARE(faultLine("chain.json", warning), QString("chain.json:5:1: warning: $[3]: no camera"));
    QCOMPARE(faultLine("chain.json", unreadable), QString("chain.json: error: cannot read"));
}

void tst_FaultReport::longPath()
{
    SFault fault = error;
    fault.path = "$[2]." + QString(300, 'k');
    QCOMPARE(faultLine("chain.json", fault),
             "chain.json:3:14: error: $[2]." + QString(195, 'k') + "...: unknown key 'colour'");
    const QJsonObject report = parsed(faultJson({{"chain.json", {fault}}}));
    const QJsonValue file = report["files"][0];
    QCOMPARE(file["faults"][0]["path"].toString(), fault.path);
}

void tst_FaultReport::unprintableName()
{
    QCOMPARE(faultLine("chain\n.json", unreadable), QString("chain?.json: error: cannot read"));
}

void tst_FaultReport::linesOfErrors()
{
    QCOMPARE(errorLines(files[0]), QStringList("a b/chain.json:3:14: error: $[2].colour: unknown key 'colour'"));
    QCOMPARE(errorLines({"chain.json", {warning}}), QStringList());
}

void tst_FaultReport::text()
{
    QCOMPARE(faultText(files), QByteArray("a b/chain.json:3:14: error: $[2].colour: unknown key 'colour'\n"
                                          "a b/chain.json:5:1: warning: $[3]: no camera\n"
                                          "a b/chain.json: 1 error, 1 warning\n"
                                          "none:1.json: error: cannot read\n"
                                          "none:1.json: 1 error\n"));
    QCOMPARE(faultText({{"chain.json", {error, error, warning, warning}}}).split('\n').at(4),
             QByteArray("chain.json: 2 errors, 2 warnings"));
}

void tst_FaultReport::json()
{
    const QJsonObject report = parsed(faultJson(files));
    QCOMPARE(report["errors"].toInt(), 2);
    QCOMPARE(report["warnings"].toInt(), 1);
    const QJsonValue first = report["files"][0];
    QCOMPARE(first["file"].toString(), QString("a b/chain.json"));
    QCOMPARE(first["errors"].toInt(), 1);
    QCOMPARE(first["warnings"].toInt(), 1);
    const QJsonObject expected{{"severity", "error"}, {"rule", "unknown-key"}, {"message", "unknown key 'colour'"},
                               {"line", 3},           {"column", 14},          {"path", "$[2].colour"}};
    QCOMPARE(first["faults"][0].toObject(), expected);
    const QJsonObject whole{{"severity", "error"}, {"rule", "unreadable"}, {"message", "cannot read"}};
    QCOMPARE(report["files"][1]["faults"][0].toObject(), whole);
}

void tst_FaultReport::sarif()
{
    const QJsonObject report = parsed(faultSarif(files, "1.2.3"));
    QCOMPARE(report["version"].toString(), QString("2.1.0"));
    const QJsonValue run = report["runs"][0];
    const QJsonValue driver = run["tool"]["driver"];
    QCOMPARE(driver["version"].toString(), QString("1.2.3"));
    QCOMPARE(run["columnKind"].toString(), QString("utf16CodeUnits"));
    QCOMPARE(run["results"].toArray().size(), 3);

    const QJsonValue result = run["results"][0];
    QCOMPARE(result["level"].toString(), QString("error"));
    QCOMPARE(result["message"]["text"].toString(), QString("unknown key 'colour'"));
    QCOMPARE(driver["rules"][result["ruleIndex"].toInt()]["id"], result["ruleId"]);
    const QJsonValue place = result["locations"][0]["physicalLocation"];
    QCOMPARE(place["artifactLocation"]["uri"].toString(), QString("a%20b/chain.json"));
    QCOMPARE(place["region"].toObject(), (QJsonObject{{"startLine", 3}, {"startColumn", 14}}));
    QCOMPARE(result["locations"][0]["logicalLocations"][0]["fullyQualifiedName"].toString(), QString("$[2].colour"));

    QCOMPARE(run["results"][1]["level"].toString(), QString("warning"));
    const QJsonValue whole = run["results"][2]["locations"][0];
    QCOMPARE(whole["physicalLocation"]["artifactLocation"]["uri"].toString(), QString("none%3A1.json"));
    QVERIFY(whole["physicalLocation"]["region"].isUndefined());
    QVERIFY(whole["logicalLocations"].isUndefined());
}

void tst_FaultReport::rules()
{
    QSet<QString> names;
    for (int i = 0; i < faultRules; ++i) {
        names.insert(faultRuleName(EFaultRule(i)));
        QVERIFY(faultRuleText(EFaultRule(i)).endsWith('.'));
    }
    QCOMPARE(names.size(), faultRules);
}

QTEST_GUILESS_MAIN(tst_FaultReport)
#include "tst_FaultReport.moc"
