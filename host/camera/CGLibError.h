// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <glib.h>

#include <QString>

namespace Host {

/**
 * An error slot for one GLib call after the other; owns the error.
 *
 * \code
 * CGLibError error;
 * arv_camera_start_acquisition(camera, error.slot());
 * if (error)
 *     report(error.text());
 * \endcode
 */
class CGLibError
{
public:
    CGLibError() = default;
    ~CGLibError() { g_clear_error(&m_error); }
    Q_DISABLE_COPY(CGLibError)

    /// Where the next call puts its error; forgets the previous one.
    GError** slot()
    {
        g_clear_error(&m_error);
        return &m_error;
    }

    explicit operator bool() const { return m_error != nullptr; }

    /// What went wrong, on one line and without a full stop, to be put into a sentence; "no answer" if the call
    /// failed without giving a reason.
    QString text() const;

private:
    GError* m_error = nullptr;
};

} // namespace Host
