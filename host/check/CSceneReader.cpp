// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CSceneReader.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CSettingsCheck.h"
#include "host/check/CWordFinder.h"
#include "host/models/IHostModels.h"

#include <Halvex/graph/DocumentKeys.h>

#include <utility>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

Core::CId idOf(const SJsonNode& json)
{
    return Core::CId(json.text().toLatin1().constData());
}

const std::vector<SJsonNode*>& objectsOf(const SJsonNode* json)
{
    static const std::vector<SJsonNode*> none;
    return json && json->isArray() ? json->children : none;
}

QString typeId(const SJsonNode* converter, QLatin1String side)
{
    const SJsonNode* const type = converter ? converter->member(side) : nullptr;
    const SJsonNode* const id = type ? type->member(DocumentKeys::id) : nullptr;
    return id ? id->text() : QString();
}

} // namespace

CSceneReader::CSceneReader(CGraphCheck& graph, CNodeReader& nodes, CFaultList& faults, CWordFinder& words,
                           const IHostModels& models, SGraphNode camera)
    : m_graph(graph)
    , m_nodes(nodes)
    , m_faults(faults)
    , m_words(words)
    , m_models(models)
    , m_cameraModel(models.createCameraSource(QStringLiteral("camera"))->name())
    , m_camera(std::move(camera))
{
}

void CSceneReader::read(const SJsonNode& root)
{
    const SJsonNode* const nodes = root.member(DocumentKeys::nodes);
    for (const SJsonNode* node : objectsOf(nodes))
        addNode(*node);
    if (nodes && !m_cameraJson && !m_faults.hasUnreadValues())
        m_faults.addError(EFaultRule::Camera, *nodes,
                          tr("none of the nodes is a %1, the camera of the run").arg(shown(m_cameraModel)));
    for (const SJsonNode* connection : objectsOf(root.member(DocumentKeys::connections)))
        addConnection(*connection);
    m_graph.finish(root);
}

void CSceneReader::addNode(const SJsonNode& json)
{
    SGraphNode node;
    node.json = &json;
    node.name = QStringLiteral("nodes[%1]").arg(json.index);
    const SJsonNode* const model = json.member(DocumentKeys::model);
    if (model && model->isObject())
        readModel(*model, node);
    const SJsonNode* const id = json.member(DocumentKeys::id);
    node.label = id ? id->text() : QString();
    node.modelJson = model;
    const int number = m_graph.addNode(std::move(node));
    if (id && id->isString())
        addId(*id, number);
}

void CSceneReader::readModel(const SJsonNode& json, SGraphNode& node)
{
    const SJsonNode* const name = json.member(DocumentKeys::name);
    if (!name || !name->isString())
        return;
    node.name += QStringLiteral(" (%1)").arg(shown(name->text()));
    const SJsonNode* const isUnique = json.member(DocumentKeys::isUnique);
    if (name->text() == m_cameraModel)
        readCamera(json, node);
    else if (isUnique && isUnique->scalar.toBool())
        m_faults.addError(
            EFaultRule::UnusableModel, *isUnique,
            tr("a unique %1 is not made of a document, and there is none to refer to").arg(shown(name->text())));
    else if (!m_nodes.read(json, node))
        m_faults.addError(EFaultRule::UnusableModel, *name,
                          tr("a %1 is a source without a camera; only a %2 stands for one")
                              .arg(shown(name->text()), shown(m_cameraModel)));
}

void CSceneReader::readCamera(const SJsonNode& json, SGraphNode& node)
{
    const SJsonNode* const place = node.json;
    QString name = std::move(node.name);
    node = m_camera;
    node.json = place;
    node.name = std::move(name);
    const SJsonNode& nameJson = *json.member(DocumentKeys::name);
    if (!m_cameraJson) {
        m_cameraJson = &nameJson;
        checkCamera(json);
        return;
    }
    node.isCamera = false; // so that it is not told for a second time, as one to which nothing is wired
    node.isDoubtful = true;
    m_faults.addError(EFaultRule::Camera, nameJson,
                      tr("a second %1, after that at %2; a scene has one camera")
                          .arg(shown(m_cameraModel), m_faults.place(m_cameraJson->begin)));
}

// A run has the camera already, and takes nothing of the document for it.
void CSceneReader::checkCamera(const SJsonNode& json)
{
    const SJsonNode* const name = json.member(DocumentKeys::uniqueName);
    const auto model = m_models.createCameraSource(name ? name->text() : QStringLiteral("camera"));
    CSettingsCheck(*model, json, m_faults, m_words).check();
}

void CSceneReader::addId(const SJsonNode& json, int number)
{
    const Core::CId id = idOf(json);
    if (id == Core::CId()) {
        m_faults.addError(EFaultRule::WrongValue, json,
                          tr("%1 is no id; one is like %2")
                              .arg(shown(json.text()), shown(QStringLiteral("01234567-89ab-cdef-0123-456789abcdef"))));
        m_graph.node(number).isDoubtful = true;
        m_badIds.insert(json.text(), number);
        return;
    }
    if (m_numbers.emplace(id, number).second) {
        m_begins.emplace(id, json.begin);
        m_ids << json.text();
        return;
    }
    m_graph.node(number).isDoubtful = true;
    m_faults.addError(EFaultRule::DoubleName, json,
                      tr("a second node of this id, after that at %1").arg(m_faults.place(m_begins.at(id))));
}

void CSceneReader::addConnection(const SJsonNode& json)
{
    const SJsonNode* const converter = json.member(DocumentKeys::converter);
    SGraphConnection connection;
    connection.from = findEnd(json, DocumentKeys::outId);
    connection.to = findEnd(json, DocumentKeys::inId);
    if (connection.from < 0 && connection.to >= 0)
        m_graph.node(connection.to).isDoubtful = true;
    if (connection.from < 0 || connection.to < 0)
        return;
    connection.json = converter ? converter : &json;
    connection.outPortJson = json.member(DocumentKeys::outIndex);
    connection.inPortJson = json.member(DocumentKeys::inIndex);
    connection.outPort = connection.outPortJson ? connection.outPortJson->scalar.toDouble() : 0;
    connection.inPort = connection.inPortJson ? connection.inPortJson->scalar.toDouble() : 0;
    connection.converter = converter;
    connection.convertedFrom = typeId(converter, DocumentKeys::out);
    connection.convertedTo = typeId(converter, DocumentKeys::in);
    connection.canConvert = true;
    m_graph.connect(connection);
}

int CSceneReader::findEnd(const SJsonNode& connection, QLatin1String key)
{
    const SJsonNode* const json = connection.member(key);
    if (!json || !json->isString())
        return -1;
    const auto found = m_numbers.find(idOf(*json));
    if (found != m_numbers.end())
        return found->second;
    const auto bad = m_badIds.constFind(json->text());
    if (bad != m_badIds.constEnd())
        return *bad; // told at the node
    const QString meant = closestId(json->text());
    if (!meant.isNull())
        m_graph.node(m_numbers.at(Core::CId(meant.toLatin1().constData()))).isDoubtful = true;
    const QString hint = meant.isNull() ? QString() : didYouMean(QStringList(meant));
    m_faults.addError(EFaultRule::UnknownName, *json,
                      withHint(tr("no node has the id %1").arg(shown(json->text())), hint));
    return -1;
}

// Two ids that somebody has made are alike in many letters by chance.
QString CSceneReader::closestId(const QString& id)
{
    constexpr int most = 2; // letters that differ
    const QString closest = m_words.closest(id, m_ids);
    return editDistance(id, closest) <= most ? closest : QString();
}

} // namespace Host
