// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CHostServices.h"

#include "host/base/Shown.h"
#include "host/models/IHostModels.h"
#include "host/plugins/CPluginHost.h"
#include "host/run/Output.h"

#include <Halvex/service/INodeService.h>

#include <QDir>

namespace Host {

using namespace Plugin::Halvex;

CHostServices::CHostServices(const QString& folder)
    : m_folder(folder.isEmpty() ? CPluginHost::defaultFolder() : folder)
{
}

CHostServices::~CHostServices() = default;

bool CHostServices::loadPlugins(QString* error)
{
    const QDir present(m_folder);
    if (!present.exists() || !present.isReadable()) {
        *error = QStringLiteral("cannot read the plugin folder '%1'").arg(printable(m_folder));
        return false;
    }
    m_plugins = std::make_unique<CPluginHost>(m_folder);
    return true;
}

QString CHostServices::load()
{
    QString error;
    if (!loadPlugins(&error))
        return error;
    for (const SPluginRefusal& refusal : m_plugins->refusals())
        printErrorLine(QStringLiteral("plugin '%1': %2").arg(printable(refusal.file), refusal.reason));
    for (const SPluginRefusal& refusal : m_plugins->refusals()) {
        if (refusal.isRequired)
            return QStringLiteral("the plugin '%1' is required").arg(printable(refusal.file));
    }

    const CServiceManager& services = m_plugins->services();
    m_nodeService = services.findService(INodeService::staticMetaObject.className()).objectCast<INodeService>();
    m_modelService = services.findService(qobject_interface_iid<IHostModels*>());
    m_models = qobject_cast<IHostModels*>(m_modelService.data());
    if (!m_nodeService)
        return QStringLiteral("no plugin in '%1' publishes a node service").arg(m_folder);
    return m_models ? QString() : QStringLiteral("no plugin in '%1' brings the host's models").arg(m_folder);
}

} // namespace Host
