// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <chrono>
#include <memory>

namespace Host {

/**
 * Bounds how many frames are in flight: a frame is, as long as somebody holds its claim.
 *
 * \code
 * const auto claim = claims.take(std::chrono::milliseconds(100));
 * if (!claim)
 *     return; // as many as there may be
 * \endcode
 *
 * Threads: any. Claims may outlive this object.
 */
class CFrameClaims
{
public:
    /// \a most is at least 1.
    explicit CFrameClaims(int most);

    /// A claim, when there is one; null after \a timeout.
    std::shared_ptr<const void> take(std::chrono::milliseconds timeout) const;

private:
    struct SState;
    const std::shared_ptr<SState> m_state;
};

} // namespace Host
