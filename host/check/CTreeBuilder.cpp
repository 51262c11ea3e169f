// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CTreeBuilder.h"

#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"

#include <QHash>

#include <cmath>

namespace Host {

namespace {

constexpr int maxDepth = 1000;    // Qt's own reader, by which a run reads, gives up at 1024
constexpr int maxValues = 500000; // 50,000 elements; looking at all of them takes some 300 MB

} // namespace

CTreeBuilder::CTreeBuilder(const QByteArray& text, const rapidjson::MemoryStream& stream, CJsonTree& tree,
                           CFaultList& faults)
    : m_text(text)
    , m_stream(stream)
    , m_tree(tree)
    , m_faults(faults)
    , m_offset(int(stream.Tell()))
{
}

void CTreeBuilder::finish()
{
    passGap();
}

bool CTreeBuilder::Double(double value)
{
    if (std::isfinite(value))
        return addScalar(value);
    const SJsonNode& node = addNode();
    m_faults.addError(EFaultRule::Syntax, node,
                      tr("%1 is no JSON: numbers are finite there")
                          .arg(QString::fromLatin1(m_text.mid(node.begin, node.end - node.begin))));
    return isWithinLimit(node);
}

bool CTreeBuilder::RawNumber(const char*, unsigned, bool)
{
    Q_UNREACHABLE(); // numbers are asked for as numbers
    return false;
}

bool CTreeBuilder::String(const char* text, unsigned length, bool)
{
    return addScalar(QString::fromUtf8(text, int(length)));
}

bool CTreeBuilder::Key(const char* text, unsigned length, bool)
{
    passGap();
    m_key = QString::fromUtf8(text, int(length));
    m_keyBegin = m_offset;
    m_offset = int(m_stream.Tell());
    return true;
}

bool CTreeBuilder::EndObject(unsigned)
{
    findDoubleKeys(*m_open);
    close();
    return true;
}

bool CTreeBuilder::EndArray(unsigned)
{
    close();
    return true;
}

SJsonNode& CTreeBuilder::addNode()
{
    passGap();
    SJsonNode& node = m_tree.add(m_open);
    node.begin = m_offset;
    node.end = int(m_stream.Tell());
    node.keyBegin = m_offset;
    if (m_open && m_open->isObject()) {
        node.key = m_key;
        node.meant = m_key;
        node.keyBegin = m_keyBegin;
    }
    m_offset = node.end;
    ++m_values;
    return node;
}

bool CTreeBuilder::addScalar(const QJsonValue& value)
{
    SJsonNode& node = addNode();
    node.type = value.type();
    node.scalar = value;
    return isWithinLimit(node);
}

bool CTreeBuilder::open(QJsonValue::Type type)
{
    SJsonNode& node = addNode();
    node.type = type;
    node.end = node.begin + 1;
    m_offset = node.end; // the parser has not taken the bracket yet
    m_open = &node;
    return ++m_depth <= maxDepth ? isWithinLimit(node) : stop(node, tr("arrays and objects nest too deep"));
}

void CTreeBuilder::close()
{
    passGap();
    if (m_comma >= 0)
        m_faults.addTextError(EFaultRule::Syntax, m_comma,
                              m_open->isArray() ? tr("a comma behind the last item is no JSON")
                                                : tr("a comma behind the last member is no JSON"));
    ++m_offset;
    m_open->end = m_offset;
    m_open = m_open->parent;
    --m_depth;
}

bool CTreeBuilder::isWithinLimit(const SJsonNode& value)
{
    return m_values <= maxValues || stop(value, tr("more than %1 values").arg(maxValues));
}

bool CTreeBuilder::stop(const SJsonNode& at, const QString& reason)
{
    m_faults.addTextError(EFaultRule::Syntax, at.begin, reason);
    m_isStopped = true;
    return false;
}

void CTreeBuilder::passGap()
{
    m_comma = -1;
    for (; m_offset < m_text.size(); ++m_offset) {
        const char c = m_text.at(m_offset);
        if (c == ',')
            m_comma = m_offset;
        else if (c == '/')
            m_offset = skipComment(m_offset) - 1;
        else if (c != ':' && c != ' ' && c != '\t' && c != '\r' && c != '\n')
            return;
    }
}

int CTreeBuilder::skipComment(int offset)
{
    m_faults.addTextError(EFaultRule::Syntax, offset, tr("JSON has no comments"));
    const bool isBlock = m_text.mid(offset, 2) == "/*";
    const int end = isBlock ? m_text.indexOf("*/", offset + 2) + 2 : m_text.indexOf('\n', offset);
    return end > offset ? end : m_text.size();
}

void CTreeBuilder::findDoubleKeys(const SJsonNode& object)
{
    QHash<QString, int> begins;
    for (const SJsonNode* member : object.children) {
        const auto known = begins.constFind(member->key);
        if (known == begins.constEnd())
            begins.insert(member->key, member->keyBegin);
        else
            m_faults.addKeyError(EFaultRule::DoubleKey, *member,
                                 tr("a second key %1, after that at %2; only one would count")
                                     .arg(shown(member->key), m_faults.place(*known)));
    }
}

} // namespace Host
