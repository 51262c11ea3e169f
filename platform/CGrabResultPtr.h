// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <utility>

namespace Veltra {

/**
 * One frame as the camera delivered it. Immutable once it is in a CGrabResultPtr.
 *
 * The pixels stay where the driver put them: `pixels` points into memory that `owner` keeps, and releasing the
 * last handle releases `owner`, whose deleter gives the memory back.
 */
struct SGrabResult
{
    const std::byte* pixels = nullptr; ///< First byte of the first row.
    std::size_t size = 0;              ///< Bytes at `pixels`.
    int width = 0;                     ///< Pixels per row.
    int height = 0;                    ///< Rows.
    int stride = 0;                    ///< Bytes from one row to the next.
    QString pixelFormat;               ///< GenICam name: "Mono8", "BayerRG8", "RGB8Packed".
    quint64 frameNumber = 0;           ///< As the device counts frames.
    quint64 timestampNs = 0;           ///< Device clock, nanoseconds.
    bool complete = false;             ///< False when a part of the frame was lost on its way.
    std::shared_ptr<const void> owner; ///< Keeps `pixels` alive.
};

/**
 * A reference-counted handle to one immutable grab result; a default-constructed one is empty.
 *
 * \code
 * Veltra::CGrabResultPtr frame(std::move(result));
 * if (frame && frame->complete)
 *     show(frame->pixels, frame->width, frame->height, frame->stride);
 * \endcode
 *
 * Threads: handles to one result may be copied, read and dropped concurrently from any threads; a single handle is
 * not to be assigned in one thread while another uses it. The last one to go releases the memory in its thread.
 */
class CGrabResultPtr
{
public:
    CGrabResultPtr() = default;
    /// Takes \a result over; from here on it does not change.
    explicit CGrabResultPtr(SGrabResult result)
        : m_result(std::make_shared<const SGrabResult>(std::move(result)))
    {
    }

    /// Whether there is a result.
    explicit operator bool() const { return m_result != nullptr; }

    /// The result. The handle must not be empty.
    const SGrabResult& operator*() const { return *m_result; }
    /// A member of the result. The handle must not be empty.
    const SGrabResult* operator->() const { return m_result.get(); }

private:
    std::shared_ptr<const SGrabResult> m_result;
};

} // namespace Veltra
