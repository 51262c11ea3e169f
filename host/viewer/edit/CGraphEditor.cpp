// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CGraphEditor.h"

#include "host/base/Attempt.h"
#include "host/models/ModelSettings.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/edit/CMoveStep.h"
#include "host/viewer/edit/CSettingStep.h"
#include "host/viewer/edit/CStructureStep.h"
#include "host/viewer/edit/PortFit.h"

#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

#include <QJsonDocument>

#include <set>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

bool isUnique(const CNodeBase& node)
{
    auto* const model = qobject_cast<ANodeDataModel*>(node.nodeDataModel());
    return model && model->isUnique();
}

SModelSetting settingOf(const QObject& model, const QString& name)
{
    for (const SModelSetting& each : settingsOf(model)) {
        if (each.name == name)
            return each;
    }
    return {};
}

} // namespace

CGraphEditor::CGraphEditor(CNodeScene& scene, INodeService& service, QObject* parent)
    : QObject(parent)
    , m_scene(&scene)
    , m_service(service)
{
    connect(&scene, &CNodeScene::nodeDeleted, this, &CGraphEditor::onNodeDeleted);
}

CGraphEditor::~CGraphEditor() = default;

CNodeScene* CGraphEditor::scene() const
{
    return m_scene;
}

CNodeBase* CGraphEditor::node(const Core::CId& id) const
{
    return m_scene ? nodeOf(*m_scene, id) : nullptr;
}

std::shared_ptr<CNodeDataModelRegistry> CGraphEditor::registry() const
{
    return m_service.registry();
}

void CGraphEditor::setPositions(const NodePositions& positions)
{
    for (auto each = positions.begin(); each != positions.end(); ++each)
        m_positions.insert(each.key(), onGrid(each.value()));
    Q_EMIT positionsChanged();
}

Core::CId CGraphEditor::addNode(const QString& modelName, QPointF position)
{
    const Core::CId id = makeNode(modelName, position);
    if (id != Core::CId())
        recordAdded([caption = captionOf(id)] { return tr("Add '%1'").arg(caption()); }, {id});
    return id;
}

Core::CId CGraphEditor::addConnectedNode(const QString& modelName, QPointF position, const SPort& out,
                                         const QMap<QString, QString>& settings, const StepText& text)
{
    const Core::CId id = makeNode(modelName, position);
    if (id == Core::CId())
        return {};
    for (auto each = settings.begin(); each != settings.end(); ++each)
        applySetting(id, each.key(), each.value());
    makeConnection(out, {id, ENodePortType::In, 0});
    if (!node(id))
        return {}; // who hears of it may remove it
    recordAdded(text, {id});
    return id;
}

Core::CId CGraphEditor::makeNode(const QString& modelName, QPointF position)
{
    if (!m_scene)
        return {};
    Core::CId id;
    const QString error = attempt(modelName, [&] {
        std::unique_ptr<CNodeDataModel> model = registry()->create(modelName);
        auto* const named = qobject_cast<ANodeDataModel*>(model.get());
        if (!model || (named && named->isUnique()))
            return false;
        CNodeBase& made = m_scene->createNode(std::move(model));
        if (&made != &CNodeScene::noNode())
            id = made.id();
        return id != Core::CId();
    });
    if (!node(id)) {
        refuse(error.isEmpty() ? tr("'%1' was removed at once").arg(modelName)
                               : tr("'%1' cannot be added: %2").arg(modelName, error));
        return {};
    }
    setPositions({{id.toString(), position}});
    return id;
}

bool CGraphEditor::remove(const std::vector<Core::CId>& nodes, const std::vector<Core::CId>& connections)
{
    if (!m_scene)
        return false;
    std::vector<Core::CId> removable;
    for (const Core::CId& id : nodes) {
        if (!node(id))
            continue;
        if (isUnique(*node(id)))
            refuse(tr("'%1' stays: it is what the scene was made for").arg(captionOf(id)()));
        else
            removable.push_back(id);
    }
    SGraphPart part = partOf(*m_scene, removable, m_positions);
    for (const Core::CId& id : connections) {
        const auto found = m_scene->connections().find(id);
        if (found == m_scene->connections().end())
            continue;
        for (const QJsonObject& json : partOf(*found->second).connections) {
            if (std::find(part.connections.begin(), part.connections.end(), json) == part.connections.end())
                part.connections.push_back(json);
        }
    }
    if (part.nodes.empty() && part.connections.empty())
        return false;
    const StepText text = removalText(part);
    exchange(&part, {});
    m_undoStack.push(new CStructureStep(text, *this, part, {}));
    return true;
}

bool CGraphEditor::connectPorts(const SPort& out, const SPort& in)
{
    const SGraphPart part = makeConnection(out, in);
    if (part.connections.empty())
        return false;
    const auto text = [from = captionOf(out.node), to = captionOf(in.node)] {
        return tr("Connect '%1' to '%2'").arg(from(), to());
    };
    m_undoStack.push(new CStructureStep(text, *this, {}, part));
    return true;
}

SGraphPart CGraphEditor::makeConnection(const SPort& out, const SPort& in)
{
    if (!m_scene)
        return {};
    if (out.side != ENodePortType::Out || !fits(*m_scene, out, in)) {
        refuse(tr("These ports do not fit"));
        return {};
    }
    std::shared_ptr<CNodeConnection> made;
    const QString error = attempt(tr("The connection"), [&] {
        made = m_scene->createConnection(*node(in.node), in.index, *node(out.node), out.index,
                                         converterOf(*m_scene, out, in));
        return made != nullptr;
    });
    const SGraphPart part = made ? partOf(*made) : SGraphPart();
    if (part.connections.empty())
        refuse(error.isEmpty() ? tr("The connection was removed at once") : error);
    return part;
}

bool CGraphEditor::setSetting(const Core::CId& id, const QString& name, const QString& value, int gesture)
{
    if (!node(id))
        return false;
    const QPointer<CNodeDataModel> model(node(id)->nodeDataModel());
    const StepText caption = captionOf(id);
    const QString from = settingOf(*model, name).value;
    const QString error = Host::setSetting(*model, name, value);
    if (!error.isEmpty())
        return refuse(error);
    const SModelSetting set = model ? settingOf(*model, name) : SModelSetting();
    if (!model || set.value == from)
        return true;
    const auto text = [set, caption] {
        const QString words = isChoice(set) ? wordsOf(set.value) : set.value;
        return tr("Set %1 of '%2' to %3").arg(wordsOf(set.name), caption(), words);
    };
    m_undoStack.push(new CSettingStep(text, *this, {id, name, from, set.value, gesture}));
    return true;
}

void CGraphEditor::moveNodes(const NodePositions& positions)
{
    NodePositions from;
    NodePositions to;
    for (auto each = positions.begin(); each != positions.end(); ++each) {
        const QPointF position = onGrid(each.value());
        if (m_positions.value(each.key()) == position && m_positions.contains(each.key()))
            continue;
        from.insert(each.key(), m_positions.value(each.key()));
        to.insert(each.key(), position);
    }
    if (to.isEmpty())
        return;
    const auto text = [count = to.size(), caption = captionOf(Core::CId(to.firstKey().toLatin1().constData()))] {
        return count > 1 ? tr("Move %n nodes", nullptr, count) : tr("Move '%1'").arg(caption());
    };
    m_undoStack.push(new CMoveStep(text, *this, from, to));
}

int CGraphEditor::exchange(SGraphPart* out, const SGraphPart& in)
{
    if (!m_scene) {
        refuse(tr("The scene is gone"));
        return 0;
    }
    takeOut(*m_scene, out, m_positions);
    // Before the nodes: whoever draws them knows at once where.
    for (auto each = in.positions.begin(); each != in.positions.end(); ++each)
        m_positions.insert(each.key(), each.value());
    const int missing = m_scene ? putBack(*m_scene, in) : 0;
    if (!in.positions.isEmpty())
        Q_EMIT positionsChanged();
    if (missing > 0)
        refuse(tr("Not everything could be brought back: %n parts are missing", nullptr, missing));
    return missing;
}

void CGraphEditor::applySetting(const Core::CId& id, const QString& name, const QString& value)
{
    const CNodeBase* const found = node(id);
    const QString error =
        found ? Host::setSetting(*found->nodeDataModel(), name, value) : tr("The node of this step is gone");
    if (!error.isEmpty())
        refuse(error);
}

void CGraphEditor::recordAdded(const StepText& text, const std::vector<Core::CId>& nodes)
{
    m_undoStack.push(new CStructureStep(text, *this, {}, partOf(*m_scene, nodes, m_positions)));
}

StepText CGraphEditor::captionOf(const Core::CId& id) const
{
    const CNodeBase* const found = node(id);
    return found ? captionTeller(*found->nodeDataModel()) : [] { return QString(); };
}

StepText CGraphEditor::removalText(const SGraphPart& part) const
{
    const StepText caption = part.nodes.empty() ? StepText() : captionOf(idsIn(part).front());
    return [nodes = int(part.nodes.size()), connections = int(part.connections.size()), caption] {
        if (nodes == 0)
            return connections == 1 ? tr("Delete a connection") : tr("Delete %n connections", nullptr, connections);
        const QString text = nodes == 1 ? tr("Delete '%1'").arg(caption()) : tr("Delete %n nodes", nullptr, nodes);
        if (connections == 0)
            return text;
        return connections == 1 ? tr("%1 with a connection").arg(text)
                                : tr("%1 with %n connections", nullptr, connections).arg(text);
    };
}

void CGraphEditor::retranslateSteps()
{
    for (int i = 0; i < m_undoStack.count(); ++i) {
        // Only this object pushes steps, and the stack gives them out as constant.
        auto* const step = const_cast<QUndoCommand*>(m_undoStack.command(i));
        static_cast<AGraphStep*>(step)->retranslate();
    }
}

void CGraphEditor::onNodeDeleted(CNodeBase& node)
{
    m_positions.remove(node.id().toString());
}

bool CGraphEditor::refuse(const QString& reason)
{
    Q_EMIT refused(reason);
    return false;
}

} // namespace Host
