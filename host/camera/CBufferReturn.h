// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <arv.h>

#include <QMutex>
#include <QMutexLocker>

namespace Host {

/// The way back of the buffers, shared by the camera and every frame that is out. The frames may be dropped in any
/// thread, also while the stream is being destroyed, hence the lock: whoever holds it sees the stream whole or gone.
class CBufferReturn
{
public:
    explicit CBufferReturn(ArvStream* stream)
        : m_stream(stream)
    {
    }

    void giveBack(ArvBuffer* buffer)
    {
        const QMutexLocker lock(&m_mutex);
        if (m_stream)
            arv_stream_push_buffer(m_stream, buffer);
        else
            g_object_unref(buffer);
    }

    void close()
    {
        const QMutexLocker lock(&m_mutex);
        m_stream = nullptr;
    }

private:
    QMutex m_mutex;
    ArvStream* m_stream; // guarded by m_mutex; the camera owns it
};

} // namespace Host
