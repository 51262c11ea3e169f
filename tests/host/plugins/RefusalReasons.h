// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QStringList>

/// Why plugins were refused, by a CPluginFolder or a CPluginHost.
template <typename Loader>
QStringList reasons(const Loader& loader)
{
    QStringList reasons;
    for (const auto& refusal : loader.refusals())
        reasons << refusal.reason;
    return reasons;
}
