// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Life and death: when a model goes, what it leaves behind, how long it keeps others waiting.

#include "testing/CSignalHook_p.h"
#include "testing/CWatchedModel_p.h"
#include "testing/PropertyValues_p.h"
#include "testing/SLeftovers_p.h"
#include "testing/rules/ModelRules_p.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QPointer>
#include <QThread>
#include <QWeakPointer>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

/// A model in a scene, which is removed as soon as it emits \a signal.
class CDoomedNode
{
public:
    CDoomedNode(const SModelSubject& subject, const QMetaMethod& signal)
        : m_scene(std::make_shared<CNodeDataModelRegistry>(), {}, nullptr)
        , m_node(&m_scene.createNode(subject.creator()))
        , m_model(m_node->nodeDataModel())
        , m_hook(*m_model, signal, [this] { remove(); })
    {
        QObject::connect(m_model, &CNodeDataModel::dataUpdated, &m_hook, [this] { m_hasSpoken = true; });
    }

    CNodeDataModel* model() const { return m_isRemoved ? nullptr : m_model.data(); }
    CNodeBase& node() const { return *m_node; }

    /// Whether the model has announced data.
    bool hasSpoken() const { return m_hasSpoken; }

private:
    void remove()
    {
        if (m_isRemoved)
            return;
        m_isRemoved = true;
        m_scene.removeNode(*m_node);
    }

    CNodeScene m_scene;
    CNodeBase* m_node;
    QPointer<CNodeDataModel> m_model;
    bool m_isRemoved = false;
    bool m_hasSpoken = false;
    CSignalHook m_hook;
};

/// Everything that may make the model emit something, as long as it is there.
void provoke(const CDoomedNode& doomed, const SModelSubject& subject)
{
    const CWatchedModel example(subject); // makes data
    const auto deliver = [&](int number) {
        for (NodePortIndex port = 0; port < example.inPorts() && doomed.model(); ++port)
            doomed.node().propagateData(number > 0 ? example.makeData(port, number) : CNodeDataPtr(), port);
    };
    deliver(1);
    auto* const source = dynamic_cast<ASourceNodeDataModel*>(doomed.model());
    if (source && source->getDataFlowProxy())
        source->getDataFlowProxy()->setData(example.makeData(0, 1));
    constexpr int longestWait = 50;
    const QDeadlineTimer deadline(std::min<qint64>(longestWait, subject.options.patience.count()));
    const bool mayAnswerLater = example.outPorts() > 0 && example.lacks().isEmpty();
    while (mayAnswerLater && doomed.model() && !doomed.hasSpoken() && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    deliver(0);
    if (doomed.model()) {
        for (const QMetaProperty& property : settingsOf(*doomed.model())) {
            if (doomed.model())
                changeProperty(*doomed.model(), property);
        }
    }
    if (doomed.model())
        doomed.model()->restore(changedDocument(subject));
}

bool isKeptByItsMaker(const CWatchedModel& model, NodePortIndex entry)
{
    const QWeakPointer<CNodeData> data = model.makeData(entry, 1);
    return !data.isNull();
}

/// How long each of \a rounds calls took, summed up.
SCallTimes timesOf(const QString& name, int rounds, const std::function<void(int)>& call)
{
    std::vector<qint64> times;
    times.reserve(std::size_t(rounds));
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        call(round);
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    const std::size_t count99 = (times.size() * 99 + 99) / 100; // 99 of 100 calls
    return {name, times[times.size() / 2], times[count99 - 1], times.back()};
}

std::vector<SCallTimes> measureCalls(const SModelSubject& subject)
{
    constexpr int rounds = 200;
    CWatchedModel model(subject);
    const bool hasData = model.lacks().isEmpty();
    std::vector<SCallTimes> times;
    std::vector<std::unique_ptr<CNodeDataModel>> created; // they go when nothing is measured
    created.reserve(rounds);
    times.push_back(timesOf(QStringLiteral("create"), rounds, [&](int) { created.push_back(subject.creator()); }));
    created.clear();
    times.push_back(timesOf(QStringLiteral("caption"), rounds, [&](int) { model->caption(); }));
    if (model.inPorts() > 0) {
        std::vector<CNodeDataPtr> data;
        data.reserve(rounds);
        for (int round = 0; round < rounds; ++round)
            data.push_back(hasData ? model.makeData(0, round) : CNodeDataPtr());
        times.push_back(timesOf(QStringLiteral("setInData"), rounds,
                                [&](int round) { model->setInData(std::move(data[std::size_t(round)]), 0); }));
    }
    if (model.outPorts() > 0)
        times.push_back(timesOf(QStringLiteral("outData"), rounds, [&](int) { model->outData(0); }));
    times.push_back(timesOf(QStringLiteral("save"), rounds, [&](int) { model->save(); }));
    const QJsonObject document = model->save();
    times.push_back(timesOf(QStringLiteral("restore"), rounds, [&](int) { model->restore(document); }));
    return times;
}

} // namespace

SOutcome goesWhileItComputes(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (lacks.isEmpty()) {
        model.feed(1);
        model.feed(2);
    }
    QElapsedTimer timer;
    timer.start();
    model.destroy();
    const bool isLate = timer.elapsed() > subject.options.longestDestruction.count();
    QCoreApplication::processEvents(); // what it has posted must not find it
    if (isLate)
        return broken(
            QStringLiteral("its destructor took longer than %1 ms").arg(subject.options.longestDestruction.count()));
    return keptUnless(lacks);
}

SOutcome goesInItsOwnSignals(const SModelSubject& subject)
{
    // What can be told here is a crash, and a crash tells itself.
    for (const QMetaMethod& signal : signalsOf(*subject.creator())) {
        const CDoomedNode doomed(subject, signal);
        provoke(doomed, subject);
    }
    QCoreApplication::processEvents();
    return kept();
}

SOutcome letsGoOfItsData(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (!lacks.isEmpty())
        return leftOut(lacks);
    std::vector<QWeakPointer<CNodeData>> given;
    given.reserve(std::size_t(model.entries()));
    for (NodePortIndex entry = 0; entry < model.entries(); ++entry) {
        if (isKeptByItsMaker(model, entry))
            return leftOut(QStringLiteral("SCheckOptions::makeData keeps the data that it makes"));
        const CNodeDataPtr data = model.makeData(entry, 2);
        given.emplace_back(data);
        model.put(data, entry);
    }
    model.destroy();
    const auto isHeld = [&given] {
        return std::any_of(given.begin(), given.end(), [](const auto& data) { return !data.isNull(); });
    };
    const QDeadlineTimer deadline(subject.options.longestDestruction);
    while (isHeld() && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return isHeld() ? broken(QStringLiteral("data that it was given is still there when it is gone")) : kept();
}

SOutcome leavesNothingBehind(const SModelSubject& subject)
{
    const int count = subject.options.instances;
    QString left;
    const QString thrown = thrownBy([&] {
        left = leftBehindBy(count, [&] {
            std::vector<std::unique_ptr<CNodeDataModel>> models;
            models.reserve(std::size_t(count));
            for (int i = 0; i < count; ++i)
                models.push_back(subject.creator());
            models.clear();
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        });
    });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("to make %1 models at once %2").arg(count).arg(thrown));
    return left.isEmpty() ? kept()
                          : broken(QStringLiteral("%1 models that came and went left %2").arg(count).arg(left));
}

SOutcome answersInTime(const SModelSubject& subject)
{
    *subject.times = measureCalls(subject);
    const qint64 limit = std::chrono::nanoseconds(subject.options.longestCall).count();
    if (limit == 0)
        return kept();
    for (const SCallTimes& times : *subject.times) {
        if (times.percentile99 > limit)
            return broken(QStringLiteral("one of 100 calls of %1() takes longer than %2 microseconds")
                              .arg(times.call)
                              .arg(subject.options.longestCall.count()));
    }
    return kept();
}

} // namespace Plugin::Halvex::Testing
