// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/GraphDifferences.h"

#include "host/check/SettingProperty.h"
#include "host/documents/CNodeMatcher.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <map>

namespace Host {

using namespace Plugin::Halvex;

namespace {

using Differences = std::vector<SDifference>;

void compareValues(const QString& path, const QJsonValue& here, const QJsonValue& there, Differences* differences)
{
    if (here == there)
        return;
    if (!here.isObject() || !there.isObject()) {
        differences->push_back({path, here, there, false});
        return;
    }
    const QJsonObject left = here.toObject();
    const QJsonObject right = there.toObject();
    QStringList keys = left.keys() + right.keys();
    keys.removeDuplicates();
    keys.sort();
    for (const QString& key : qAsConst(keys))
        compareValues(path + QLatin1Char('.') + key, left.value(key), right.value(key), differences);
}

QString nodePath(const SComparedNode& node)
{
    return QStringLiteral("nodes[%1]").arg(jsonText(node.label));
}

QString connectionPath(const SComparedGraph& graph, const SDocumentConnection& connection)
{
    const auto endOf = [&graph](int node, int port) {
        const QString name = jsonText(graph.nodes[std::size_t(node)].label);
        return port == 0 ? name : QStringLiteral("%1 port %2").arg(name).arg(port);
    };
    return QStringLiteral("connections[%1 -> %2]")
        .arg(endOf(connection.from, connection.outPort), endOf(connection.to, connection.inPort));
}

void compareNodes(const SComparedGraph& left, const SComparedGraph& right, const CNodeMatcher& matcher,
                  Differences* differences)
{
    for (std::size_t i = 0; i < left.nodes.size(); ++i) {
        const int partner = matcher.partnerOf(int(i));
        const QString path = nodePath(left.nodes[i]);
        if (partner < 0)
            differences->push_back({path, left.nodes[i].model, QJsonValue::Undefined, true});
        else
            compareValues(path + QStringLiteral(".model"), left.nodes[i].model, right.nodes[std::size_t(partner)].model,
                          differences);
    }
    for (std::size_t i = 0; i < right.nodes.size(); ++i) {
        if (matcher.partnerOfRight(int(i)) < 0)
            differences->push_back({nodePath(right.nodes[i]), QJsonValue::Undefined, right.nodes[i].model, true});
    }
}

// A connection as a value: what stands beside its path, which has its ends.
QJsonObject valueOf(const SDocumentConnection& connection)
{
    QJsonObject json;
    if (!connection.converter.isEmpty())
        json.insert(QString(DocumentKeys::converter), connection.converter);
    return json;
}

void compareConnections(const SComparedGraph& left, const SComparedGraph& right, const CNodeMatcher& matcher,
                        Differences* differences)
{
    // By their ends in the right graph; a document may have one twice.
    std::map<std::array<int, 4>, std::vector<const SDocumentConnection*>> others;
    for (const SDocumentConnection& each : right.connections)
        others[{each.from, each.outPort, each.to, each.inPort}].push_back(&each);
    for (const SDocumentConnection& each : left.connections) {
        const auto found =
            others.find({matcher.partnerOf(each.from), each.outPort, matcher.partnerOf(each.to), each.inPort});
        const QString path = connectionPath(left, each);
        if (found == others.end() || found->second.empty()) {
            differences->push_back({path, valueOf(each), QJsonValue::Undefined, true});
            continue;
        }
        compareValues(path, valueOf(each), valueOf(*found->second.front()), differences);
        found->second.erase(found->second.begin());
    }
    for (const SDocumentConnection& each : right.connections) {
        auto& rest = others[{each.from, each.outPort, each.to, each.inPort}];
        if (rest.empty())
            continue;
        rest.pop_back();
        differences->push_back({connectionPath(right, each), QJsonValue::Undefined, valueOf(each), true});
    }
}

Differences differencesBetween(const SComparedGraph& left, const SComparedGraph& right, bool byName)
{
    CNodeMatcher matcher(left, right);
    if (byName)
        matcher.pairByName();
    matcher.pairByLooks();
    Differences differences;
    compareNodes(left, right, matcher, &differences);
    compareConnections(left, right, matcher, &differences);
    return differences;
}

QString sideText(const QJsonValue& value, const char* side)
{
    const QString text = value.isUndefined() ? QStringLiteral("none") : jsonText(value);
    return QStringLiteral("%1 %2").arg(text, QLatin1String(side));
}

} // namespace

std::vector<SDifference> graphDifferences(const SComparedGraph& left, const SComparedGraph& right)
{
    const Differences byName = differencesBetween(left, right, true);
    if (byName.empty())
        return {};
    // The same names may mean something else in each: what counts is whether the graphs are the same without them.
    const Differences byLooks = differencesBetween(left, right, false);
    return byLooks.size() < byName.size() ? byLooks : byName;
}

QString differenceLine(const SDifference& difference)
{
    if (difference.isWhole)
        return QStringLiteral("%1: only %2")
            .arg(difference.path, QLatin1String(difference.there.isUndefined() ? "here" : "there"));
    return QStringLiteral("%1: %2, %3")
        .arg(difference.path, sideText(difference.here, "here"), sideText(difference.there, "there"));
}

QByteArray differencesJson(const QString& a, const QString& b, const std::vector<SDifference>& differences)
{
    QJsonArray list;
    for (const SDifference& difference : differences) {
        QJsonObject json{{QStringLiteral("path"), difference.path}};
        if (!difference.here.isUndefined())
            json.insert(QStringLiteral("here"), difference.here);
        if (!difference.there.isUndefined())
            json.insert(QStringLiteral("there"), difference.there);
        list.append(json);
    }
    const QJsonObject root{{QStringLiteral("a"), a},
                           {QStringLiteral("b"), b},
                           {QStringLiteral("same"), differences.empty()},
                           {QStringLiteral("differences"), list}};
    return QJsonDocument(root).toJson();
}

} // namespace Host
