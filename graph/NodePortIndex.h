// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin::Halvex {

/// A port's index on one side of a node, counted from 0; -1 stands for no port. Qt knows it as "NodePortIndex" from the
/// first node on, so that queued signals can carry it.
using NodePortIndex = int;

} // namespace Plugin::Halvex
