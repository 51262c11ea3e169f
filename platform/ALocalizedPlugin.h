// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "platform/IPlugin.h"

#include <QString>

namespace Core {
namespace Plugin {

/// A plugin whose texts follow the host's language. Called in the host's main thread.
class Q_DECL_EXPORT ALocalizedPlugin : public IPlugin
{
public:
    using IPlugin::IPlugin;

    /// The host's language changed to \a language ("en", "ko"). A plugin that brings no translations keeps its
    /// texts as they are, which is what this does.
    virtual void setLanguage(const QString& language) { Q_UNUSED(language) }
};

} // namespace Plugin
} // namespace Core
