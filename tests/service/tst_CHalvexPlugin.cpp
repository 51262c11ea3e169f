// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/CHalvexPlugin.h>

#include "support/CServiceManager.h"
#include "support/CTestScene.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>
#include <stdexcept>
#include <type_traits>

using namespace Plugin::Halvex;
using Core::Plugin::ALocalizedPlugin;
using Core::Plugin::IPlugin;
using Core::Service::IService;
using Core::Service::IServiceManager;

static_assert(std::is_base_of_v<ALocalizedPlugin, CHalvexPlugin>, "its texts follow the host's language");

extern "C" const char* qt_plugin_query_metadata();

namespace {

INodeService& nodesOf(const CServiceManager& manager)
{
    return dynamic_cast<INodeService&>(*manager.services().first());
}

/// A host's manager with the two operations that a plugin needs.
class CPlainManager : public IServiceManager
{
public:
    void registerService(const QSharedPointer<IService>& service) override { published = service; }
    void unregisterService(const QSharedPointer<IService>& service) override
    {
        if (published == service)
            published.reset();
    }

    QSharedPointer<IService> published;
};

class CUniqueSource : public ASourceNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Source"); }
    QString name() override { return QStringLiteral("Source"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return true; }
};

QByteArray documentWithADecoupler()
{
    const QJsonObject model{{QStringLiteral("name"), QStringLiteral("DecouplerVGR")}};
    const QJsonObject node{{QStringLiteral("id"), Core::CId::createId().toString()}, {QStringLiteral("model"), model}};
    return QJsonDocument(QJsonObject{{QStringLiteral("nodes"), QJsonArray{node}}}).toJson();
}

} // namespace

class tst_CHalvexPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initializeNamesThePortIndex(); // first: with the first node the name is there anyway
    void initializePublishesTheService();
    void managerNeedsNoLookUp();
    void goneManagerIsPassedOver();
    void mayCloseAndGoAtAnyTime();
    void decouplerComesWhenExtensionsAreInitialized();
    void decouplerOfADocumentNeedsIt();
    void extensionsMayBeInitializedTwice();
    void uninitializeWithdrawsTheService();
    void uninitializeDropsTheServiceWithoutAManager();
    void serviceGoesWithItsLastOwner();
    void serviceTakesItsScenesAlong();
    void serviceGoesWithThePlugin();
    void isWithoutAServiceAfterUninitialize();
    void guardsFollowTheService();
    void captionFollowsTheLanguage_data();
    void captionFollowsTheLanguage();
    void unknownLanguageKeepsTheLast();
    void keysAreNotTranslated();
    void translationsAreEmbedded();
    void entryPointGivesTheMetadata();
    void sceneSignalsNeedNoRegistration();
};

void tst_CHalvexPlugin::initializeNamesThePortIndex()
{
    QCOMPARE(QMetaType::type("NodePortIndex"), int(QMetaType::UnknownType));
    CHalvexPlugin plugin;
    QCOMPARE(QMetaType::type("NodePortIndex"), int(QMetaType::UnknownType));
    QVERIFY(plugin.initialize({}));
    QCOMPARE(QMetaType::type("NodePortIndex"), int(QMetaType::Int));
}

void tst_CHalvexPlugin::initializePublishesTheService()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    QVERIFY(manager->services().isEmpty());
    QVERIFY(plugin.initialize(manager));
    QCOMPARE(manager->services().size(), 1);
    const QObject& service = *manager->services().first();
    QVERIFY(service.inherits("Plugin::Halvex::INodeService"));
    QVERIFY(service.parent() == nullptr);
    QVERIFY(dynamic_cast<const CNodeService*>(&service));
    QVERIFY(nodesOf(*manager).registry()->categories().empty());
}

void tst_CHalvexPlugin::managerNeedsNoLookUp()
{
    const auto manager = QSharedPointer<CPlainManager>::create();
    CHalvexPlugin plugin;
    QVERIFY(plugin.initialize(manager));
    QVERIFY(manager->published);
    QVERIFY(!manager->findService("Plugin::Halvex::INodeService"));
    QVERIFY(plugin.uninitialize(manager));
    QVERIFY(!manager->published);
}

void tst_CHalvexPlugin::goneManagerIsPassedOver()
{
    QSharedPointer<CServiceManager> manager(new CServiceManager);
    const QWeakPointer<IServiceManager> gone(manager);
    manager.reset();
    CHalvexPlugin plugin;
    QVERIFY(plugin.initialize(gone));
    QVERIFY(plugin.extensionsInitialized());
    QVERIFY(plugin.uninitialize(gone));
}

void tst_CHalvexPlugin::mayCloseAndGoAtAnyTime()
{
    CHalvexPlugin plugin;
    QVERIFY(plugin.checkPluginClosability(false));
    QVERIFY(plugin.checkPluginClosability(true));
    QCOMPARE(plugin.aboutToUninitialize(), IPlugin::UninitializeMode::Synchronous);
}

void tst_CHalvexPlugin::decouplerComesWhenExtensionsAreInitialized()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    INodeService& nodes = nodesOf(*manager);
    const QString name = QStringLiteral("DecouplerVGR");
    QVERIFY(!nodes.createModel(name));
    QVERIFY(plugin.extensionsInitialized());

    const auto model = nodes.createModel(name);
    QVERIFY(dynamic_cast<CNodeDecouplerDataModelBase*>(model.get()));
    QCOMPARE(model->dataType(ENodePortType::In, 0).id, QStringLiteral("Veltra Grab Result"));
    QCOMPARE(model->name(), name);
    QCOMPARE(nodes.registry()->categories(), std::set<QString>{QStringLiteral("Tools")});
    QCOMPARE(nodes.registry()->registeredModelsCategoryAssociation().at(name), QStringLiteral("Tools"));
    QCOMPARE(nodes.registry()->registeredModelCreators().size(), std::size_t(1));
}

void tst_CHalvexPlugin::decouplerOfADocumentNeedsIt()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    CTestScene scene(nodesOf(*manager).registry(), {}, nullptr);
    QVERIFY_EXCEPTION_THROWN(scene.loadFromMemory(documentWithADecoupler()), std::logic_error);
    plugin.extensionsInitialized();
    scene.loadFromMemory(documentWithADecoupler());
    QCOMPARE(scene.nodes().size(), std::size_t(1));
}

void tst_CHalvexPlugin::extensionsMayBeInitializedTwice()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    QVERIFY(plugin.extensionsInitialized());
    QVERIFY(plugin.extensionsInitialized());
    QCOMPARE(nodesOf(*manager).registry()->registeredModelCreators().size(), std::size_t(1));
}

void tst_CHalvexPlugin::uninitializeWithdrawsTheService()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    const QPointer<QObject> service = manager->services().first().data();
    QVERIFY(plugin.uninitialize(manager));
    QVERIFY(manager->services().isEmpty());
    QVERIFY(!service);
}

void tst_CHalvexPlugin::uninitializeDropsTheServiceWithoutAManager()
{
    QSharedPointer<CServiceManager> manager(new CServiceManager);
    const QWeakPointer<IServiceManager> weak(manager);
    CHalvexPlugin plugin;
    plugin.initialize(weak);
    const QPointer<QObject> service = manager->services().first().data();
    manager.reset();
    QVERIFY(service);
    QVERIFY(plugin.uninitialize(weak));
    QVERIFY(!service);
}

void tst_CHalvexPlugin::serviceGoesWithItsLastOwner()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    plugin.extensionsInitialized();
    QSharedPointer<IService> kept = manager->services().first();
    const QPointer<QObject> guard = kept.data();
    plugin.uninitialize(manager);
    QVERIFY(guard);
    QVERIFY(dynamic_cast<INodeService&>(*kept).createModel(QStringLiteral("DecouplerVGR")));
    kept.reset();
    QVERIFY(!guard);
}

void tst_CHalvexPlugin::serviceTakesItsScenesAlong()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    nodesOf(*manager).addNode(std::make_unique<CUniqueSource>(), {});
    const QPointer<CNodeScene> scene = nodesOf(*manager).getActiveScene();
    QVERIFY(scene);
    plugin.uninitialize(manager);
    QVERIFY(!scene);
}

void tst_CHalvexPlugin::serviceGoesWithThePlugin()
{
    QPointer<QObject> service;
    {
        const QSharedPointer<CServiceManager> manager(new CServiceManager);
        CHalvexPlugin plugin;
        plugin.initialize(manager);
        service = manager->services().first().data();
        QVERIFY(service);
    }
    QVERIFY(!service);
}

void tst_CHalvexPlugin::isWithoutAServiceAfterUninitialize()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    plugin.uninitialize(manager);
    QVERIFY(plugin.initialize(manager));
    QVERIFY(manager->services().isEmpty());
    QVERIFY(plugin.extensionsInitialized());
    QVERIFY(plugin.uninitialize(manager));
}

void tst_CHalvexPlugin::guardsFollowTheService()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    IService* const service = manager->services().first().data();
    // Guards of either kind, one made from the plain pointer and one from the shared one, share one count.
    const QPointer<IService> pointer(service);
    const QWeakPointer<IService> weak(manager->services().first());
    QCOMPARE(pointer.data(), service);
    QCOMPARE(weak.toStrongRef().data(), service);
    plugin.uninitialize(manager);
    QVERIFY(pointer.isNull());
    QVERIFY(weak.toStrongRef().isNull());
}

void tst_CHalvexPlugin::captionFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("caption");
    QTest::newRow("English") << "en"
                             << "Decoupler for VGR";
    QTest::newRow("Korean") << "ko" << QString::fromUtf8("VGR용 디커플러");
    QTest::newRow("Japanese") << "ja" << QString::fromUtf8("VGR 用デカップラー");
    QTest::newRow("Chinese") << "zh" << QString::fromUtf8("VGR 解耦器");
    QTest::newRow("with a country") << "ko_KR" << QString::fromUtf8("VGR용 디커플러");
}

void tst_CHalvexPlugin::captionFollowsTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, caption);
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    plugin.extensionsInitialized();
    const auto model = nodesOf(*manager).createModel(QStringLiteral("DecouplerVGR"));
    QCOMPARE(model->caption(), QStringLiteral("Decoupler for VGR"));
    plugin.setLanguage(language);
    QCOMPARE(model->caption(), caption);
    plugin.setLanguage(QStringLiteral("en"));
    QCOMPARE(model->caption(), QStringLiteral("Decoupler for VGR"));
}

void tst_CHalvexPlugin::unknownLanguageKeepsTheLast()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    plugin.extensionsInitialized();
    const auto model = nodesOf(*manager).createModel(QStringLiteral("DecouplerVGR"));
    plugin.setLanguage(QStringLiteral("zh"));
    const QString caption = model->caption();
    for (const char* language : {"xx", "", "english"}) {
        plugin.setLanguage(QString::fromLatin1(language));
        QCOMPARE(model->caption(), caption);
    }
}

void tst_CHalvexPlugin::keysAreNotTranslated()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.setLanguage(QStringLiteral("ja"));
    plugin.initialize(manager);
    plugin.extensionsInitialized();
    const auto model = nodesOf(*manager).createModel(QStringLiteral("DecouplerVGR"));
    QVERIFY(model);
    QCOMPARE(model->save().value(QStringLiteral("name")).toString(), QStringLiteral("DecouplerVGR"));
    QCOMPARE(model->portCaption(ENodePortType::In, 0), QStringLiteral("VGR"));
    QCOMPARE(nodesOf(*manager).registry()->categories(), std::set<QString>{QStringLiteral("Tools")});
}

void tst_CHalvexPlugin::translationsAreEmbedded()
{
    QCOMPARE(QDir(QStringLiteral(":/translation")).entryList(),
             (QStringList{QStringLiteral("Halvex_en.qm"), QStringLiteral("Halvex_ja.qm"),
                          QStringLiteral("Halvex_ko.qm"), QStringLiteral("Halvex_zh.qm")}));
}

void tst_CHalvexPlugin::entryPointGivesTheMetadata()
{
    QCOMPARE(QByteArray(qt_plugin_query_metadata(), 16), QByteArray("QTMETADATA !\0\5\14\0", 16));
}

void tst_CHalvexPlugin::sceneSignalsNeedNoRegistration()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CHalvexPlugin plugin;
    plugin.initialize(manager);
    INodeService& nodes = nodesOf(*manager);
    const QSignalSpy added(&nodes, &INodeService::sceneAdded);
    QVERIFY(added.isValid());
    QVector<CNodeScene*> queued;
    connect(
        &nodes, &INodeService::sceneAdded, &plugin, [&queued](CNodeScene* scene) { queued << scene; },
        Qt::QueuedConnection);

    nodes.addNode(std::make_unique<CUniqueSource>(), {});
    CNodeScene* const scene = nodes.getActiveScene();
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(0).value<CNodeScene*>(), scene);
    QVERIFY(queued.isEmpty());
    QTRY_COMPARE(queued, QVector<CNodeScene*>{scene});
}

QTEST_GUILESS_MAIN(tst_CHalvexPlugin)

#include "tst_CHalvexPlugin.moc"
