// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"
#include "host/camera/SCameraOptions.h"

#include <QCoreApplication>
#include <QMutex>
#include <QString>

#include <memory>
#include <vector>

namespace Host {

class CAravisCamera;
class IFrameSource;

/**
 * An open camera whose features may be read and set while its frames are grabbed, and which is opened again when it has
 * gone.
 *
 * \code
 * const auto camera = CSharedCamera::open(options, &error);
 * const auto source = camera->makeSource(&error); // start(), grab() in the thread of a CGrabThread
 * camera->setFeature("ExposureTime", "5000");     // meanwhile
 * \endcode
 *
 * A camera that sends nothing has not gone: it may wait for a trigger. It has gone when it no longer answers. Then it
 * is waited for as long as there is a source. What was set is set again when it comes back, since its power may have
 * been off.
 *
 * Threads: features from any thread, one call waits for the other. Sources are made and destroyed in one thread at a
 * time, and one after the other.
 */
class CSharedCamera : public std::enable_shared_from_this<CSharedCamera>
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSharedCamera)

public:
    /// Null, with the reason in \a error, if it cannot be opened.
    static std::shared_ptr<CSharedCamera> open(const SCameraOptions& options, QString* error);
    ~CSharedCamera();
    Q_DISABLE_COPY(CSharedCamera)

    /// "Maker Model (address), 512 x 512 Mono8".
    QString description() const;

    /// A source of its frames, which stops the camera when it is destroyed and shares this object. Null, with the
    /// reason in \a error, if the camera does not answer.
    std::unique_ptr<IFrameSource> makeSource(QString* error);

    /// Whether it no longer answers, streaming or not.
    bool isLost() const;

    /// Opens one that has gone again, if it is there. Not while there is a source, which does so by itself.
    bool reopen();

    /// All features; none while it has gone.
    std::vector<SFeature> features() const;

    /// Sets a feature, or runs a command. Returns what is wrong, in one line; empty on success.
    QString setFeature(const QString& name, const QString& value);

private:
    class CLent;

    explicit CSharedCamera(SCameraOptions options);
    void openAnew(QString* error);
    std::unique_ptr<CAravisCamera> openCamera(QString* error) const;
    std::unique_ptr<IFrameSource> lend(bool isNew, QString* error);

    mutable QMutex m_mutex;
    SCameraOptions m_options;                // guarded by m_mutex, with what was set
    std::unique_ptr<CAravisCamera> m_camera; // the same; null while it has gone. Its grab() needs no lock
};

} // namespace Host
