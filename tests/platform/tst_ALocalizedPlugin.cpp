// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/platform/ALocalizedPlugin.h>

#include "support/CServiceManager.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

using Core::Plugin::ALocalizedPlugin;
using Core::Plugin::IPlugin;
using Core::Service::IService;
using Core::Service::IServiceManager;

static_assert(std::is_abstract_v<IPlugin> && std::is_abstract_v<ALocalizedPlugin>,
              "a plugin says what its start and end do");
static_assert(std::is_abstract_v<IServiceManager>, "the host implements it");
static_assert(!std::is_convertible_v<QObject*, IService>, "a service is made on request");

namespace {

class CService : public IService
{
public:
    using IService::IService;
};

/// Overrides only what it must.
class CPlugin : public ALocalizedPlugin
{
public:
    using ALocalizedPlugin::ALocalizedPlugin;
    bool initialize(const QWeakPointer<IServiceManager>& manager) override
    {
        const auto strong = manager.toStrongRef();
        if (strong.isNull())
            return false;
        strong->registerService(m_service);
        return true;
    }
    bool extensionsInitialized() override { return true; }
    bool uninitialize(const QWeakPointer<IServiceManager>& manager) override
    {
        const auto strong = manager.toStrongRef();
        if (strong.isNull())
            return false;
        strong->unregisterService(m_service);
        return true;
    }

private:
    QSharedPointer<IService> m_service{new CService(nullptr)};
};

/// Calls a function at every change of the application's language.
class CLanguageWatcher : public QObject
{
public:
    explicit CLanguageWatcher(std::function<void()> onChange)
        : m_onChange(std::move(onChange))
    {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange)
            m_onChange();
        return false;
    }

private:
    std::function<void()> m_onChange;
};

/// What the application says in the languages for which there is a Sample_<language>.ts; "a camera" without one.
QString text()
{
    return QCoreApplication::translate("CSamplePlugin", "a camera");
}

} // namespace

class tst_ALocalizedPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mayCloseAtAnyTime();
    void isTakenDownAtOnce();
    void setLanguageWithoutANameDoesNothing();
    void setLanguageChangesTexts();
    void setLanguageFindsTheLanguage_data();
    void setLanguageFindsTheLanguage();
    void unknownLanguageKeepsTheLast_data();
    void unknownLanguageKeepsTheLast();
    void textsGoWithThePlugin();
    void twoPluginsMayHaveTheirOwnLanguage();
    void lastLanguageAskedForWins();
    void languageChangeMayEndThePlugin();
    void belongsToItsParent();
    void publishesAndWithdrawsAService();
    void startsWithoutAManagerFail();
};

void tst_ALocalizedPlugin::mayCloseAtAnyTime()
{
    CPlugin plugin;
    IPlugin& base = plugin;
    QVERIFY(base.checkPluginClosability(false));
    QVERIFY(base.checkPluginClosability(true));
}

void tst_ALocalizedPlugin::isTakenDownAtOnce()
{
    CPlugin plugin;
    QCOMPARE(plugin.aboutToUninitialize(), IPlugin::UninitializeMode::Synchronous);
}

void tst_ALocalizedPlugin::setLanguageWithoutANameDoesNothing()
{
    int changes = 0;
    const CLanguageWatcher watcher([&changes] { ++changes; });
    CPlugin plugin;
    plugin.setLanguage(QStringLiteral("ko"));
    plugin.setLanguage(QString());
    QCOMPARE(changes, 0);
    QCOMPARE(text(), QStringLiteral("a camera"));
}

void tst_ALocalizedPlugin::setLanguageChangesTexts()
{
    CPlugin plugin(QStringLiteral("Sample"));
    QCOMPARE(text(), QStringLiteral("a camera"));
    plugin.setLanguage(QStringLiteral("ko"));
    QCOMPARE(text(), QString::fromUtf8("카메라"));
    plugin.setLanguage(QStringLiteral("en"));
    QCOMPARE(text(), QStringLiteral("Camera"));
}

void tst_ALocalizedPlugin::setLanguageFindsTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("language") << "ko";
    QTest::newRow("country") << "ko_KR";
    QTest::newRow("country with a hyphen") << "ko-KR";
    QTest::newRow("encoding") << "ko_KR.UTF-8";
}

void tst_ALocalizedPlugin::setLanguageFindsTheLanguage()
{
    QFETCH(QString, language);
    CPlugin plugin(QStringLiteral("Sample"));
    plugin.setLanguage(language);
    QCOMPARE(text(), QString::fromUtf8("카메라"));
}

void tst_ALocalizedPlugin::unknownLanguageKeepsTheLast_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("unknown") << "xx";
    QTest::newRow("unknown country") << "xx_YY";
    QTest::newRow("empty") << "";
    QTest::newRow("begins like one") << "kor";
}

void tst_ALocalizedPlugin::unknownLanguageKeepsTheLast()
{
    QFETCH(QString, language);
    CPlugin plugin(QStringLiteral("Sample"));
    plugin.setLanguage(language);
    QCOMPARE(text(), QStringLiteral("a camera"));
    plugin.setLanguage(QStringLiteral("ko"));
    plugin.setLanguage(language);
    QCOMPARE(text(), QString::fromUtf8("카메라"));
}

void tst_ALocalizedPlugin::textsGoWithThePlugin()
{
    {
        CPlugin plugin(QStringLiteral("Sample"));
        plugin.setLanguage(QStringLiteral("ko"));
    }
    QCOMPARE(text(), QStringLiteral("a camera"));
}

void tst_ALocalizedPlugin::twoPluginsMayHaveTheirOwnLanguage()
{
    CPlugin korean(QStringLiteral("Sample"));
    korean.setLanguage(QStringLiteral("ko"));
    {
        CPlugin english(QStringLiteral("Sample"));
        english.setLanguage(QStringLiteral("en"));
        QCOMPARE(text(), QStringLiteral("Camera")); // the newest one answers first
    }
    QCOMPARE(text(), QString::fromUtf8("카메라"));
}

void tst_ALocalizedPlugin::lastLanguageAskedForWins()
{
    CPlugin plugin(QStringLiteral("Sample"));
    bool isFirst = true;
    const CLanguageWatcher watcher([&] {
        if (std::exchange(isFirst, false))
            plugin.setLanguage(QStringLiteral("ko"));
    });
    plugin.setLanguage(QStringLiteral("en"));
    QCOMPARE(text(), QString::fromUtf8("카메라"));
}

void tst_ALocalizedPlugin::languageChangeMayEndThePlugin()
{
    auto plugin = std::make_unique<CPlugin>(QStringLiteral("Sample"));
    const CLanguageWatcher watcher([&plugin] { std::exchange(plugin, nullptr).reset(); });
    plugin->setLanguage(QStringLiteral("en"));
    QVERIFY(!plugin);
    QCOMPARE(text(), QStringLiteral("a camera"));
}

void tst_ALocalizedPlugin::belongsToItsParent()
{
    QObject parent;
    QCOMPARE((new CService(&parent))->parent(), &parent);
    QVERIFY(CPlugin().parent() == nullptr);
}

void tst_ALocalizedPlugin::publishesAndWithdrawsAService()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CPlugin plugin;
    QVERIFY(plugin.initialize(manager));
    QVERIFY(plugin.extensionsInitialized());
    QCOMPARE(manager->services().size(), 1);
    QVERIFY(plugin.uninitialize(manager));
    QVERIFY(manager->services().isEmpty());
}

void tst_ALocalizedPlugin::startsWithoutAManagerFail()
{
    CPlugin plugin;
    QVERIFY(!plugin.initialize(QWeakPointer<IServiceManager>()));
    QVERIFY(!plugin.uninitialize(QWeakPointer<IServiceManager>()));
}

QTEST_GUILESS_MAIN(tst_ALocalizedPlugin)

#include "tst_ALocalizedPlugin.moc"
