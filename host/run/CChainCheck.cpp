// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CChainCheck.h"

#include "host/base/Attempt.h"
#include "host/base/Shown.h"
#include "host/models/IHostModels.h"
#include "host/run/PortError.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/service/INodeService.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// Runs \a add with each item and its place, until one of them is wrong: what, place first.
template <typename Add>
QString forEachItem(const char* list, const QJsonValue& json, const Add& add)
{
    if (!json.isUndefined() && !json.isArray())
        return QStringLiteral("%1: no array").arg(QLatin1String(list));
    const QJsonArray items = json.toArray();
    for (int i = 0; i < items.size(); ++i) {
        const QString place = QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(i);
        const QString error = add(i, items.at(i), place);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

} // namespace

CChainCheck::CChainCheck(INodeService& service, const IHostModels& models, const QStringList& cameras)
    : m_service(service)
    , m_cameras(cameras.size())
{
    for (const QString& camera : cameras)
        addPart({camera, models.createCameraSource(camera)});
}

CChainCheck::~CChainCheck() = default;

void CChainCheck::addPart(SPart part)
{
    m_numbers.insert(part.name, int(m_parts.size()));
    m_parts.push_back(std::move(part));
}

QString CChainCheck::check(const QJsonArray& elements)
{
    for (const QJsonValue& json : elements) {
        const QString error = addElement(json);
        if (!error.isEmpty())
            return QStringLiteral("elements[%1]: %2").arg(int(m_parts.size()) - m_cameras).arg(error);
    }
    for (int i = 0; i < elements.size(); ++i) {
        const QJsonValue json = elements.at(i);
        QString error = addSources(m_cameras + i, json[QStringLiteral("unique_sources")]);
        if (error.isEmpty())
            error = addTargets(m_cameras + i, json[QStringLiteral("connection")]);
        if (!error.isEmpty())
            return QStringLiteral("elements[%1]: %2").arg(i).arg(error);
    }
    const int looped = nodeOfLoop(int(m_parts.size()), m_edges);
    if (looped >= 0)
        return QStringLiteral("the connections lead from %1 back to it").arg(place(looped));
    return cameraWithoutChain();
}

std::size_t CChainCheck::connections(int camera) const
{
    const auto count = std::count_if(m_edges.begin(), m_edges.end(), [this, camera](const auto& edge) {
        return edge.first == camera || edge.first >= m_cameras;
    });
    return std::size_t(count);
}

QString CChainCheck::addElement(const QJsonValue& json)
{
    const QJsonValue modelJson = json[DocumentKeys::model];
    if (!modelJson.isObject())
        return QStringLiteral("no object with a model");
    const QString name = json[DocumentKeys::name].toString();
    if (name.isEmpty())
        return QStringLiteral("it has no name");
    const auto known = m_numbers.constFind(name);
    if (known != m_numbers.constEnd())
        return QStringLiteral("has the name of %1").arg(place(*known));

    const QString modelName = modelJson[DocumentKeys::name].toString();
    std::unique_ptr<CNodeDataModel> model;
    const QString thrown = attempt(QStringLiteral("making %1").arg(shown(modelName)), [&] {
        model = m_service.registry()->create(modelName);
        if (model)
            model->restore(modelJson.toObject());
        return true;
    });
    if (!thrown.isEmpty())
        return thrown;
    if (!model)
        return QStringLiteral("no model %1 is registered").arg(shown(modelName));
    if (qobject_cast<ASourceNodeDataModel*>(model.get()))
        return QStringLiteral("a %1 of its own; frames come from the cameras of the run").arg(shown(modelName));
    const QString error = m_sinkNames.add(model.get());
    if (error.isEmpty())
        addPart({name, std::move(model)});
    return error;
}

QString CChainCheck::addSources(int element, const QJsonValue& json)
{
    return forEachItem("unique_sources", json, [&](int port, const QJsonValue& names, const QString& portPlace) {
        return forEachItem(qPrintable(portPlace), names, [&](int, const QJsonValue& name, const QString& place) {
            const QString error = addSource(element, port, name);
            return error.isEmpty() ? error : QStringLiteral("%1: %2").arg(place, error);
        });
    });
}

QString CChainCheck::addSource(int element, int port, const QJsonValue& json)
{
    if (!json.isString())
        return QStringLiteral("no name");
    const auto source = m_numbers.constFind(json.toString());
    return source == m_numbers.constEnd() ? QString() : connect(*source, port, element, port);
}

QString CChainCheck::addTargets(int element, const QJsonValue& json)
{
    return forEachItem("connection", json, [&](int, const QJsonValue& items, const QString& listPlace) {
        return forEachItem(qPrintable(listPlace), items, [&](int, const QJsonValue& item, const QString& place) {
            const QString error = addTarget(element, item);
            return error.isEmpty() ? error : QStringLiteral("%1: %2").arg(place, error);
        });
    });
}

QString CChainCheck::addTarget(int element, const QJsonValue& json)
{
    const QString name = json.isObject() ? json[DocumentKeys::name].toString() : json.toString();
    const auto target = m_numbers.constFind(name);
    if (target == m_numbers.constEnd())
        return QStringLiteral("no element is named %1").arg(shown(name));
    // The blank is part of the key.
    return connect(element, json[QStringLiteral("index _out")].toInt(), *target,
                   json[QStringLiteral("index_in")].toInt());
}

QString CChainCheck::connect(int from, int outPort, int to, int inPort)
{
    const CNodeDataModel& out = *m_parts[std::size_t(from)].model;
    const CNodeDataModel& in = *m_parts[std::size_t(to)].model;
    QString error = portError(out, ENodePortType::Out, outPort, place(from));
    if (error.isEmpty())
        error = portError(in, ENodePortType::In, inPort, place(to));
    if (!error.isEmpty())
        return error;
    const QString given = out.dataType(ENodePortType::Out, outPort).id;
    const QString taken = in.dataType(ENodePortType::In, inPort).id;
    if (given != taken)
        return QStringLiteral("%1 to %2, and a chain has no converters").arg(shown(given), shown(taken));
    m_edges.emplace_back(from, to);
    return {};
}

QString CChainCheck::cameraWithoutChain() const
{
    for (int camera = 0; camera < m_cameras; ++camera) {
        const bool isWired =
            std::any_of(m_edges.begin(), m_edges.end(), [camera](const auto& edge) { return edge.first == camera; });
        if (!isWired)
            return QStringLiteral("nothing is wired to %1").arg(place(camera));
    }
    return {};
}

QString CChainCheck::place(int part) const
{
    return part < m_cameras ? QStringLiteral("the camera %1").arg(shown(m_parts[std::size_t(part)].name))
                            : QStringLiteral("elements[%1]").arg(part - m_cameras);
}

} // namespace Host
