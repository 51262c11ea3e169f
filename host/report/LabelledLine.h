// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// "Frames grabbed     300 = 300 complete + 0 incomplete": the value stands in a column of its own, over several lines
/// when it is longer than \a width leaves room for. A dash stands for an empty one.
QString labelledLine(const char* label, const QString& value, int width);

} // namespace Host
