// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CFaultList.h"

#include "host/check/CJsonTree.h"

#include <QTest>

using namespace Host;

namespace {

const EFaultRule rule = EFaultRule::WrongValue;

QStringList messages(const CFaultList& faults)
{
    QStringList messages;
    for (const SFault& fault : faults.sorted())
        messages << fault.message;
    return messages;
}

} // namespace

class tst_CFaultList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void orderAndPlacesOfTheText();
    void onePlaceHasOneError();
    void warningHidesNothing();
    void keyAndValueAreTwoPlaces();
    void whatIsTooMuchIsSaid();
};

void tst_CFaultList::orderAndPlacesOfTheText()
{
    CFaultList faults("[\n  1,\n  2]");
    QVERIFY(faults.isEmpty());
    faults.addTextError(rule, 9, "second");
    faults.addTextError(rule, 4, "first");
    QCOMPARE(messages(faults), QStringList({"first", "second"}));
    QCOMPARE(faults.sorted()[0].line, 2);
    QCOMPARE(faults.sorted()[0].column, 3);
    QCOMPARE(faults.place(9), QStringLiteral("3:3"));
}

void tst_CFaultList::onePlaceHasOneError()
{
    CFaultList faults("[1]");
    faults.addTextError(rule, 1, "first");
    faults.addTextError(rule, 1, "what follows from it");
    QCOMPARE(messages(faults), QStringList("first"));
}

void tst_CFaultList::warningHidesNothing()
{
    CFaultList faults("[1]");
    SJsonNode value;
    value.begin = 1;
    faults.addWarning(rule, value, "warning");
    faults.addError(rule, value, "error");
    QCOMPARE(messages(faults), QStringList({"warning", "error"}));
    QVERIFY(!faults.sorted()[0].isError);
}

void tst_CFaultList::keyAndValueAreTwoPlaces()
{
    CFaultList faults(R"({"a": 1})");
    CJsonTree tree;
    SJsonNode& root = tree.add(nullptr);
    root.type = QJsonValue::Object;
    SJsonNode& member = tree.add(&root);
    member.key = QStringLiteral("a");
    member.keyBegin = 1;
    member.begin = 6;
    faults.addError(rule, member, "value");
    faults.addKeyError(rule, member, "key");
    QCOMPARE(messages(faults), QStringList({"key", "value"}));
    for (const SFault& fault : faults.sorted())
        QCOMPARE(fault.path, QStringLiteral("$.a"));
}

void tst_CFaultList::whatIsTooMuchIsSaid()
{
    CFaultList faults(QByteArray(CFaultList::mostFaults + 1, ' '));
    for (int i = 0; i < CFaultList::mostFaults; ++i)
        faults.addTextError(rule, i, "one of many");
    QVERIFY(!faults.isCut());
    SJsonNode value;
    value.begin = CFaultList::mostFaults;
    faults.addWarning(rule, value, "too much");
    QVERIFY(faults.isCut());
    QCOMPARE(faults.sorted().size(), std::size_t(CFaultList::mostFaults + 1));
    QCOMPARE(faults.sorted().back().message, QStringLiteral("there are more faults than these 5000"));
    QVERIFY(!faults.sorted().back().isError);
    faults.addError(rule, value, "much too much");
    QVERIFY(faults.sorted().back().isError);
}

QTEST_GUILESS_MAIN(tst_CFaultList)
#include "tst_CFaultList.moc"
