// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/CSequence.h"

#include "support/StableIds.h"

#include <QStringList>

#include <algorithm>
#include <random>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

const SOperation& operationOf(uchar byte)
{
    static const std::vector<const SOperation*> weighted = [] {
        std::vector<const SOperation*> all;
        for (const SOperation& operation : operations())
            all.insert(all.end(), std::size_t(operation.weight), &operation);
        return all;
    }();
    return *weighted[byte % weighted.size()];
}

} // namespace

SRecord::SRecord(const uchar* bytes)
    : isStep(bytes[0] < 128)
    , hook(EHook((bytes[0] & 127) % hookCount))
    , call(1 + (bytes[0] & 127) / hookCount)
    , operation(&operationOf(bytes[1]))
    , scene(bytes[2])
    , node(bytes[3])
    , feeder(bytes[4])
    , arguments{bytes[5], bytes[6], bytes[7]}
{
}

namespace {

std::vector<SRecord> recordsOf(const QByteArray& bytes)
{
    std::vector<SRecord> records;
    for (int i = 0; i + SRecord::size <= bytes.size(); i += SRecord::size)
        records.emplace_back(reinterpret_cast<const uchar*>(bytes.constData()) + i);
    return records;
}

/// Any of \a objects, in the order of what \a numberOf says, which is the same in each run.
template <typename Object, typename NumberOf>
Object* anyOf(std::vector<Object*> objects, int choice, const NumberOf& numberOf)
{
    if (objects.empty())
        return nullptr;
    std::sort(objects.begin(), objects.end(),
              [&](const Object* left, const Object* right) { return numberOf(left) < numberOf(right); });
    return objects[std::size_t(choice) % objects.size()];
}

} // namespace

QString CSequence::run(const QByteArray& bytes, const Fault& fault)
{
    StableIds::restart();
    CSequence world;
    const std::vector<SRecord> records = recordsOf(bytes);
    for (std::size_t i = 0; i < records.size();) {
        const std::size_t first = i++;
        while (i < records.size() && !records[i].isStep)
            ++i;
        const QString wrong = world.runStep({records.begin() + long(first), records.begin() + long(i)}, fault);
        if (!wrong.isEmpty())
            return QStringLiteral("%1\nin the step of operation %2").arg(wrong).arg(first);
    }
    return world.runEnd();
}

QString CSequence::runStep(const std::vector<SRecord>& records, const Fault& fault)
{
    beginStep();
    m_waiting.assign(records.begin() + (records.front().isStep ? 1 : 0), records.end());
    m_calls.fill(0);
    m_proofs.clear();
    m_isNested = m_isThrown = false;
    STables expected = STables::of(*this);
    const SRecord& step = records.front();
    if (step.isStep && has(step.operation->part, placeOf(step))) {
        {
            const CSilence silence;
            step.operation->expect(expected, *this, placeOf(step), step.arguments);
        }
        try {
            runOperation(step);
        } catch (const SThrown&) {
            // A scene's operations pass on what foreign code throws.
        } catch (const std::logic_error&) {
            // A document has a model that is not registered.
        }
    }

    if (m_complaint.isEmpty())
        m_complaint = inconsistency();
    if (m_complaint.isEmpty())
        m_complaint = witness().complaintAfterStep(kept.size());
    if (m_complaint.isEmpty() && fault)
        m_complaint = fault(witness());
    if (!m_complaint.isEmpty() || m_isThrown || !hasService())
        return m_complaint;
    for (const Proof& proof : m_proofs) {
        if (proof && !proof())
            return QStringLiteral("an operation has done nothing");
    }
    return m_isNested ? QString() : expected.differenceOf(*this);
}

QString CSequence::runEnd()
{
    m_waiting.clear();
    beginStep();
    QString wrong = inconsistencyOfDocuments();
    if (wrong.isEmpty())
        wrong = inconsistencyOfWalks();
    if (wrong.isEmpty())
        wrong = inconsistencyOfWorkers();
    s_current = nullptr;
    destroyService();
    if (wrong.isEmpty() && CTestModels::alive() + CTestData::alive() + CWorldInfo::alive() != 0)
        wrong = QStringLiteral("something is left");
    return wrong.isEmpty() ? wrong : wrong + QStringLiteral("\nat the end");
}

void CSequence::runOperation(const SRecord& record, const void* atHand)
{
    StableIds::startOperation(++m_operations);
    const SPlace place = placeOf(record, atHand);
    if (!has(record.operation->part, place))
        return;
    ++s_runs[std::size_t(record.operation - operations().data())];
    try {
        m_proofs.push_back(record.operation->run(*this, place, record.arguments));
    } catch (...) {
        if (record.operation->isOfService && m_complaint.isEmpty())
            m_complaint = QStringLiteral("the service has thrown something");
        throw;
    }
}

void CSequence::onHook(EHook hook, const void* object)
{
    const int call = ++m_calls[std::size_t(hook)];
    const auto found = std::find_if(m_waiting.begin(), m_waiting.end(),
                                    [&](const SRecord& record) { return record.hook == hook && record.call == call; });
    if (found == m_waiting.end() || m_depth == deepest)
        return;
    const SRecord record = *found;
    m_waiting.erase(found);
    // A destructor may not throw.
    const bool isThrow = record.operation->part == EPart::Nothing;
    if (isThrow && hook >= EHook::ModelDestroyed)
        return;
    m_isNested = true;
    ++s_nested[std::size_t(hook)];
    for (CNodeScene* const scene : scenes())
        witness().hear(*scene);
    ++m_depth;
    try {
        runOperation(record, record.scene % 2 == 0 ? object : nullptr);
        --m_depth;
    } catch (...) {
        --m_depth;
        m_isThrown = true;
        witness().onThrown();
        if (hook < EHook::ModelDestroyed)
            throw;
    }
}

SPlace CSequence::placeOf(const SRecord& record, const void* atHand) const
{
    const auto ofScene = [this](const CNodeScene* scene) { return witness().numberOf(scene); };
    const auto ofNode = [this](const CNodeBase* node) { return witness().numberOf(node); };
    const auto nodesOf = [](const CNodeScene& scene) {
        std::vector<CNodeBase*> nodes;
        for (const auto& entry : scene.nodes())
            nodes.push_back(entry.second.get());
        return nodes;
    };
    SPlace place;
    place.scene = anyOf(scenes(), record.scene, ofScene);
    for (CNodeScene* const scene : scenes()) {
        const auto isNode = [atHand](const auto& entry) {
            return entry.second.get() == atHand || entry.second->nodeDataModel() == atHand;
        };
        const auto isIt = [atHand](const auto& entry) { return entry.second.get() == atHand; };
        if (scene == atHand || std::any_of(scene->nodes().begin(), scene->nodes().end(), isNode) ||
            std::any_of(scene->connections().begin(), scene->connections().end(), isIt))
            place.scene = scene;
    }
    if (!place.scene)
        return place;
    const std::vector<CNodeBase*> nodes = nodesOf(*place.scene);
    std::vector<CNodeBase*> all;
    for (const CNodeScene* const scene : scenes()) {
        const std::vector<CNodeBase*> others = nodesOf(*scene);
        all.insert(all.end(), others.begin(), others.end());
    }
    std::vector<CNodeBase*> decouplers;
    std::vector<CNodeBase*> workers;
    for (CNodeBase* const node : nodes) {
        if (node == atHand || (atHand && node->nodeDataModel() == atHand))
            place.node = node;
        if (qobject_cast<CNodeDecouplerDataModelBase*>(node->nodeDataModel()))
            decouplers.push_back(node);
        if (qobject_cast<AWorkerNodeDataModel*>(node->nodeDataModel()))
            workers.push_back(node);
        const auto* const model = dynamic_cast<CWorldModel*>(node->nodeDataModel());
        if (model && model->unique) {
            place.source = node;
            place.sourceName = model->uniqueName();
        }
    }
    std::vector<CNodeConnection*> connections;
    for (const auto& entry : place.scene->connections()) {
        connections.push_back(entry.second.get());
        if (entry.second.get() == atHand)
            place.connection = entry.second.get();
    }

    if (!place.node)
        place.node = anyOf(nodes, record.node, ofNode);
    place.feeder = anyOf(record.arguments.c % 4 == 3 ? all : nodes, record.feeder, ofNode);
    if (!place.connection)
        place.connection = anyOf(connections, record.node, [](const CNodeConnection* which) { return which->id(); });
    place.decoupler = anyOf(decouplers, record.node, ofNode);
    place.worker = anyOf(workers, record.node, ofNode);
    return place;
}

QString CSequence::textOf(const QByteArray& bytes)
{
    QStringList lines;
    for (const SRecord& record : recordsOf(bytes)) {
        const QString where = record.isStep
                                  ? QString()
                                  : QStringLiteral("  in call %1 of hook %2: ").arg(record.call).arg(int(record.hook));
        lines << QStringLiteral("%1%2, scene %3, node %4, feeder %5, %6 %7 %8")
                     .arg(where, QString::fromLatin1(record.operation->name))
                     .arg(record.scene)
                     .arg(record.node)
                     .arg(record.feeder)
                     .arg(record.arguments.a)
                     .arg(record.arguments.b)
                     .arg(record.arguments.c);
    }
    return lines.join(QLatin1Char('\n'));
}

QByteArray CSequence::random(unsigned int seed, int steps)
{
    std::mt19937 engine(seed);
    const auto upTo = [&engine](unsigned int most) { return char(engine() % (most + 1)); };
    QByteArray bytes;
    while (steps > 0) {
        // Most of what waits for a hook waits in vain; the first call of one is what comes most often.
        const bool isStep = upTo(3) == 0;
        bytes.append(isStep ? char(0) : char(128 + upTo(upTo(1) == 0 ? hookCount - 1 : 127)));
        for (int i = 1; i < SRecord::size; ++i)
            bytes.append(upTo(255));
        steps -= isStep ? 1 : 0;
    }
    return bytes;
}

QByteArray shrink(QByteArray bytes, const std::function<bool(const QByteArray&)>& fails)
{
    const auto tryInstead = [&](const QByteArray& simpler) {
        if (!fails(simpler))
            return false;
        bytes = simpler;
        return true;
    };
    // Many at once, then few.
    for (int length = int(bytes.size()) / 2 / SRecord::size * SRecord::size; length >= SRecord::size;) {
        bool isShorter = false;
        for (int at = int(bytes.size()) - length; at >= 0; at -= length)
            isShorter = tryInstead(QByteArray(bytes).remove(at, length)) || isShorter;
        if (!isShorter || length > SRecord::size)
            length = length == SRecord::size ? 0 : qMax(SRecord::size, length / 2 / SRecord::size * SRecord::size);
    }
    for (int i = 0; i < bytes.size(); ++i) {
        if (bytes.at(i) != 0 && i % SRecord::size > 1)
            tryInstead(QByteArray(bytes).replace(i, 1, QByteArray(1, '\0')));
    }
    return bytes;
}
