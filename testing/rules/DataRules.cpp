// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Data: what is put in, in which order ever, and what comes out.

#include "testing/CWatchedModel_p.h"
#include "testing/Samples_p.h"
#include "testing/rules/ModelRules_p.h"
#include <Halvex/testing/CForeignData.h>

#include <algorithm>
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

/// Data that was handed on, and what it was like then.
class CWitnesses
{
public:
    explicit CWitnesses(const SCheckOptions& options)
        : m_options(options)
    {
    }

    void add(NodePortIndex port, const CNodeDataPtr& data)
    {
        if (!data)
            return;
        const QByteArray sum = checksumOf(*data, m_options);
        if (sum.isEmpty())
            m_lacking = noChecksumOf(data->type());
        else
            m_all.push_back({port, data, sum});
    }

    /// The port of data that has another content now; -1 if none has.
    NodePortIndex changedPort() const
    {
        const auto changed = std::find_if(m_all.begin(), m_all.end(), [this](const SWitness& witness) {
            return checksumOf(*witness.data, m_options) != witness.sum;
        });
        return changed == m_all.end() ? -1 : changed->port;
    }

    /// Why some cannot be compared; empty if all can.
    QString lacking() const { return m_lacking; }

private:
    struct SWitness
    {
        NodePortIndex port;
        CNodeDataPtr data;
        QByteArray sum;
    };

    const SCheckOptions& m_options;
    std::vector<SWitness> m_all;
    QString m_lacking;
};

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
    for (int number = 1; number <= sampleCount; ++number) {
        const QString what =
            model.entries() == 1 ? shownSample(model.makeData(0, number)) : QStringLiteral("data of its type");
        SOutcome outcome =
            putOnEveryInput(model, what, [&](NodePortIndex port) { return model.makeData(port, number); });
        if (outcome.kind == SOutcome::EKind::Kept)
            outcome = askEveryOutput(model, QStringLiteral("after %1").arg(what));
        if (outcome.kind != SOutcome::EKind::Kept)
            return outcome;
        const QString thrown = thrownBy([&] {
            model.feed(number);
            model.settle();
        });
        if (!thrown.isEmpty())
            return broken(QStringLiteral("what it does with %1 %2").arg(what, thrown));
    }
    return kept();
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
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    CWitnesses inputs(subject.options);
    for (int number = 1; number <= sampleCount; ++number) {
        const std::vector<CNodeDataPtr> data = model.makeData(number);
        for (NodePortIndex entry = 0; entry < model.entries(); ++entry)
            inputs.add(entry, data[std::size_t(entry)]);
        model.feed(data);
        model.settle();
        const NodePortIndex changed = inputs.changedPort();
        if (changed >= 0)
            return broken(QStringLiteral("what was put on %1 has another content now").arg(model.shownEntry(changed)));
    }
    return keptUnless(inputs.lacking());
}

SOutcome leavesItsOutputAlone(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    CWitnesses outputs(subject.options);
    for (int number = 1; number <= sampleCount; ++number) {
        model.feed(number);
        model.settle();
        const NodePortIndex changed = outputs.changedPort();
        if (changed >= 0)
            return broken(QStringLiteral("what %1 gave has another content since the next data came")
                              .arg(shownPort(ENodePortType::Out, changed)));
        for (NodePortIndex port = 0; port < model.outPorts(); ++port)
            outputs.add(port, model->outData(port));
    }
    return keptUnless(outputs.lacking());
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
