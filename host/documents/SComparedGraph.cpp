// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/SComparedGraph.h"

#include "host/base/Attempt.h"
#include "host/check/CModelCatalogue.h"
#include "host/documents/NodeLabels.h"

#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/graph/DocumentKeys.h>

#include <QHash>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// What new models save, by their names.
class CDefaults
{
public:
    explicit CDefaults(CNodeDataModelRegistry& registry)
        : m_models(registry)
    {
    }

    QJsonObject of(const QString& name)
    {
        const auto known = m_known.constFind(name);
        return known == m_known.constEnd() ? *m_known.insert(name, make(name)) : *known;
    }

private:
    QJsonObject make(const QString& name) const
    {
        QString error;
        const auto model = m_models.create(name, &error);
        QJsonObject json;
        if (model)
            attempt(name, [&] {
                json = model->save();
                return true;
            });
        return json;
    }

    CModelCatalogue m_models;
    QHash<QString, QJsonObject> m_known;
};

// What is written, with what is not in the words of the defaults.
QJsonObject completed(QJsonObject written, const QJsonObject& defaults)
{
    for (auto each = defaults.begin(); each != defaults.end(); ++each) {
        const QJsonValue present = written.value(each.key());
        if (present.isUndefined())
            written.insert(each.key(), each.value());
        else if (present.isObject() && each.value().isObject())
            written.insert(each.key(), completed(present.toObject(), each.value().toObject()));
    }
    return written;
}

QJsonObject comparedModel(const SDocumentNode& node, EDocumentKind kind, CDefaults* defaults)
{
    const QString uniqueName(DocumentKeys::uniqueName);
    if (node.kind == ENodeKind::Source)
        return node.camera.isEmpty() ? QJsonObject() : QJsonObject{{uniqueName, node.camera}};
    QJsonObject model = completed(node.model, defaults->of(node.model.value(DocumentKeys::name).toString()));
    // An import makes every element of a chain a node that is not unique.
    if (kind == EDocumentKind::Chain || model.value(DocumentKeys::isUnique) == false)
        model.remove(DocumentKeys::isUnique);
    return model;
}

} // namespace

SComparedGraph comparedGraph(const SDocumentGraph& graph, CNodeDataModelRegistry& registry)
{
    CDefaults defaults(registry);
    const QStringList labels = nodeLabels(graph);
    SComparedGraph compared;
    compared.kind = graph.kind;
    for (const SDocumentNode& node : graph.nodes)
        compared.nodes.push_back(
            {labels.at(int(compared.nodes.size())), node.label, comparedModel(node, graph.kind, &defaults)});
    compared.connections = graph.connections;
    return compared;
}

} // namespace Host
