// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CSharedCamera.h"

#include "host/camera/CAravisCamera.h"
#include "host/camera/CReconnectingCamera.h"

#include <QMutexLocker>

#include <algorithm>
#include <arv.h>
#include <utility>

namespace Host {

// The camera for as long as one source has it.
class CSharedCamera::CLent : public IFrameSource
{
public:
    explicit CLent(std::shared_ptr<CSharedCamera> owner)
        : m_owner(std::move(owner))
        , m_camera(*m_owner->m_camera)
    {
    }

    ~CLent() override
    {
        const QMutexLocker lock(&m_owner->m_mutex);
        m_camera.stop();
    }

    QString description() const override { return m_camera.description(); }
    QString pixelFormat() const override { return m_camera.pixelFormat(); }
    bool start(QString* error) override
    {
        const QMutexLocker lock(&m_owner->m_mutex);
        return m_camera.start(error);
    }
    SGrab grab(std::chrono::milliseconds timeout) override { return m_camera.grab(timeout); }
    quint64 underruns() const override { return m_camera.underruns(); }
    QString stallText(const QString& time, EStall stall, const SGrabStatistics& before) const override
    {
        const QMutexLocker lock(&m_owner->m_mutex);
        return m_camera.stallText(time, stall, before);
    }

private:
    const std::shared_ptr<CSharedCamera> m_owner;
    CAravisCamera& m_camera; // replaced only when no source has it
};

std::shared_ptr<CSharedCamera> CSharedCamera::open(const SCameraOptions& options, QString* error)
{
    std::shared_ptr<CSharedCamera> shared(new CSharedCamera(options));
    shared->m_camera = shared->openCamera(error);
    return shared->m_camera ? shared : nullptr;
}

CSharedCamera::CSharedCamera(SCameraOptions options)
    : m_options(std::move(options))
{
    m_options.canNameCommands = false;
}

CSharedCamera::~CSharedCamera() = default;

QString CSharedCamera::description() const
{
    const QMutexLocker lock(&m_mutex);
    return m_camera ? m_camera->description() : QString();
}

std::unique_ptr<CAravisCamera> CSharedCamera::openCamera(QString* error) const
{
    SCameraOptions options;
    {
        const QMutexLocker lock(&m_mutex);
        options = m_options;
    }
    return CAravisCamera::open(options, error);
}

// Not under the lock where it takes long: who asks for features meanwhile hears that there are none.
void CSharedCamera::openAnew(QString* error)
{
    std::unique_ptr<CAravisCamera> gone;
    {
        const QMutexLocker lock(&m_mutex);
        gone = std::move(m_camera);
    }
    gone.reset();
    auto camera = openCamera(error);
    const QMutexLocker lock(&m_mutex);
    m_camera = std::move(camera);
}

bool CSharedCamera::isLost() const
{
    const QMutexLocker lock(&m_mutex);
    return !m_camera || m_camera->isLost();
}

bool CSharedCamera::reopen()
{
    QString error; // it is asked for again and again: only that it is there is of use
    if (isLost())
        openAnew(&error);
    return !isLost();
}

std::unique_ptr<IFrameSource> CSharedCamera::lend(bool isNew, QString* error)
{
    if (isNew)
        openAnew(error);
    if (!m_camera)
        return nullptr;
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_camera->refresh(error))
            return nullptr;
    }
    return std::make_unique<CLent>(shared_from_this());
}

std::unique_ptr<IFrameSource> CSharedCamera::makeSource(QString* error)
{
    using std::chrono::hours;
    constexpr hours forEver(24 * 365);
    const auto open = [shared = shared_from_this(), isNew = isLost()](QString* reason) mutable {
        return shared->lend(std::exchange(isNew, true), reason);
    };
    return CReconnectingCamera::open(open, forEver, forEver, error);
}

std::vector<SFeature> CSharedCamera::features() const
{
    const QMutexLocker lock(&m_mutex);
    return m_camera ? m_camera->features() : std::vector<SFeature>();
}

QString CSharedCamera::setFeature(const QString& name, const QString& value)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_camera)
        return tr("camera '%1' has gone").arg(m_options.address);
    const QString error = CFeatures(arv_camera_get_device(m_camera->handle())).set(name, value);
    const bool isCommand = value.isEmpty();
    if (!error.isEmpty() || isCommand)
        return error;
    // In the order in which they were set last: one may decide what another may be.
    auto& set = m_options.features;
    set.erase(std::remove_if(set.begin(), set.end(), [&name](const auto& each) { return each.first == name; }),
              set.end());
    set.emplace_back(name, value);
    return {};
}

} // namespace Host
