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
 * Of the options, makeData and changeSettings mean nothing here.
 *
 * Threads: any; the options' functions are called in the calling one. \a creator is called in another one, too, and
 * data is asked for its type and dropped there. Errors: nothing that \a creator or the data throws comes out. A crash
 * takes the process with it, and so does a destructor that throws.
 */
SReport checkData(const DataCreator& creator, const SCheckOptions& options = {});

} // namespace Plugin::Halvex::Testing
