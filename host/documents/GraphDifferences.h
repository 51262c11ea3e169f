// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <vector>

namespace Host {

struct SComparedGraph;

/// One thing that differs between two documents. A plain value.
struct SDifference
{
    QString path;         ///< `nodes["blur"].model.property.size`
    QJsonValue here;      ///< In the first; undefined if it is not there.
    QJsonValue there;     ///< In the second.
    bool isWhole = false; ///< A node or a connection that only one of them has.
};

/// What the two graphs differ in, whatever their nodes are called: nodes, then connections, in the order of the
/// first, then what only the second has. Empty if they are the same.
std::vector<SDifference> graphDifferences(const SComparedGraph& left, const SComparedGraph& right);

/// A line: `nodes["blur"].model.property.size: 15 here, 21 there`. Without an end of line.
QString differenceLine(const SDifference& difference);

/// One JSON object: the files "a" and "b", whether they are the "same", and the "differences", each with its "path" and
/// what is "here" and "there", as far as it is.
QByteArray differencesJson(const QString& a, const QString& b, const std::vector<SDifference>& differences);

} // namespace Host
