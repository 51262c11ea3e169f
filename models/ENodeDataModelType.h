// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin::Halvex {

/// The kind of a model. The numbers are frozen: hosts and other plugins compare them.
enum class ENodeDataModelType : qint32
{
    Source = 0,
    Sink = 1,
    Decoupler = 2
};

} // namespace Plugin::Halvex
