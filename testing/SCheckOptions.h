// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/SNodeDataType.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>

namespace Plugin::Halvex {

class CNodeDataModel;

namespace Testing {

/**
 * What a check is told of what it checks. Nothing has to be set; the more is set, the more rules can be tried, and
 * SReport::leftOut says which could not.
 *
 * \code
 * SCheckOptions options;
 * options.makeData = [](const SNodeDataType& type, int number) -> CNodeDataPtr {
 *     if (type.id != CNumberData().type().id)
 *         return {};
 *     return QSharedPointer<CNumberData>::create(number);
 * };
 * options.checksum = [](const CNodeData& data) {
 *     const auto* number = dynamic_cast<const CNumberData*>(&data);
 *     return number ? QByteArray::number(number->value()) : QByteArray();
 * };
 * \endcode
 *
 * Threads: the functions are called in the thread of the check. Errors: what makeData, checksum or changeSettings
 * throws is told as if what is checked had thrown it; beforeRule must not throw.
 */
struct SCheckOptions
{
    /// Makes new data of \a type; the content depends on \a number alone. Null: there is none of that type. Of
    /// grab results the kit has some of its own then: small frames, grey (Mono8) and in colour (BGR8), and some without
    /// a frame.
    std::function<CNodeDataPtr(const SNodeDataType& type, int number)> makeData;

    /// Bytes that differ when the content of \a data does; none for data that it does not know. Without them the kit
    /// cannot see whether data is changed after it was handed on. It knows the pixels of grab results by itself.
    std::function<QByteArray(const CNodeData& data)> checksum;

    /// Gives a new model settings that differ from those it has. Without this every property gets another value.
    std::function<void(CNodeDataModel& model)> changeSettings;

    /// Names of rules that are not tried. Some are needed by all that come behind them, as "makes-a-model": those are
    /// not tried either then, and SReport::leftOut says so.
    QStringList skip;

    /// Called with the name of each rule before it is tried.
    std::function<void(const QString& rule)> beforeRule;

    /// How long an output that comes from the event loop is waited for.
    std::chrono::milliseconds patience{500};

    /// How many models, or data objects, are there at once when the kit looks for what they leave behind.
    int instances = 1000;

    /// How long the destructor of a model that computes may take.
    std::chrono::milliseconds longestDestruction{2000};

    /// What 99 of 100 calls of a model stay below; 0: as long as they like. They run in the graph's thread, so a camera
    /// of 200 frames per second leaves 5 milliseconds to all models together.
    std::chrono::microseconds longestCall{0};
};

} // namespace Testing
} // namespace Plugin::Halvex
