// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Signals: what is announced, when, and in which thread.

#include "testing/CSignalHook_p.h"
#include "testing/CWatchedModel_p.h"
#include "testing/Samples_p.h"
#include "testing/rules/ModelRules_p.h"

#include <Halvex/models/ASourceNodeDataModel.h>

#include <QThread>

#include <algorithm>
#include <memory>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

/// Whether the model gives the same object, or the same content, as it gave when it announced it. A model that makes a
/// new object for each question is not caught unless contents can be compared.
bool isSame(const CNodeDataPtr& announced, const CNodeDataPtr& now, const CNodeDataPtr& askedAgain,
            const SCheckOptions& options)
{
    if (announced == now || now != askedAgain)
        return true;
    if (!announced || !now)
        return false;
    const QByteArray sum = checksumOf(*now, options);
    return !sum.isEmpty() && sum == checksumOf(*announced, options);
}

std::vector<CNodeDataPtr> outputsOf(const CWatchedModel& model)
{
    std::vector<CNodeDataPtr> outputs;
    outputs.reserve(std::size_t(model.outPorts()));
    for (NodePortIndex port = 0; port < model.outPorts(); ++port)
        outputs.push_back(model->outData(port));
    return outputs;
}

/// Whether \a now is other data than \a before. A new object for each question is new data if its content is new.
bool isNew(const CNodeDataPtr& before, const CNodeDataPtr& now, const CNodeDataPtr& askedAgain,
           const SCheckOptions& options)
{
    if (!now || now == before)
        return false;
    if (!before || now == askedAgain)
        return true;
    return askedAgain && checksumOf(*now, options) == checksumOf(*askedAgain, options) &&
           checksumOf(*now, options) != checksumOf(*before, options);
}

/// A port whose output is new, and was not announced since; -1 if there is none.
NodePortIndex unannouncedPort(const CWatchedModel& model, const std::vector<CNodeDataPtr>& before,
                              std::size_t updatesBefore, const SCheckOptions& options)
{
    const auto firstUpdate = model.updates().begin() + std::ptrdiff_t(updatesBefore);
    for (NodePortIndex port = 0; port < model.outPorts(); ++port) {
        const bool isAnnounced =
            std::any_of(firstUpdate, model.updates().end(),
                        [port](const CWatchedModel::SUpdate& update) { return update.port == port; });
        if (!isAnnounced && isNew(before[std::size_t(port)], model->outData(port), model->outData(port), options))
            return port;
    }
    return -1;
}

QString shownDifference(const CNodeDataPtr& announced)
{
    return announced ? QStringLiteral("gave other data than it gives now") : QStringLiteral("was still empty");
}

} // namespace

SOutcome announcesPortsThatExist(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    model.use();
    model.feedForeign();
    model.settle();
    const auto isMissing = [&](NodePortIndex port) { return port < 0 || port >= model.outPorts(); };
    for (const CWatchedModel::SUpdate& update : model.updates()) {
        if (isMissing(update.port))
            return broken(QStringLiteral("dataUpdated(%1), with %2 outputs").arg(update.port).arg(model.outPorts()));
    }
    for (const NodePortIndex port : model.invalidated()) {
        if (isMissing(port))
            return broken(QStringLiteral("dataInvalidated(%1), with %2 outputs").arg(port).arg(model.outPorts()));
    }
    return kept();
}

SOutcome storesBeforeItAnnounces(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    model.feed(1);
    const bool isAtOnce = !model.updates().empty();
    model.settle();
    if (!isAtOnce && !model.updates().empty())
        model.waitLong(); // it works elsewhere, and may store at any time
    for (NodePortIndex port = 0; port < model.outPorts(); ++port) {
        const CNodeDataPtr now = model->outData(port);
        const CNodeDataPtr askedAgain = model->outData(port);
        const CWatchedModel::SUpdate* last = nullptr;
        for (const CWatchedModel::SUpdate& update : model.updates())
            last = update.port == port ? &update : last;
        if (last && !isSame(last->data, now, askedAgain, subject.options))
            return broken(
                QStringLiteral("when dataUpdated(%1) came, outData(%1) %2").arg(port).arg(shownDifference(last->data)));
    }
    return kept();
}

SOutcome announcesWhatItStores(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    for (int number = 1; number <= sampleCount; ++number) {
        const std::vector<CNodeDataPtr> before = outputsOf(model);
        const std::size_t updatesBefore = model.updates().size();
        model.feed(number);
        model.settle();
        if (unannouncedPort(model, before, updatesBefore, subject.options) < 0)
            continue;
        model.waitLong(); // it may have been stored just now, in another thread
        const NodePortIndex port = unannouncedPort(model, before, updatesBefore, subject.options);
        if (port >= 0)
            return broken(QStringLiteral("outData(%1) gives new data after data had come, and dataUpdated(%1) was not "
                                         "emitted within %2 ms")
                              .arg(port)
                              .arg(subject.options.patience.count()));
    }
    return kept();
}

SOutcome sourceAnnouncesInTheGraphsThread(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    if (!model.source())
        return kept();
    const CNodeDataPtr data = model.makeData(0, 1);
    if (!data)
        return leftOut(model.lacks());
    const CNodeDataEntry entry = model.source()->dataEntry();
    CNodeDataFlowProxy* const proxy = model.source()->getDataFlowProxy();
    if (!proxy)
        return broken(QStringLiteral("it has no proxy any more"));
    const std::unique_ptr<QThread> camera(QThread::create([&] {
        entry.setData(data);
        proxy->setData(data);
    }));
    camera->start();
    camera->wait();
    model.settle();
    if (model.spokeElsewhere())
        return broken(QStringLiteral("data that another thread put in was announced in that thread"));
    return model.updates().empty() ? broken(QStringLiteral("data that another thread put in was not announced"))
                                   : kept();
}

SOutcome askingAnnouncesNothing(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    model.use();
    model.settle();
    // What is only delivered now need not come from a question: a source may have a clock of its own.
    int count = 0;
    std::vector<std::unique_ptr<CSignalHook>> hooks;
    for (const QMetaMethod& signal : signalsOf(*model))
        hooks.push_back(std::make_unique<CSignalHook>(*model, signal, [&count] { ++count; }));
    for (NodePortIndex port = 0; port < model.outPorts(); ++port)
        model->outData(port);
    if (count > 0)
        return broken(QStringLiteral("outData() emitted a signal"));
    model->name();
    model->caption();
    model->save();
    model->validationState();
    if (count > 0)
        return broken(QStringLiteral("name(), caption(), save() or validationState() emitted a signal"));
    return kept();
}

SOutcome endsWhatItBegins(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (lacks.isEmpty()) {
        model.feed(1);
        model.feed(2);
        model.settle();
        model.feed(sampleCount + 1);
    }
    model.empty();
    model.settle();
    if (model.finishedUnasked())
        return broken(QStringLiteral("computingFinished() came without a computingStarted() before it"));
    if (model.started() == model.finished())
        return keptUnless(lacks);
    return broken(QStringLiteral("computingStarted() came %1 times and computingFinished() %2 times")
                      .arg(model.started())
                      .arg(model.finished()));
}

} // namespace Plugin::Halvex::Testing
