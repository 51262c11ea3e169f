// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a CCameraSession asks the features of its camera for.

#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CSharedCamera.h"

namespace Host {

void CCameraSession::trigger()
{
    setFeature(QStringLiteral("TriggerSoftware"), {});
}

void CCameraSession::readFeatures()
{
    if (m_camera)
        m_work.run([camera = m_camera] { return camera->features(); }, this,
                   [this](const std::vector<SFeature>& features) { Q_EMIT featuresRead(features); });
}

void CCameraSession::setFeature(const QString& name, const QString& value)
{
    if (!m_camera)
        return;
    m_work.run([camera = m_camera, name, value] { return camera->setFeature(name, value); }, this,
               [this](const QString& error) { fail(error); });
    readFeatures();
}

} // namespace Host
