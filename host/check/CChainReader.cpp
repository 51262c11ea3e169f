// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CChainReader.h"

#include "host/base/AnyCamera.h"
#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"

#include <Halvex/graph/DocumentKeys.h>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr QLatin1String sourcesKey = DocumentKeys::makeKey("unique_sources");
constexpr QLatin1String targetsKey = DocumentKeys::makeKey("connection");
constexpr QLatin1String indexInKey = DocumentKeys::makeKey("index_in");
constexpr QLatin1String indexOutKey = DocumentKeys::makeKey("index _out"); // the blank is part of it

// The items of an array. What stands where an array belongs was told, and is taken for its only item.
std::vector<const SJsonNode*> itemsOf(const SJsonNode* json)
{
    if (!json)
        return {};
    return json->isArray() ? std::vector<const SJsonNode*>(json->children.begin(), json->children.end())
                           : std::vector<const SJsonNode*>{json};
}

} // namespace

CChainReader::CChainReader(CGraphCheck& graph, CNodeReader& nodes, CFaultList& faults, CWordFinder& words,
                           const SCheckOptions& options, SGraphNode camera)
    : m_graph(graph)
    , m_nodes(nodes)
    , m_faults(faults)
    , m_words(words)
    , m_options(options)
    , m_camera(std::move(camera))
{
}

void CChainReader::read(const SJsonNode& root)
{
    for (const QString& camera : m_options.cameras)
        addCamera(camera);
    const int first = m_cameras.size();
    for (const SJsonNode* element : itemsOf(&root))
        addElement(*element);
    if (m_options.cameras.isEmpty())
        findCameras(root);
    for (const SJsonNode* element : itemsOf(&root))
        connectElement(*element, first + int(element->index));
    checkUnknownSources();
    if (m_cameras.isEmpty() && m_unknown.empty() && !m_faults.hasUnreadValues())
        m_faults.addError(EFaultRule::Camera, root, tr("no element has a camera as its source"));
    m_graph.finish(root);
}

void CChainReader::addCamera(const QString& name)
{
    SGraphNode node = m_camera;
    node.name = tr("the camera %1").arg(shown(name));
    node.label = name;
    m_cameras.insert(name, m_graph.addNode(std::move(node)));
}

void CChainReader::addElement(const SJsonNode& element)
{
    SGraphNode node;
    const SJsonNode* const label = element.member(DocumentKeys::name);
    node.json = label ? label : &element;
    node.name = label && label->isString() ? shown(label->text()) : pathOf(element);
    node.label = label ? label->text() : QString();
    const SJsonNode* const model = element.member(DocumentKeys::model);
    node.modelJson = model;
    if (model && model->isObject() && !m_nodes.read(*model, node)) {
        const SJsonNode& name = *model->member(DocumentKeys::name);
        m_faults.addError(EFaultRule::UnusableModel, name,
                          tr("a %1 of its own; frames come from the cameras of the run, named in %2")
                              .arg(shown(name.text()), shown(sourcesKey)));
    }
    addLabel(element, m_graph.addNode(std::move(node)));
}

void CChainReader::addLabel(const SJsonNode& element, int number)
{
    const SJsonNode* const json = element.member(DocumentKeys::name);
    if (!json || !json->isString() || json->text().isEmpty())
        return;
    const QString label = json->text();
    if (m_cameras.contains(label) || label == anyCamera) {
        const QString taken = label == anyCamera ? tr("%1 stands for any camera") : tr("%1 is the name of a camera");
        m_faults.addError(EFaultRule::DoubleName, *json, taken.arg(shown(label)));
    } else if (m_labels.contains(label)) {
        m_faults.addError(
            EFaultRule::DoubleName, *json,
            tr("a second element %1, after that at %2").arg(shown(label), m_faults.place(m_labelBegins.value(label))));
    } else {
        m_labels.insert(label, number);
        m_labelBegins.insert(label, json->begin);
        m_labelList << label;
        return;
    }
    m_graph.node(number).isDoubtful = true; // what feeds it may have been meant for it
}

// Without a list of cameras, they are what no element is. A name that looks like a label is doubtful, and no more: a
// camera may have it.
void CChainReader::findCameras(const SJsonNode& root)
{
    for (const SJsonNode* element : itemsOf(&root)) {
        for (const SJsonNode* port : itemsOf(element->member(sourcesKey))) {
            for (const SJsonNode* source : itemsOf(port))
                findCamera(*source);
        }
    }
}

void CChainReader::findCamera(const SJsonNode& source)
{
    const QString name = source.text();
    if (name.isEmpty() || m_labels.contains(name))
        return;
    if (!m_cameras.contains(name)) {
        addCamera(name);
        m_cameraDoubts.insert(name, doubtOfCamera(name));
    }
    const QString doubt = m_cameraDoubts.value(name);
    if (doubt.isEmpty())
        return;
    m_graph.node(m_cameras.value(name)).hasModel = false; // it may be an element of which the ports are not known
    m_faults.addWarning(
        EFaultRule::Source, source,
        withHint(tr("no element is named %1, so that it is taken for a camera").arg(shown(name)), doubt));
}

QString CChainReader::doubtOfCamera(const QString& name)
{
    if (name == anyCamera)
        return {};
    const QString meant = m_words.closest(name, m_labelList);
    if (!meant.isNull())
        return didYouMean(QStringList(meant));
    return m_words.hasGivenUp() ? tr("too many names are unknown to say whether a label was meant") : QString();
}

void CChainReader::connectElement(const SJsonNode& element, int number)
{
    int port = 0;
    for (const SJsonNode* sources : itemsOf(element.member(sourcesKey))) {
        const QStringList anyCameras = camerasNotIn(*sources);
        for (const SJsonNode* source : itemsOf(sources))
            addSource(*source, number, port, anyCameras);
        ++port;
    }
    for (const SJsonNode* group : itemsOf(element.member(targetsKey))) {
        for (const SJsonNode* target : itemsOf(group))
            addTarget(*target, number);
    }
}

// \a anyCameras: those that "*" stands for in this port.
void CChainReader::addSource(const SJsonNode& source, int element, int port, const QStringList& anyCameras)
{
    if (!source.isString()) {
        m_graph.node(element).isDoubtful = true;
        return;
    }
    SGraphConnection connection;
    connection.to = element;
    connection.outPort = connection.inPort = port;
    connection.json = &source;
    const QString name = source.text();
    if (name == anyCamera && !m_options.cameras.isEmpty()) {
        for (const QString& camera : anyCameras) {
            connection.from = m_cameras.value(camera);
            m_graph.connect(connection);
        }
        return;
    }
    connection.from = m_cameras.value(name, m_labels.value(name, -1));
    if (connection.from >= 0)
        m_graph.connect(connection);
    else
        m_unknown.push_back({element, port, &source});
}

// Those of the run that are not named among the sources of the port.
QStringList CChainReader::camerasNotIn(const SJsonNode& port) const
{
    QStringList cameras = m_options.cameras;
    for (const SJsonNode* named : itemsOf(&port))
        cameras.removeAll(named->text());
    return cameras;
}

void CChainReader::addTarget(const SJsonNode& target, int element)
{
    const SJsonNode* const label = target.isObject() ? target.member(DocumentKeys::name) : &target;
    if (!label || !label->isString())
        return;
    SGraphConnection connection;
    connection.from = element;
    connection.to = m_labels.value(label->text(), m_cameras.value(label->text(), -1));
    if (connection.to < 0) {
        const QString meant = m_words.closest(label->text(), m_labelList);
        m_faults.addError(
            EFaultRule::UnknownName, *label,
            withHint(tr("no element is named %1").arg(shown(label->text())), m_words.hint(label->text(), m_labelList)));
        if (!meant.isNull())
            m_graph.node(m_labels.value(meant)).isDoubtful = true;
        return;
    }
    connection.json = label;
    connection.outPortJson = target.member(indexOutKey);
    connection.inPortJson = target.member(indexInKey);
    connection.outPort = connection.outPortJson ? connection.outPortJson->scalar.toDouble() : 0;
    connection.inPort = connection.inPortJson ? connection.inPortJson->scalar.toDouble() : 0;
    m_graph.connect(connection);
}

// A chain may serve cameras that this run lacks, as long as something else feeds the port.
void CChainReader::checkUnknownSources()
{
    QStringList known = m_labelList;
    for (const QString& camera : m_options.cameras)
        known << camera;
    for (const SUnknownSource& unknown : m_unknown) {
        const QString name = unknown.json->text();
        const QString message = tr("no camera of the run and no element is named %1").arg(shown(name));
        if (m_graph.isFed(unknown.element, unknown.port)) {
            m_faults.addWarning(EFaultRule::Source, *unknown.json, message);
        } else {
            m_faults.addError(EFaultRule::Source, *unknown.json, withHint(message, m_words.hint(name, known)));
            m_graph.node(unknown.element).isDoubtful = true;
        }
    }
}

} // namespace Host
