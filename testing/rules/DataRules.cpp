// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Data: what is put in, in which order ever, and what comes out.

#include "testing/CWatchedModel_p.h"
#include "testing/rules/ModelRules_p.h"
#include <Halvex/testing/CForeignData.h>

#include <functional>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

/// Puts data on every input, one after the other; what the first that throws does.
SOutcome putOnEveryInput(const CWatchedModel& model, const QString& what,
                         const std::function<CNodeDataPtr(NodePortIndex)>& make)
{
    for (NodePortIndex port = 0; port < model.inPorts(); ++port) {
        const QString thrown = thrownBy([&] { model->setInData(make(port), port); });
        if (!thrown.isEmpty())
            return broken(
                QStringLiteral("setInData() of %1 on %2 %3").arg(what, shownPort(ENodePortType::In, port), thrown));
    }
    return kept();
}

/// Asks every output; what the first that throws does.
SOutcome askEveryOutput(const CWatchedModel& model, const QString& when)
{
    for (NodePortIndex port = 0; port < model.outPorts(); ++port) {
        const QString thrown = thrownBy([&] { model->outData(port); });
        if (!thrown.isEmpty())
            return broken(QStringLiteral("outData(%1) %2 %3").arg(QString::number(port), when, thrown));
    }
    return kept();
}

CNodeDataPtr makeEmpty(NodePortIndex)
{
    return {};
}

CNodeDataPtr makeForeign(NodePortIndex)
{
    return CNodeDataPtr(new CForeignData);
}

/// Data whose content the rule may compare, as it was when it was handed on.
struct SWitness
{
    CNodeDataPtr data;
    QByteArray sum;
};

SWitness witnessOf(const CNodeDataPtr& data, const SCheckOptions& options)
{
    return {data, data && options.checksum ? options.checksum(*data) : QByteArray()};
}

bool hasChanged(const SWitness& witness, const SCheckOptions& options)
{
    return !witness.sum.isEmpty() && options.checksum(*witness.data) != witness.sum;
}

std::vector<SWitness> outputsOf(const CWatchedModel& model, const SCheckOptions& options)
{
    std::vector<SWitness> outputs;
    outputs.reserve(std::size_t(model.outPorts()));
    for (NodePortIndex port = 0; port < model.outPorts(); ++port)
        outputs.push_back(witnessOf(model->outData(port), options));
    return outputs;
}

} // namespace

SOutcome answersBeforeData(const SModelSubject& subject)
{
    return askEveryOutput(CWatchedModel(subject), QStringLiteral("of a new model"));
}

SOutcome takesEmptyDataFirst(const SModelSubject& subject)
{
    const CWatchedModel model(subject);
    return putOnEveryInput(model, QStringLiteral("empty data, before any other,"), &makeEmpty);
}

SOutcome takesItsData(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    SOutcome outcome = putOnEveryInput(model, QStringLiteral("data of its type"),
                                       [&](NodePortIndex port) { return model.makeData(port, 1); });
    if (outcome.kind == SOutcome::EKind::Kept)
        outcome = askEveryOutput(model, QStringLiteral("after data of its type"));
    if (outcome.kind != SOutcome::EKind::Kept)
        return outcome;
    const QString thrown = thrownBy([&] {
        model.feed(2);
        model.settle();
    });
    return thrown.isEmpty() ? kept() : broken(QStringLiteral("what it does with data of its type %1").arg(thrown));
}

SOutcome takesEmptyDataLater(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    model.feed(1);
    model.settle();
    SOutcome outcome = putOnEveryInput(model, QStringLiteral("empty data, after data,"), &makeEmpty);
    if (outcome.kind == SOutcome::EKind::Kept)
        outcome = askEveryOutput(model, QStringLiteral("after empty data"));
    if (outcome.kind != SOutcome::EKind::Kept)
        return outcome;
    const QString thrown = thrownBy([&] {
        model.feed(2);
        model.settle();
    });
    return thrown.isEmpty() ? kept() : broken(QStringLiteral("what it does with data after empty data %1").arg(thrown));
}

SOutcome takesForeignData(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const SOutcome outcome = putOnEveryInput(model, QStringLiteral("data of another type"), &makeForeign);
    model.settle();
    return outcome;
}

SOutcome givesTheAnnouncedType(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    model.feed(1);
    model.settle();
    for (NodePortIndex port = 0; port < model.outPorts(); ++port) {
        const CNodeDataPtr data = model->outData(port);
        const QString announced = model->dataType(ENodePortType::Out, port).id;
        if (data && data->type().id != announced)
            return broken(QStringLiteral("%1 is announced as \"%2\" and gave \"%3\"")
                              .arg(shownPort(ENodePortType::Out, port), announced, data->type().id));
    }
    return kept();
}

SOutcome leavesItsInputAlone(const SModelSubject& subject)
{
    if (!subject.options.checksum)
        return leftOut(withoutChecksum());
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    std::vector<SWitness> inputs;
    for (NodePortIndex entry = 0; entry < model.entries(); ++entry) {
        inputs.push_back(witnessOf(model.makeData(entry, 1), subject.options));
        model.put(inputs.back().data, entry);
    }
    model.settle();
    for (std::size_t entry = 0; entry < inputs.size(); ++entry) {
        if (hasChanged(inputs[entry], subject.options))
            return broken(QStringLiteral("what was put on %1 has another content now")
                              .arg(model.shownEntry(NodePortIndex(entry))));
    }
    return kept();
}

SOutcome leavesItsOutputAlone(const SModelSubject& subject)
{
    if (!subject.options.checksum)
        return leftOut(withoutChecksum());
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    model.feed(1);
    model.settle();
    const std::vector<SWitness> outputs = outputsOf(model, subject.options);
    model.feed(2);
    model.settle();
    for (std::size_t port = 0; port < outputs.size(); ++port) {
        if (hasChanged(outputs[port], subject.options))
            return broken(QStringLiteral("what %1 gave has another content since the next data came")
                              .arg(shownPort(ENodePortType::Out, NodePortIndex(port))));
    }
    return kept();
}

SOutcome saysWhatIsWrong(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    model.feedForeign();
    model.settle();
    if (model->validationState() == ENodeValidationState::Valid || !model->validationMessage().isEmpty())
        return kept();
    return broken(
        QStringLiteral("after data of another type validationState() is not Valid, and validationMessage() is "
                       "empty"));
}

} // namespace Plugin::Halvex::Testing
