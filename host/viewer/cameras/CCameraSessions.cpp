// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraSessions.h"

#include "host/viewer/cameras/CCameraSession.h"

#include <Halvex/service/INodeService.h>

#include <QPointer>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

CCameraSessions::CCameraSessions(INodeService& service, const IHostModels& models, QObject* parent)
    : QObject(parent)
    , m_service(service)
    , m_models(models)
{
}

CCameraSession* CCameraSessions::connectCamera(const SourceOptions& options)
{
    if (CCameraSession* const known = find(nameOf(options))) {
        known->open();
        return known;
    }
    auto* const session = new CCameraSession(options, m_service, m_models, this);
    m_sessions.append(session);
    connect(session, &CCameraSession::opened, this, [this, session] { Q_EMIT opened(session); });
    connect(session, &CCameraSession::changed, this, [this, session] { Q_EMIT changed(session); });
    connect(session, &CCameraSession::ticked, this, [this, session] { Q_EMIT changed(session); });
    connect(session, &CCameraSession::nodeLost, this, [this, session] { take(session); });
    Q_EMIT added(session);
    session->open();
    return session;
}

void CCameraSessions::disconnectCamera(const QString& name)
{
    CCameraSession* const session = find(name);
    if (!session)
        return;
    const QPointer<CNodeBase> node = session->node();
    take(session);
    if (node)
        m_service.removeSceneOfNode(node);
}

void CCameraSessions::take(CCameraSession* session)
{
    if (!m_sessions.removeOne(session))
        return;
    session->disconnect(this);
    Q_EMIT removed(session);
    session->close();
}

CCameraSession* CCameraSessions::find(const QString& name) const
{
    const auto found = std::find_if(m_sessions.begin(), m_sessions.end(),
                                    [&name](const CCameraSession* each) { return each->name() == name; });
    return found == m_sessions.end() ? nullptr : *found;
}

CCameraSession* CCameraSessions::findByScene(const CNodeScene* scene) const
{
    const auto found = std::find_if(m_sessions.begin(), m_sessions.end(),
                                    [scene](const CCameraSession* each) { return scene && each->scene() == scene; });
    return found == m_sessions.end() ? nullptr : *found;
}

QString CCameraSessions::freeSimulatedCamera() const
{
    const QString first = SCameraOptions().address;
    QString name = first;
    for (int number = 1; find(name); ++number)
        name = QStringLiteral("%1-%2").arg(first).arg(number);
    return name;
}

} // namespace Host
