// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FolderName.h"

#include <algorithm>

namespace Host {

bool makesAFolder(const QString& name)
{
    return !name.isEmpty() && !name.startsWith(QLatin1Char('.')) &&
           std::all_of(name.begin(), name.end(), [](QChar c) { return c.isPrint() && c != QLatin1Char('/'); });
}

bool makesASinkFolder(const QString& name)
{
    // A run writes these into the same folder.
    const bool isTaken = name == QLatin1String("graph.txt") || name == QLatin1String("graph.dot");
    return !isTaken && makesAFolder(name);
}

} // namespace Host
