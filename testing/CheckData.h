// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/testing/SCheckOptions.h>
#include <Halvex/testing/SReport.h>

#include <functional>

namespace Plugin::Halvex::Testing {

/// Makes data, a new object at each call, whose content depends on \a number alone.
using DataCreator = std::function<CNodeDataPtr(int number)>;

/**
 * Tells which rules the class of the data that \a creator makes breaks.
 *
 * \code
 * const SReport report = checkData([](int number) { return QSharedPointer<CNumberData>::create(number); });
 * \endcode
 *
 * Of the options, makeData and changeSettings mean nothing here. Threads: any; data is also made and dropped in
 * another.
 */
SReport checkData(const DataCreator& creator, const SCheckOptions& options = {});

} // namespace Plugin::Halvex::Testing
