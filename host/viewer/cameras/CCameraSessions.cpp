// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraSessions.h"

#include "host/viewer/cameras/CCameraSession.h"

#include <Halvex/service/INodeService.h>

#include <QDir>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <variant>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QString pathOf(const SFileOptions& files)
{
    return QDir::cleanPath(QFileInfo(files.place).absoluteFilePath());
}

// Files are the same wherever their name comes from: two folders may be called alike.
bool isSame(const SourceOptions& one, const SourceOptions& other)
{
    const auto* const files = std::get_if<SFileOptions>(&one);
    const auto* const others = std::get_if<SFileOptions>(&other);
    if (files && others)
        return files->kind == others->kind && pathOf(*files) == pathOf(*others);
    return !files && !others && nameOf(one) == nameOf(other);
}

} // namespace

CCameraSessions::CCameraSessions(INodeService& service, const IHostModels& models, QObject* parent)
    : QObject(parent)
    , m_service(service)
    , m_models(models)
{
}

CCameraSession* CCameraSessions::connectCamera(const SourceOptions& options)
{
    const auto known = std::find_if(m_sessions.begin(), m_sessions.end(), [&options](const CCameraSession* each) {
        return isSame(each->options(), options);
    });
    if (known != m_sessions.end()) {
        (*known)->open();
        return *known;
    }
    SourceOptions named = options;
    if (auto* const files = std::get_if<SFileOptions>(&named))
        files->name = freeName(files->name);
    auto* const session = new CCameraSession(named, m_service, m_models, this);
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

void CCameraSessions::closeAll()
{
    while (!m_sessions.isEmpty())
        take(m_sessions.last());
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
    return freeName(SCameraOptions().address);
}

QString CCameraSessions::freeName(const QString& first) const
{
    QString name = first;
    for (int number = 1; find(name); ++number)
        name = QStringLiteral("%1-%2").arg(first).arg(number);
    return name;
}

} // namespace Host
