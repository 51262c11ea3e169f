// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeDataModelRegistry.h>
#include <Halvex/testing/SCheckOptions.h>

#include <QByteArray>
#include <QString>

namespace Plugin::Halvex::Testing {

/// Samples that differ in more than their values have numbers from 1 to this: of grab results two are grey frames, two
/// are frames in colour, and two have no frame.
constexpr int sampleCount = 6;

/// Data of \a type: what the options make, or else a grab result. Null if there is none of that type.
CNodeDataPtr makeSample(const SNodeDataType& type, int number, const SCheckOptions& options);

/// The same, or what a converter of \a registry makes of a grab result.
CNodeDataPtr makeSample(const SNodeDataType& type, int number, const SCheckOptions& options,
                        const CNodeDataModelRegistry& registry);

/// What a sample is to people: "a frame of 16 x 12, BGR8", "data of its type", "empty data".
QString shownSample(const CNodeDataPtr& sample);

/// Bytes that differ when the content of \a data does: what the options say, or else those of a grab result. Empty if
/// \a data is known to neither.
QByteArray checksumOf(const CNodeData& data, const SCheckOptions& options);

} // namespace Plugin::Halvex::Testing
