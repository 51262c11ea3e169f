// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <map>

/// What a trace says, as far as tests ask.
struct STestTrace
{
    QString fault;                    ///< The first thing that a viewer would stumble over; empty if there is none.
    QStringList rows;                 ///< Names, as they come.
    std::map<QString, int> slices;    ///< How many of each name.
    std::map<QString, QString> flows; ///< The steps of each, "stf", by "category|name|id".
};

inline STestTrace readTrace(const QByteArray& text)
{
    STestTrace trace;
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isArray())
        trace.fault = QStringLiteral("no array of JSON");
    std::map<std::pair<int, int>, int> depths;
    std::map<std::pair<int, int>, double> times;
    const QJsonArray events = document.array();
    for (const QJsonValue& event : events) {
        const QString phase = event["ph"].toString();
        const auto row = std::make_pair(event["pid"].toInt(), event["tid"].toInt());
        if (event["name"].toString() == QLatin1String("thread_name"))
            trace.rows << event["args"]["name"].toString();
        if (phase == QLatin1String("B"))
            ++trace.slices[event["name"].toString()];
        if (phase == QLatin1String("B") || phase == QLatin1String("E")) {
            depths[row] += phase == QLatin1String("B") ? 1 : -1;
            if (depths[row] < 0 || event["ts"].toDouble() < times[row])
                trace.fault = QStringLiteral("slices that are not within each other in row %1").arg(row.second);
            times[row] = event["ts"].toDouble();
        }
        if (QStringLiteral("stf").contains(phase))
            trace.flows[QStringLiteral("%1|%2|%3")
                            .arg(event["cat"].toString(), event["name"].toString())
                            .arg(event["id"].toInt())] += phase;
    }
    for (const auto& row : depths) {
        if (row.second != 0)
            trace.fault = QStringLiteral("a slice without an end in row %1").arg(row.first.second);
    }
    for (const auto& flow : trace.flows) {
        if (!flow.second.startsWith(QLatin1Char('s')) || flow.second.count(QLatin1Char('s')) != 1 ||
            flow.second.count(QLatin1Char('f')) > 1)
            trace.fault = QStringLiteral("a flow %1 of %2").arg(flow.second, flow.first);
    }
    return trace;
}
