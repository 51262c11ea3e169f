// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin::Halvex {

/// The kind of a model. The numbers are frozen: hosts and other plugins compare them.
enum class ENodeDataModelType : qint32
{
    Source = 0,   ///< Data enters the graph by it.
    Sink = 1,     ///< Data leaves the graph by it; every model that says nothing else.
    Decoupler = 2 ///< Lets the newest data out at a rate of its own.
};

} // namespace Plugin::Halvex
