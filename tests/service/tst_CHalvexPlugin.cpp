// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The plugin, linked, from its making to its end. Loaded from its file it is tested in tests/plugin.

#include <Halvex/service/CHalvexPlugin.h>

#include "HostModels.h"
#include "models/CWorkerModel.h"
#include "support/CServiceManager.h"
#include "support/MetaTypes.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QtTest>

#include <type_traits>

using namespace Plugin::Halvex;
using Core::Service::IService;
using Core::Service::IServiceManager;

static_assert(std::is_base_of_v<Core::Plugin::ALocalizedPlugin, CHalvexPlugin>, "its texts follow the host's language");

namespace {

constexpr auto decoupler = "DecouplerVGR";

/// A manager that looks nothing up, which is up to the host.
class CPlainManager : public CServiceManager
{
public:
    ServicePtr findService(const char* name) const override
    {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): the default
        return IServiceManager::findService(name); // clazy:exclude=skipped-base-method
    }
};

/// A host whose plugin is initialized.
struct SHost
{
    SHost() { initialized = plugin.initialize(manager); }

    QSharedPointer<IService> service() const { return manager->services().value(0); }
    INodeService& nodes() const { return dynamic_cast<INodeService&>(*service()); }

    QSharedPointer<CServiceManager> manager{new CPlainManager};
    CHalvexPlugin plugin;
    bool initialized = false;
};

/// Lets \a work end a little after the plugin has begun to go.
class COpener
{
public:
    explicit COpener(const CGatedWork& work)
        : m_thread([this, &work] {
            waitUntil("the plugin goes", [this] { return m_isLeaving.load(); });
            QThread::msleep(1); // time to leave it, if it does not wait
            work.open(1);
        })
    {
    }
    ~COpener() { m_thread.join(); }
    Q_DISABLE_COPY(COpener)

    void expectThePluginToGo() { m_isLeaving = true; }

private:
    std::atomic<bool> m_isLeaving{false};
    CTestThread m_thread;
};

} // namespace

class tst_CHalvexPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initializeNamesThePortIndex(); // first: with the first node the name is there anyway
    void initializePublishesTheService();
    void decouplerComesWhenExtensionsAreInitialized();
    void uninitializeWithdrawsTheService();
    void goneManagerIsPassedOver();
    void serviceGoesWithItsLastOwner();
    void serviceGoesWithThePlugin();
    void waitsForTheWorkOfItsModels();
    void waitsForTheThreadsThatItsModelsUsed();
    void isWithoutAServiceAfterUninitialize();
    void captionFollowsTheLanguage_data();
    void captionFollowsTheLanguage();
    void signalsMayBeQueued();
};

void tst_CHalvexPlugin::initializeNamesThePortIndex()
{
    QCOMPARE(MetaTypes::idOf("NodePortIndex"), int(QMetaType::UnknownType));
    CHalvexPlugin plugin;
    QCOMPARE(MetaTypes::idOf("NodePortIndex"), int(QMetaType::UnknownType));
    QVERIFY(plugin.initialize({}));
    QCOMPARE(MetaTypes::idOf("NodePortIndex"), int(QMetaType::Int));
}

void tst_CHalvexPlugin::initializePublishesTheService()
{
    const SHost host;
    QVERIFY(host.initialized);
    QCOMPARE(host.manager->services().size(), 1);
    QVERIFY(host.service()->inherits("Plugin::Halvex::INodeService"));
    QVERIFY(!host.manager->findService("Plugin::Halvex::INodeService"));
    QVERIFY(!host.service()->parent());
    QVERIFY(host.service().dynamicCast<CNodeService>());
    QVERIFY(host.nodes().registry()->categories().empty());
}

void tst_CHalvexPlugin::decouplerComesWhenExtensionsAreInitialized()
{
    SHost host;
    QVERIFY(!host.nodes().createModel(decoupler));
    for (int round = 0; round < 2; ++round) { // a host may do so twice
        QVERIFY(host.plugin.extensionsInitialized());
        const auto model = host.nodes().createModel(decoupler);
        QVERIFY(dynamic_cast<CNodeDecouplerDataModelBase*>(model.get()));
        QCOMPARE(model->dataType(ENodePortType::In, 0).id, QString("Veltra Grab Result"));
        QCOMPARE(model->name(), QString(decoupler));
        QCOMPARE(host.nodes().registry()->categories(), std::set<QString>{"Tools"});
        QCOMPARE(host.nodes().registry()->registeredModelsCategoryAssociation().at(decoupler), QString("Tools"));
        QCOMPARE(host.nodes().registry()->registeredModelCreators().size(), std::size_t(1));
    }
}

void tst_CHalvexPlugin::uninitializeWithdrawsTheService()
{
    SHost host;
    // Guards of either kind, one made from the plain pointer and one from the shared one, share one count.
    const QPointer<IService> pointer(host.service().data());
    const QWeakPointer<IService> weak(host.service());
    QCOMPARE(weak.toStrongRef().data(), pointer.data());
    QVERIFY(host.plugin.uninitialize(host.manager));
    QVERIFY(host.manager->services().isEmpty());
    QVERIFY(pointer.isNull());
    QVERIFY(weak.toStrongRef().isNull());
}

void tst_CHalvexPlugin::goneManagerIsPassedOver()
{
    SHost host;
    const QPointer<IService> service = host.service().data();
    const QWeakPointer<IServiceManager> gone(std::exchange(host.manager, {}));
    CHalvexPlugin other;
    QVERIFY(other.initialize(gone));
    QVERIFY(other.extensionsInitialized());
    QVERIFY(other.uninitialize(gone));
    QVERIFY(service);
    QVERIFY(host.plugin.uninitialize(gone));
    QVERIFY(!service);
}

void tst_CHalvexPlugin::serviceGoesWithItsLastOwner()
{
    SHost host;
    host.plugin.extensionsInitialized();
    QSharedPointer<IService> kept = host.service();
    const QPointer<IService> guard = kept.data();
    host.plugin.uninitialize(host.manager);
    QVERIFY(guard);
    QVERIFY(dynamic_cast<INodeService&>(*kept).createModel(decoupler));
    kept.reset();
    QVERIFY(!guard);
}

void tst_CHalvexPlugin::serviceGoesWithThePlugin()
{
    QPointer<IService> service;
    QPointer<CNodeScene> scene;
    {
        const SHost host;
        service = host.service().data();
        host.nodes().addNode(makeSource(), {});
        scene = host.nodes().getActiveScene();
        QVERIFY(service && scene);
    }
    QVERIFY(!service);
    QVERIFY(!scene);
}

void tst_CHalvexPlugin::waitsForTheWorkOfItsModels()
{
    const CGatedWork work;
    COpener opener(work);
    {
        SHost host;
        host.nodes().addNode(makeSource(), {});
        auto model = std::make_unique<CWorkerModel>();
        CWorkerModel& worker = *model;
        worker.setWork(work);
        host.nodes().addNode(std::move(model), {});
        worker.send(1);
        work.waitForBegin();
        host.plugin.uninitialize(host.manager);
        opener.expectThePluginToGo();
    }
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork(0));
}

// A thread that has done the work of a model that is gone may still be on its way out of the library: only a pool at
// rest is a proof that it is not.
void tst_CHalvexPlugin::waitsForTheThreadsThatItsModelsUsed()
{
    QThreadPool first;
    QThreadPool second;
    const CGatedWork work;
    CWorkerModel elsewhere;
    elsewhere.setWork(work);
    // One plugin leaves a pool to the next, and one that comes later is known as well.
    for (QThreadPool* const pool : {&first, &first, &second}) {
        elsewhere.setThreadPool(pool);
        elsewhere.send(1);
        work.waitForBegin();
        COpener opener(work);
        {
            SHost host;
            opener.expectThePluginToGo();
        }
        QCOMPARE(pool->activeThreadCount(), 0);
        QTRY_COMPARE(elsewhere.statistics().pending, 0); // what has run is used for the next frame
    }
}

void tst_CHalvexPlugin::isWithoutAServiceAfterUninitialize()
{
    SHost host;
    host.plugin.uninitialize(host.manager);
    QVERIFY(host.plugin.initialize(host.manager));
    QVERIFY(host.manager->services().isEmpty());
    QVERIFY(host.plugin.extensionsInitialized());
    QVERIFY(host.plugin.uninitialize(host.manager));
}

void tst_CHalvexPlugin::captionFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("caption");
    QTest::newRow("English") << "en" << QString("Decoupler for VGR");
    QTest::newRow("Korean") << "ko" << QString::fromUtf8("VGR용 디커플러");
    QTest::newRow("Japanese") << "ja" << QString::fromUtf8("VGR 用デカップラー");
    QTest::newRow("Chinese") << "zh" << QString::fromUtf8("VGR 解耦器");
}

void tst_CHalvexPlugin::captionFollowsTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, caption);
    SHost host;
    host.plugin.extensionsInitialized();
    const auto model = host.nodes().createModel(decoupler);
    QCOMPARE(model->caption(), QString("Decoupler for VGR"));
    host.plugin.setLanguage(language);
    QCOMPARE(model->caption(), caption);

    // What documents and plugins name things by is the same in every language.
    host.plugin.extensionsInitialized();
    QCOMPARE(host.nodes().createModel(decoupler)->save().value("name").toString(), QString(decoupler));
    QCOMPARE(model->portCaption(ENodePortType::In, 0), QString("VGR"));
    QCOMPARE(host.nodes().registry()->categories(), std::set<QString>{"Tools"});

    host.plugin.setLanguage("en");
    QCOMPARE(model->caption(), QString("Decoupler for VGR"));
}

void tst_CHalvexPlugin::signalsMayBeQueued()
{
    SHost host;
    QVector<CNodeScene*> queued;
    connect(
        &host.nodes(), &INodeService::sceneAdded, &host.plugin, [&queued](CNodeScene* scene) { queued << scene; },
        Qt::QueuedConnection);
    host.nodes().addNode(makeSource(), {});
    QVERIFY(queued.isEmpty());
    QTRY_COMPARE(queued, QVector<CNodeScene*>{host.nodes().getActiveScene()});
}

QTEST_GUILESS_MAIN(tst_CHalvexPlugin)
#include "tst_CHalvexPlugin.moc"
