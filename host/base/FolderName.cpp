// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FolderName.h"

#include "host/base/RunFiles.h"
#include "host/base/Shown.h"

#include <QFile>

#include <algorithm>
#include <string>

namespace Host {

bool makesAFolder(const QString& name)
{
    constexpr int maxBytes = 255; // on the file systems in use
    const std::u32string letters = name.toStdU32String();
    return !name.isEmpty() && !name.startsWith(QLatin1Char('.')) && QFile::encodeName(name).size() <= maxBytes &&
           std::all_of(letters.begin(), letters.end(), [](char32_t c) { return isPrintable(c) && c != U'/'; });
}

bool makesACameraFolder(const QString& name)
{
    return makesAFolder(name) && !RunFiles::isBesideCameras(name);
}

bool makesASinkFolder(const QString& name)
{
    return makesAFolder(name) && !RunFiles::isBesideSinks(name);
}

} // namespace Host
