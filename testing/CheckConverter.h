// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/graph/SNodeDataType.h>
#include <Halvex/testing/SCheckOptions.h>
#include <Halvex/testing/SReport.h>

#include <utility>

namespace Plugin::Halvex::Testing {

/**
 * Tells which rules \a converter breaks, which is registered for the types \a fromTo.
 *
 * \code
 * const SReport report = checkConverter(&toImage, {CVeltraGrabResultData().type(), CImageData().type()}, options);
 * \endcode
 *
 * Data to convert comes from options.makeData; changeSettings and instances mean nothing here.
 *
 * Threads: any; \a converter and the options' functions are called in the calling one. Errors: nothing that
 * \a converter throws comes out. A crash takes the process with it.
 */
SReport checkConverter(const NodeDataConverter& converter, const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                       const SCheckOptions& options = {});

} // namespace Plugin::Halvex::Testing
