// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/CNodeMatcher.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QHash>
#include <QJsonDocument>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// How far around a node is looked. What lies further away is found from pair to pair.
constexpr int mostSteps = 16;

QString textOf(const QJsonObject& json)
{
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

int distinct(std::vector<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return int(std::unique(numbers.begin(), numbers.end()) - numbers.begin());
}

} // namespace

CNodeMatcher::CNodeMatcher(const SComparedGraph& left, const SComparedGraph& right)
{
    m_sides[0].graph = &left;
    m_sides[1].graph = &right;
    for (SSide& side : m_sides)
        connect(side);
}

void CNodeMatcher::connect(SSide& side)
{
    const std::size_t count = side.graph->nodes.size();
    side.neighbours.resize(count);
    side.looks.resize(count, 0);
    side.partners.assign(count, -1);
    for (const SDocumentConnection& each : side.graph->connections) {
        const QString ports = QStringLiteral("%1 %2").arg(each.outPort).arg(each.inPort);
        const auto wayOf = [&](const QString& direction) {
            return m_ways.emplace(std::vector<QString>{direction, ports, textOf(each.converter)}, int(m_ways.size()))
                .first->second;
        };
        side.neighbours[std::size_t(each.from)].push_back({each.to, wayOf(QStringLiteral("to"))});
        side.neighbours[std::size_t(each.to)].push_back({each.from, wayOf(QStringLiteral("from"))});
    }
}

// Gives equal numbers for equal keys.
template <typename Key>
void CNodeMatcher::look(const Key& keyOf)
{
    std::map<decltype(keyOf(m_sides[0], 0)), int> numbers;
    Looks looks[2];
    for (int side = 0; side < 2; ++side) {
        for (std::size_t node = 0; node < m_sides[side].looks.size(); ++node)
            looks[side].push_back(numbers.emplace(keyOf(m_sides[side], node), int(numbers.size())).first->second);
    }
    for (int side = 0; side < 2; ++side)
        m_sides[side].looks = std::move(looks[side]);
}

void CNodeMatcher::lookAtModels()
{
    look([](const SSide& side, std::size_t node) { return textOf(side.graph->nodes[node].model); });
}

void CNodeMatcher::lookAtNames()
{
    look([](const SSide& side, std::size_t node) {
        return side.graph->nodes[node].model.value(DocumentKeys::name).toString();
    });
}

void CNodeMatcher::lookAround()
{
    const auto count = [this] {
        std::vector<int> all = m_sides[0].looks;
        all.insert(all.end(), m_sides[1].looks.begin(), m_sides[1].looks.end());
        return distinct(all);
    };
    int known = 0;
    for (int step = 0; step < mostSteps && known < count(); ++step) {
        known = count();
        look([](const SSide& side, std::size_t node) {
            std::vector<std::pair<int, int>> around;
            for (const SNeighbour& each : side.neighbours[node])
                around.emplace_back(each.way, side.looks[std::size_t(each.node)]);
            std::sort(around.begin(), around.end());
            return std::make_pair(side.looks[node], around);
        });
    }
}

void CNodeMatcher::pairByName()
{
    if (m_sides[0].graph->kind != m_sides[1].graph->kind)
        return;
    QHash<QString, int> named;
    const auto& right = m_sides[1].graph->nodes;
    for (std::size_t i = 0; i < right.size(); ++i) {
        if (!right[i].name.isEmpty())
            named.insert(right[i].name, int(i));
    }
    const auto& left = m_sides[0].graph->nodes;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const int same = named.value(left[i].name, -1);
        if (same >= 0)
            pair(int(i), same);
    }
}

void CNodeMatcher::pairByLooks()
{
    lookAtModels();
    lookAround();
    pairAlike();
    lookAtModels();
    pairAlike();
    lookAtNames();
    pairAlike();
}

void CNodeMatcher::pairAlike()
{
    // What was paired before may have neighbours that look the same only now.
    for (std::size_t i = 0; i < m_sides[0].partners.size(); ++i) {
        if (m_sides[0].partners[i] >= 0)
            m_open.push_back(int(i));
    }
    pairNeighbours();

    std::map<int, std::pair<std::deque<int>, std::deque<int>>> alike;
    for (std::size_t i = 0; i < m_sides[0].looks.size(); ++i)
        alike[m_sides[0].looks[i]].first.push_back(int(i));
    for (std::size_t i = 0; i < m_sides[1].looks.size(); ++i)
        alike[m_sides[1].looks[i]].second.push_back(int(i));
    // Those that are the only ones come first: there is nothing to choose.
    for (const bool isOnlyOne : {true, false}) {
        for (auto& each : alike) {
            auto& left = each.second.first;
            auto& right = each.second.second;
            if (isOnlyOne && (left.size() != 1 || right.size() != 1))
                continue;
            while (!left.empty() && !right.empty()) {
                const bool isLeftTaken = partnerOf(left.front()) >= 0;
                const bool isRightTaken = partnerOfRight(right.front()) >= 0;
                if (!isLeftTaken && !isRightTaken) {
                    pair(left.front(), right.front());
                    pairNeighbours();
                }
                if (isLeftTaken || !isRightTaken)
                    left.pop_front();
                if (isRightTaken || !isLeftTaken)
                    right.pop_front();
            }
        }
    }
}

void CNodeMatcher::pair(int left, int right)
{
    m_sides[0].partners[std::size_t(left)] = right;
    m_sides[1].partners[std::size_t(right)] = left;
    m_open.push_back(left);
}

void CNodeMatcher::pairNeighbours()
{
    while (!m_open.empty()) {
        const int left = m_open.front();
        m_open.pop_front();
        std::map<std::pair<int, int>, std::deque<int>> open; // by way and looks
        for (const SNeighbour& each : m_sides[1].neighbours[std::size_t(partnerOf(left))]) {
            if (partnerOfRight(each.node) < 0)
                open[{each.way, m_sides[1].looks[std::size_t(each.node)]}].push_back(each.node);
        }
        for (const SNeighbour& each : m_sides[0].neighbours[std::size_t(left)]) {
            if (partnerOf(each.node) >= 0)
                continue;
            auto& found = open[{each.way, m_sides[0].looks[std::size_t(each.node)]}];
            while (!found.empty() && partnerOfRight(found.front()) >= 0)
                found.pop_front();
            if (found.empty())
                continue;
            pair(each.node, found.front());
            found.pop_front();
        }
    }
}

} // namespace Host
