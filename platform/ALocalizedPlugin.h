// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IPlugin.h>

#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <QTranslator>

#include <memory>
#include <utility>

namespace Core {
namespace Plugin {

/**
 * A plugin whose texts follow the host's language.
 *
 * \code
 * class CMyPlugin : public Core::Plugin::ALocalizedPlugin
 * {
 * public:
 *     CMyPlugin() : ALocalizedPlugin(QStringLiteral("Mine")) {} // brings :/translation/Mine_ko.qm
 *     // and initialize(), extensionsInitialized(), uninitialize()
 * };
 * \endcode
 *
 * The translation is in the application from setLanguage() until the plugin is destroyed, which must be before its
 * library is unloaded: Qt reads the texts where the library has them.
 *
 * Threads: the host's main thread.
 */
class Q_DECL_EXPORT ALocalizedPlugin : public IPlugin
{
public:
    /// The plugin's translations are the resources ":/translation/<translationName>_<language>.qm"; without a name it
    /// has none.
    explicit ALocalizedPlugin(QString translationName = {}, QObject* parent = nullptr)
        : IPlugin(parent)
        , m_translationName(std::move(translationName))
    {
    }

    /// The host's language changed to \a language: "ko", or "ko_KR", which falls back to "ko". The plugin's
    /// translation into it takes the place of the one before; where there is none, the one before stays.
    virtual void setLanguage(const QString& language)
    {
        if (m_translationName.isEmpty() || QCoreApplication::instance() == nullptr)
            return;
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(m_translationName + QLatin1Char('_') + language, QStringLiteral(":/translation"),
                              QStringLiteral("_-.")))
            return;
        // Installing tells everybody, who may ask for yet another language or end the plugin: it comes last.
        m_translator.swap(translator);
        QCoreApplication::installTranslator(m_translator.get());
    }

private:
    QString m_translationName;
    std::unique_ptr<QTranslator> m_translator; // takes itself out of the application
};

} // namespace Plugin
} // namespace Core
