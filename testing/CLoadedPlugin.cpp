// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/CLoadedPlugin_p.h"

#include "testing/Thrown_p.h"

#include <Halvex/service/CHalvexPlugin.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cstring>

namespace Plugin::Halvex::Testing {

namespace {

void deliverWhatIsPosted()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Two copies of the library in one process would each have their own idea of what a scene is.
bool isCopyOfTheLibrary(const QObject& instance)
{
    const QMetaObject& meta = *instance.metaObject();
    return std::strcmp(meta.className(), CHalvexPlugin::staticMetaObject.className()) == 0 &&
           &meta != &CHalvexPlugin::staticMetaObject;
}

} // namespace

CLoadedPlugin::CLoadedPlugin(const QString& file)
    : m_loader(QFileInfo(file).absoluteFilePath())
{
    m_loader.setLoadHints({}); // by default the code stays
    QObject* instance = nullptr;
    const QString thrown = thrownBy([&] { instance = m_loader.instance(); });
    if (!instance) {
        m_error = thrown.isEmpty() ? m_loader.errorString().simplified() : QStringLiteral("loading it %1").arg(thrown);
        return;
    }
    if (isCopyOfTheLibrary(*instance)) {
        m_error = QStringLiteral("it is another copy of the library that this program is linked with");
        return;
    }
    m_plugin = dynamic_cast<Core::Plugin::IPlugin*>(instance);
    if (!m_plugin)
        m_error = QStringLiteral("its object is no Core::Plugin::IPlugin");
}

CLoadedPlugin::~CLoadedPlugin()
{
    deliverWhatIsPosted();
    if (m_loader.isLoaded()) {
        delete m_plugin;
        deliverWhatIsPosted();
        m_loader.unload();
    }
}

} // namespace Plugin::Halvex::Testing
