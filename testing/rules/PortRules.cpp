// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Ports: how many, of which types, and what happens on ports that are not there.

#include "testing/CWatchedModel_p.h"
#include "testing/rules/ModelRules_p.h"
#include <Halvex/testing/CForeignData.h>

#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

QString countsOf(const CNodeDataModel& model)
{
    return QStringLiteral("%1 in and %2 out")
        .arg(model.nPorts(ENodePortType::In))
        .arg(model.nPorts(ENodePortType::Out));
}

template <typename Visit>
void forEachPort(const CWatchedModel& model, Visit visit)
{
    for (NodePortIndex port = 0; port < model.inPorts(); ++port)
        visit(ENodePortType::In, port);
    for (NodePortIndex port = 0; port < model.outPorts(); ++port)
        visit(ENodePortType::Out, port);
}

QStringList typesOf(const CWatchedModel& model)
{
    QStringList types;
    forEachPort(model, [&](ENodePortType side, NodePortIndex port) {
        types << QStringLiteral("\"%1\" on %2").arg(model->dataType(side, port).id, shownPort(side, port));
    });
    return types;
}

using Calls = std::vector<std::pair<QString, std::function<void()>>>;

/// Which of the \a calls for that port throws; empty if none does.
QString thrownByOneOf(const Calls& calls, ENodePortType side, NodePortIndex port)
{
    for (const auto& [call, work] : calls) {
        const QString thrown = thrownBy(work);
        if (!thrown.isEmpty())
            return QStringLiteral("%1 for %2 %3").arg(call, shownPort(side, port), thrown);
    }
    return {};
}

QString thrownByData(CNodeDataModel& model, ENodePortType side, NodePortIndex port)
{
    Calls calls;
    if (side == ENodePortType::In) {
        calls.emplace_back(QStringLiteral("setInData() of empty data"), [&] { model.setInData({}, port); });
        calls.emplace_back(QStringLiteral("setInData()"),
                           [&] { model.setInData(CNodeDataPtr(new CForeignData), port); });
    } else {
        calls.emplace_back(QStringLiteral("outData()"), [&] { model.outData(port); });
    }
    return thrownByOneOf(calls, side, port);
}

} // namespace

QString thrownWhenAsked(const CNodeDataModel& model, ENodePortType side, NodePortIndex port)
{
    Calls calls = {
        {QStringLiteral("dataType()"), [&] { model.dataType(side, port); }},
        {QStringLiteral("portCaption()"), [&] { model.portCaption(side, port); }},
        {QStringLiteral("portCaptionVisible()"), [&] { model.portCaptionVisible(side, port); }},
    };
    if (side == ENodePortType::Out)
        calls.emplace_back(QStringLiteral("portOutConnectionPolicy()"), [&] { model.portOutConnectionPolicy(port); });
    return thrownByOneOf(calls, side, port);
}

SOutcome portsStayTheSame(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString before = countsOf(*model);
    const QString ofAnother = countsOf(*subject.creator());
    if (ofAnother != before)
        return broken(QStringLiteral("one new model has %1, another %2").arg(before, ofAnother));
    model.use();
    const QString after = countsOf(*model);
    return after == before ? kept() : broken(QStringLiteral("a new model has %1, a used one %2").arg(before, after));
}

SOutcome noSideHasNoPorts(const SModelSubject& subject)
{
    const unsigned int count = subject.creator()->nPorts(ENodePortType::None);
    return count == 0 ? kept() : broken(QStringLiteral("nPorts(None) is %1").arg(count));
}

SOutcome portsHaveTypes(const SModelSubject& subject)
{
    const CWatchedModel model(subject);
    QString seen;
    forEachPort(model, [&](ENodePortType side, NodePortIndex port) {
        if (model->dataType(side, port).id.isEmpty())
            seen = QStringLiteral("the type of %1 has an empty id").arg(shownPort(side, port));
    });
    return brokenIf(seen);
}

SOutcome typesStayTheSame(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QStringList before = typesOf(model);
    model.use();
    const QStringList after = typesOf(model);
    for (int i = 0; i < before.size(); ++i) {
        if (before.at(i) != after.at(i))
            return broken(
                QStringLiteral("the type was %1, and is %2 when the model was used").arg(before.at(i), after.at(i)));
    }
    return kept();
}

SOutcome takesMissingPorts(const SModelSubject& subject)
{
    const CWatchedModel model(subject);
    const std::vector<std::pair<ENodePortType, NodePortIndex>> missing = {
        {ENodePortType::In, -1},
        {ENodePortType::In, model.inPorts()},
        {ENodePortType::Out, -1},
        {ENodePortType::Out, model.outPorts()},
    };
    for (const auto& [side, port] : missing) {
        for (const QString& seen : {thrownWhenAsked(*model, side, port), thrownByData(*model, side, port)}) {
            if (!seen.isEmpty())
                return broken(seen);
        }
    }
    return kept();
}

} // namespace Plugin::Halvex::Testing
