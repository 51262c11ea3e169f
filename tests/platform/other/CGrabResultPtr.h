// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <memory>

namespace Veltra {

/// A frame that only a camera makes, and of which nobody can ask anything.
class CGrabResultPtr
{
public:
    explicit operator bool() const { return m_frame != nullptr; }

private:
    std::shared_ptr<const void> m_frame;
};

} // namespace Veltra
