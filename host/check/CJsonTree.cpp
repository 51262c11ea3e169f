// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CJsonTree.h"

#include "host/base/Shown.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QVariant>

#include <algorithm>
#include <string>

namespace Host {

namespace {

bool isWord(const QString& key)
{
    const auto isPart = [](QChar c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    };
    return !key.isEmpty() && !key.front().isDigit() && std::all_of(key.begin(), key.end(), isPart);
}

QString escaped(QChar c)
{
    switch (c.unicode()) {
    case '\'':
    case '\\':
        return QLatin1Char('\\') + QString(c);
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(int(c.unicode()), 4, 16, QLatin1Char('0'));
    }
}

// As it is, but for what would not be seen or would end the quotes.
QString quoted(const QString& key)
{
    QString text;
    const std::u32string letters = key.toStdU32String();
    for (const char32_t letter : letters) {
        const QString units = QString::fromUcs4(&letter, 1);
        if (isPrintable(letter) && letter != U'\'' && letter != U'\\')
            text += units;
        else
            for (const QChar unit : units)
                text += escaped(unit);
    }
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString stepTo(const SJsonNode& node)
{
    if (node.parent->isArray())
        return QStringLiteral("[%1]").arg(node.index);
    return isWord(node.key) ? QLatin1Char('.') + node.key : QLatin1Char('[') + quoted(node.key) + QLatin1Char(']');
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

bool isWholeNumber(const QJsonValue& value)
{
    return value.isDouble() && value.toInt(0) == value.toInt(1); // of no other does toInt() make a number
}

QString description(const SJsonNode& node)
{
    switch (node.type) {
    case QJsonValue::Array:
        return CJsonTree::tr("an array");
    case QJsonValue::Object:
        return CJsonTree::tr("an object");
    case QJsonValue::String:
        return CJsonTree::tr("the string %1").arg(shown(node.text()));
    case QJsonValue::Double:
        return CJsonTree::tr("the number %1").arg(node.scalar.toVariant().toString());
    case QJsonValue::Bool:
        return node.scalar.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return QStringLiteral("null");
    }
}

} // namespace Host
