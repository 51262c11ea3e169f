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
        if (strong)
            strong->registerService(m_service);
        return !strong.isNull();
    }
    bool extensionsInitialized() override { return true; }
    bool uninitialize(const QWeakPointer<IServiceManager>& manager) override
    {
        const auto strong = manager.toStrongRef();
        if (strong)
            strong->unregisterService(m_service);
        return !strong.isNull();
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

const QString korean = QStringLiteral("카메라");
const QString english = QStringLiteral("Camera");
const QString none = QStringLiteral("a camera");

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
    void mayBeTakenDownAtAnyTime();
    void setLanguageWithoutANameDoesNothing();
    void setLanguageChangesTexts();
    void languageIsFoundOrTheLastOneStays_data();
    void languageIsFoundOrTheLastOneStays();
    void twoPluginsMayHaveTheirOwnLanguage();
    void lastLanguageAskedForWins();
    void languageChangeMayEndThePlugin();
    void belongsToItsParent();
    void publishesAndWithdrawsAService();
};

void tst_ALocalizedPlugin::mayBeTakenDownAtAnyTime()
{
    CPlugin plugin;
    IPlugin& base = plugin;
    QVERIFY(base.checkPluginClosability(false));
    QVERIFY(base.checkPluginClosability(true));
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
    QCOMPARE(text(), none);
}

void tst_ALocalizedPlugin::setLanguageChangesTexts()
{
    CPlugin plugin(QStringLiteral("Sample"));
    QCOMPARE(text(), none);
    plugin.setLanguage(QStringLiteral("ko"));
    QCOMPARE(text(), korean);
    plugin.setLanguage(QStringLiteral("en"));
    QCOMPARE(text(), english);
}

void tst_ALocalizedPlugin::languageIsFoundOrTheLastOneStays_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("ko") << korean;
    QTest::newRow("ko_KR") << korean;
    QTest::newRow("ko-KR") << korean;
    QTest::newRow("ko_KR.UTF-8") << korean;
    QTest::newRow("xx") << none;
    QTest::newRow("xx_YY") << none;
    QTest::newRow("kor") << none; // begins like one
    QTest::newRow("") << none;
}

void tst_ALocalizedPlugin::languageIsFoundOrTheLastOneStays()
{
    const QString language = QString::fromLatin1(QTest::currentDataTag());
    {
        CPlugin plugin(QStringLiteral("Sample"));
        plugin.setLanguage(language);
        QTEST(text(), "text");
        plugin.setLanguage(QStringLiteral("ko"));
        plugin.setLanguage(language);
        QCOMPARE(text(), korean);
    }
    QCOMPARE(text(), none); // the texts go with the plugin
}

void tst_ALocalizedPlugin::twoPluginsMayHaveTheirOwnLanguage()
{
    CPlugin first(QStringLiteral("Sample"));
    first.setLanguage(QStringLiteral("ko"));
    {
        CPlugin second(QStringLiteral("Sample"));
        second.setLanguage(QStringLiteral("en"));
        QCOMPARE(text(), english); // the newest one answers first
    }
    QCOMPARE(text(), korean);
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
    QCOMPARE(text(), korean);
}

void tst_ALocalizedPlugin::languageChangeMayEndThePlugin()
{
    auto plugin = std::make_unique<CPlugin>(QStringLiteral("Sample"));
    const CLanguageWatcher watcher([&plugin] { std::exchange(plugin, nullptr).reset(); });
    plugin->setLanguage(QStringLiteral("en"));
    QVERIFY(!plugin);
    QCOMPARE(text(), none);
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

    QVERIFY(!plugin.initialize(QWeakPointer<IServiceManager>()));
    QVERIFY(!plugin.uninitialize(QWeakPointer<IServiceManager>()));
}

QTEST_GUILESS_MAIN(tst_ALocalizedPlugin)

#include "tst_ALocalizedPlugin.moc"
