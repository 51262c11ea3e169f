// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/KnownNumber.h"
#include "host/report/SRunReport.h"

#include <QJsonArray>

#include <cmath>

namespace Host {

namespace {

QJsonValue seconds(Delay time)
{
    return time ? QJsonValue(double(time->count()) / 1e9) : QJsonValue();
}

QJsonObject nodeJson(const SNodeReport& node)
{
    return {{"name", node.name},
            {"kind", kindName(node.kind)},
            {"in", numberJson(node.in)},
            {"out", numberJson(node.out)},
            {"frames_per_second", numberJson(node.framesPerSecond)},
            {"computing_p50", seconds(node.computing)},
            {"computing_sum", seconds(node.worked)},
            {"grab_to_here_p50", seconds(node.grabToHere)},
            {"grab_to_here_p99", seconds(node.grabToHere99)},
            {"dropped", numberJson(node.dropped)},
            {"pending", numberJson(node.pending)},
            {"last_error", node.lastError.isEmpty() ? QJsonValue() : QJsonValue(node.lastError)}};
}

QJsonObject connectionJson(const SConnectionReport& connection)
{
    return {{"from", int(connection.from)}, {"out_port", connection.outPort},
            {"to", int(connection.to)},     {"in_port", connection.inPort},
            {"type", connection.type},      {"delivered", double(connection.delivered)}};
}

QJsonObject sinkJson(const SSinkReport& sink)
{
    QJsonArray files;
    for (const QString& file : sink.files)
        files.append(file);
    return {{"name", sink.name},
            {"delivered", double(sink.delivered)},
            {"written", double(sink.written)},
            {"files", files}};
}

QJsonObject decouplerJson(const SDecouplerReport& decoupler)
{
    return {{"name", decoupler.name},
            {"set_to", std::isfinite(decoupler.framesPerSecond) ? QJsonValue(decoupler.framesPerSecond) : QJsonValue()},
            {"most_per_second", numberJson(decoupler.mostPerSecond)},
            {"received", double(decoupler.counts.received)},
            {"emitted", double(decoupler.counts.emitted)},
            {"dropped", double(decoupler.counts.dropped)},
            {"cancelled", double(decoupler.counts.cancelled)}};
}

template <typename Items, typename ToJson>
QJsonArray array(const Items& items, const ToJson& toJson)
{
    QJsonArray array;
    for (const auto& item : items)
        array.append(toJson(item));
    return array;
}

} // namespace

QJsonObject SRunReport::json() const
{
    const QString wrong = mismatch();
    const QJsonObject counts{{"grabbed", double(frames.grabbed)},
                             {"complete", double(frames.complete)},
                             {"incomplete", double(frames.incomplete)},
                             {"underruns", double(frames.underruns)},
                             {"missed", double(frames.missed)}};
    return {{"address", address},
            {"camera", camera},
            {"ended", ending},
            {"failed", failed.isEmpty() ? QJsonValue() : QJsonValue(failed)},
            {"frames", counts},
            {"absences", QJsonObject{{"count", absences.count}, {"seconds", double(absences.total.count()) / 1000.0}}},
            {"frames_per_second", numberJson(framesPerSecond())},
            {"remarks", QJsonArray::fromStringList(remarks())},
            {"mismatch", wrong.isEmpty() ? QJsonValue() : QJsonValue(wrong)},
            {"nodes", array(nodes, &nodeJson)},
            {"connections", array(connections, &connectionJson)},
            {"decouplers", array(decouplers, &decouplerJson)},
            {"sinks", array(sinks, &sinkJson)}};
}

} // namespace Host
