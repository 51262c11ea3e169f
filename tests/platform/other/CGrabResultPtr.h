// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <memory>
#include <utility>

namespace Veltra {

/// A frame that begins like ours and has less to tell.
struct SGrabResult
{
    int width = 0;
    int height = 0;
    std::shared_ptr<const void> owner;
};

class CGrabResultPtr
{
public:
    CGrabResultPtr() = default;
    explicit CGrabResultPtr(SGrabResult result)
        : m_frame(std::make_shared<const SGrabResult>(std::move(result)))
    {
    }

    explicit operator bool() const { return m_frame != nullptr; }
    const SGrabResult& operator*() const { return *m_frame; }

private:
    std::shared_ptr<const SGrabResult> m_frame;
};

} // namespace Veltra
