// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CJsonTree.h"

#include "host/base/Shown.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QVariant>

#include <algorithm>

namespace Host {

namespace {

bool isWord(const QString& key)
{
    const auto isPart = [](QChar c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    };
    return !key.isEmpty() && !key.front().isDigit() && std::all_of(key.begin(), key.end(), isPart);
}

QString stepTo(const SJsonNode& node)
{
    if (node.parent->isArray())
        return QStringLiteral("[%1]").arg(node.index);
    return isWord(node.key) ? QLatin1Char('.') + node.key : QLatin1Char('[') + shown(node.key) + QLatin1Char(']');
}

} // namespace

const SJsonNode* SJsonNode::member(QLatin1String name) const
{
    if (!isObject())
        return nullptr;
    const auto found = std::find_if(children.rbegin(), children.rend(),
                                    [name](const SJsonNode* child) { return child->meant == name; });
    return found == children.rend() ? nullptr : *found;
}

SJsonNode& CJsonTree::add(SJsonNode* parent)
{
    m_nodes.emplace_back();
    SJsonNode& node = m_nodes.back();
    if (parent) {
        node.parent = parent;
        node.index = parent->children.size();
        parent->children.push_back(&node);
    }
    return node;
}

QString pathOf(const SJsonNode& node)
{
    return node.parent ? pathOf(*node.parent) + stepTo(node) : QStringLiteral("$");
}

QJsonValue valueOf(const SJsonNode& node)
{
    if (node.isArray()) {
        QJsonArray array;
        for (const SJsonNode* child : node.children)
            array.append(valueOf(*child));
        return array;
    }
    if (node.isObject()) {
        QJsonObject object;
        for (const SJsonNode* child : node.children)
            object.insert(child->key, valueOf(*child));
        return object;
    }
    return node.scalar;
}

QString description(const SJsonNode& node)
{
    switch (node.type) {
    case QJsonValue::Array:
        return QStringLiteral("an array");
    case QJsonValue::Object:
        return QStringLiteral("an object");
    case QJsonValue::String:
        return QStringLiteral("the string %1").arg(shown(node.text()));
    case QJsonValue::Double:
        return QStringLiteral("the number %1").arg(node.scalar.toVariant().toString());
    case QJsonValue::Bool:
        return node.scalar.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return QStringLiteral("null");
    }
}

} // namespace Host
