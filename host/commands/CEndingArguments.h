// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"

#include <string>

namespace CLI {
class App;
}

namespace Host {

/// The arguments of `run` that say when it ends, and what makes its end a failure. Declared first, read by the parser,
/// then checked.
class CEndingArguments
{
public:
    /// \a command writes into this object when it is parsed. Once, before anything else.
    void declare(CLI::App& command);

    /// Puts them into \a options, which has its cameras and files by now. Throws CLI::ValidationError, with a whole
    /// sentence, at the first thing that makes no sense.
    void read(SRunOptions* options) const;

private:
    bool isGiven(const char* option) const;

    const CLI::App* m_command = nullptr;
    std::string m_frames;
    std::string m_duration;
    std::string m_timeout;
    bool m_isStrict = false;
};

} // namespace Host
