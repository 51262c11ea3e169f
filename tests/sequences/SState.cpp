// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/SState.h"

#include <QStringList>

#include <algorithm>

namespace Sequences {
namespace {

template <typename T>
void sortByTuple(std::vector<T>& list)
{
    std::sort(list.begin(), list.end(), [](const T& a, const T& b) { return a.asTuple() < b.asTuple(); });
}

template <typename T>
bool areEqual(const std::vector<T>& left, const std::vector<T>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const T& a, const T& b) { return a.asTuple() == b.asTuple(); });
}

QString listOf(const std::vector<int>& numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    return texts.join(' ');
}

} // namespace

void SState::sort()
{
    sortByTuple(nodes);
    sortByTuple(connections);
}

QString SState::text() const
{
    QString text = QString("scenes %1; active %2; of infos %3; %4 models\n")
                       .arg(listOf(scenes))
                       .arg(active)
                       .arg(listOf(sceneOfInfo))
                       .arg(models);
    for (const SNode& node : nodes) {
        text += QString("  scene %1, node %2, output %3, by id %4%5%6\n")
                    .arg(node.scene)
                    .arg(node.number)
                    .arg(node.output)
                    .arg(node.foundById)
                    .arg(node.isFoundByModel ? ", by model" : "", node.isOfDocument ? ", of a document" : "");
    }
    for (const SConnection& connection : connections) {
        text += QString("  scene %1, connection %2 to %3 at %4 from %5 at %6\n")
                    .arg(connection.scene)
                    .arg(connection.number)
                    .arg(connection.in)
                    .arg(connection.inPort)
                    .arg(connection.out)
                    .arg(connection.outPort);
    }
    return text;
}

bool operator==(const SState& left, const SState& right)
{
    return left.scenes == right.scenes && left.active == right.active && areEqual(left.nodes, right.nodes) &&
           areEqual(left.connections, right.connections) && left.sceneOfInfo == right.sceneOfInfo &&
           left.models == right.models;
}

} // namespace Sequences
