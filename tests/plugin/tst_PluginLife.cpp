// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CTestHost.h"

#include "support/BoundedWait.h"
#include "support/MetaTypes.h"

#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <QThreadPool>
#include <QtTest>

#include <map>
#include <memory>

using Core::AppCoreComponents::BaseInfoPtr;
using Core::AppCoreComponents::IBaseInfo;
using Core::Plugin::ALocalizedPlugin;
using Plugin::Halvex::ANodeDataModel;
using Plugin::Halvex::ENodePortType;
using Plugin::Halvex::INodeService;
using Plugin::Halvex::SNodeDataType;

namespace {

/// Counts by name what it is connected to; no spy can keep the references that the signals of scenes carry.
class CCounter : public QObject
{
    Q_OBJECT

public:
    int count() const { return m_count; }

public Q_SLOTS:
    void onTold() { ++m_count; }

private:
    int m_count = 0;
};

/// A type of the host's own, which happens to have that name.
int registerHostsType(const char* name)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    using Functions = QtMetaTypePrivate::QMetaTypeFunctionHelper<void*>;
    return QMetaType::registerNormalizedType(name, &Functions::Destruct, &Functions::Construct, int(sizeof(void*)),
                                             QMetaType::MovableType, nullptr);
#else
    static std::map<QByteArray, QtPrivate::QMetaTypeInterface> types; // Qt keeps their addresses
    const auto& pointer = *QMetaType::fromType<QObject*>().iface();
    QtPrivate::QMetaTypeInterface& type = types[name];
    type.alignment = pointer.alignment;
    type.size = pointer.size;
    type.flags = pointer.flags; // Qt 6 finds the type by its name when the library's is meant
    type.name = name;
    type.defaultCtr = pointer.defaultCtr;
    type.copyCtr = pointer.copyCtr;
    type.moveCtr = pointer.moveCtr;
    return QMetaType(&type).id();
#endif
}

void takeBackHostsType(int type)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QVERIFY(QMetaType::unregisterType(type));
#else
    QMetaType::unregisterMetaType(QMetaType(type));
    QVERIFY(!QMetaType::isRegistered(type));
#endif
}

} // namespace

/// The plugin's life, from loading to unloading, and what a host that does not link the library can do in between.
class tst_PluginLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void thereIsOneInstanceAtATime();
    void modelsOfBothPluginsAreMadeByName();
    void framesPassADecoupler();
    void hostWorksWithTheService();
    void signalsNeedNoRegistration();
    void cameraGoesOnUntilItsPluginIsUnloaded();
    void unloadingWaitsForWork();
    void stringsOutliveTheLibrary();
    void nothingStaysBehind();
    void hostsOwnTypeStays();
    void hostsOwnTypeIsNotTakenForTheLibrarys();
};

void tst_PluginLife::cleanup()
{
    QVERIFY(!isLibraryMapped());
}

void tst_PluginLife::thereIsOneInstanceAtATime()
{
    CPluginFile file(HALVEX_PLUGIN_FILE);
    const QPointer<QObject> first = file.instance();
    QVERIFY2(first, qPrintable(file.loader().errorString()));
    QCOMPARE(file.instance(), first.data());
    QVERIFY(dynamic_cast<ALocalizedPlugin*>(first.data()));

    delete first; // by the host
    const QPointer<QObject> second = file.instance();
    QVERIFY(second);
    QVERIFY(second->inherits("Plugin::Halvex::CHalvexPlugin"));
    file.loader().unload();
    QVERIFY(!second);
}

void tst_PluginLife::modelsOfBothPluginsAreMadeByName()
{
    CTestHost host;
    QVERIFY(host.isUp());
    for (const QString& name :
         {QString("DecouplerVGR"), QString("TestSource"), QString("TestWorker"), QString("TestSink")}) {
        const auto model = host.service()->createModel(name);
        QVERIFY2(model, qPrintable(name));
        QCOMPARE(model->name(), name);
    }
    QVERIFY(!host.service()->createModel("NoSuchModel"));
}

void tst_PluginLife::framesPassADecoupler()
{
    CTestHost host;
    QVERIFY(host.isUp());
    const SFrameChain chain(*host.service(), 1000);
    QSignalSpy frames(chain.sink, SIGNAL(received(qulonglong)));
    QVERIFY(frames.isValid());
    for (qulonglong number = 1; number <= 3; ++number) {
        chain.send(number);
        QTRY_COMPARE(frames.count(), int(number));
        QCOMPARE(frames.last().at(0).toULongLong(), number);
    }
}

void tst_PluginLife::hostWorksWithTheService()
{
    CTestHost host;
    QVERIFY(host.isUp());
    INodeService* const service = host.service();
    QVERIFY(service->getActiveScene().isNull());
    QVERIFY(!service->importDocument(QStringLiteral("[]")));
    QVERIFY(!service->importStoredDocuments());

    const BaseInfoPtr info(new IBaseInfo);
    auto source = service->createModel(QStringLiteral("TestSource"));
    ANodeDataModel* model = source.get();
    const Core::CId id = service->addNode(std::move(source), info);
    const QPointer<Plugin::Halvex::CNodeScene> scene = service->getActiveScene();
    QVERIFY(!scene.isNull());
    QCOMPARE(service->findSceneByInfo(info), scene.data());
    QVERIFY(service->findNode(id));
    QCOMPARE(service->findNodeByModel(model), service->findNode(id));
    service->setActiveScene(scene);
    QCOMPARE(service->getActiveScene(), scene);

    const CCounter imported;
    QVERIFY(connect(scene.data(), SIGNAL(connectionCreated(CNodeConnection&)), &imported, SLOT(onTold())));
    const QString chain = QStringLiteral(R"([
        {"name": "slow", "model": {"name": "DecouplerVGR"}, "unique_sources": [["test-source"]],
         "connection": [["end"]]},
        {"name": "end", "model": {"name": "TestSink"}}])");
    QVERIFY(service->importDocument(chain));
    QCOMPARE(imported.count(), 2);
    service->addStoredDocument(chain);
    QVERIFY(service->importStoredDocuments());
    QCOMPARE(imported.count(), 4);

    auto sink = service->createModel(QStringLiteral("TestSink"));
    const Core::CId sinkId = service->addNode(std::move(sink), {});
    QVERIFY(service->findNode(sinkId));
    service->removeNode(sinkId, false);
    QVERIFY(!service->findNode(sinkId));
    service->removeNodeByModel(model, false);
    QVERIFY(!service->findNode(id));
    QVERIFY(!scene.isNull());

    const Core::CId another = service->addNode(service->createModel(QStringLiteral("TestSource")), {});
    service->removeSceneOfNode(another);
    QVERIFY(!service->findNode(another));
    QCOMPARE(service->getActiveScene(), scene);
    service->registerTypeConverter({{QString::fromLatin1("a"), {}}, {QString::fromLatin1("b"), {}}}, {});
}

void tst_PluginLife::signalsNeedNoRegistration()
{
    CTestHost host;
    QVERIFY(host.isUp());
    INodeService* const service = host.service();
    const QSignalSpy active(service, SIGNAL(activeSceneChanged(CNodeScene*)));
    const QSignalSpy added(service, SIGNAL(sceneAdded(CNodeScene*)));
    const QSignalSpy removing(service, SIGNAL(sceneRemoving(CNodeScene*)));
    const QSignalSpy removed(service, SIGNAL(sceneRemoved()));
    QVERIFY(active.isValid() && added.isValid() && removing.isValid() && removed.isValid());

    const Core::CId id = service->addNode(service->createModel(QStringLiteral("TestSource")), {});
    QCOMPARE(added.count(), 1);
    QCOMPARE(active.count(), 1);
    QVERIFY(added.at(0).at(0).value<QObject*>());
    QCOMPARE(added.at(0).at(0).value<QObject*>(), static_cast<QObject*>(service->getActiveScene().data()));
    service->removeSceneOfNode(id);
    QCOMPARE(removing.count(), 1);
    QCOMPARE(removed.count(), 1);
}

void tst_PluginLife::cameraGoesOnUntilItsPluginIsUnloaded()
{
    CTestHost host;
    QVERIFY(host.isUp());
    QObject* const models = host.models().instance();
    const auto refusedFrames = [models] {
        int frames = -1;
        QMetaObject::invokeMethod(models, "refusedFrames", Q_RETURN_ARG(int, frames));
        return frames;
    };
    auto source = host.service()->createModel(QStringLiteral("TestSource"));
    QVERIFY(source);
    const QPointer<QObject> watched(source.get());
    const QSignalSpy updated(source.get(), SIGNAL(dataUpdated(NodePortIndex)));
    QVERIFY(updated.isValid());
    host.service()->addNode(std::move(source), {});
    QVERIFY(QMetaObject::invokeMethod(models, "startCamera", Q_ARG(QObject*, watched.data())));
    QTRY_VERIFY(updated.count() > 0);
    QCOMPARE(refusedFrames(), 0);

    host.shutDown();
    QVERIFY(!watched);
    QTRY_VERIFY(refusedFrames() > 0);

    host.halvex().loader().unload();
    QVERIFY(isLibraryMapped()); // the plugin that the camera belongs to is linked with it
    const int before = refusedFrames();
    QTRY_VERIFY(refusedFrames() > before);
}

void tst_PluginLife::unloadingWaitsForWork()
{
    {
        CTestHost host;
        QVERIFY(host.isUp());
        const SFrameChain chain(*host.service(), 1000);
        const QPointer<QObject> worker(chain.worker);
        chain.send(1);
        QVERIFY(QMetaObject::invokeMethod(chain.worker, "waitForWork"));
        host.shutDown();
        QVERIFY(!worker);
        QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 1); // its work is code of the test's plugin
    }
    QVERIFY(!isLibraryMapped());
    QVERIFY(QThreadPool::globalInstance()->waitForDone(longestWait));
}

void tst_PluginLife::stringsOutliveTheLibrary()
{
    QString caption;
    QString translated;
    QString name;
    QString portCaption;
    QJsonObject saved;
    SNodeDataType type;
    QStringList categories;
    {
        CTestHost host;
        QVERIFY(host.isUp());
        const auto decoupler = host.service()->createModel(QStringLiteral("DecouplerVGR"));
        caption = decoupler->caption();
        host.setLanguage(QStringLiteral("ja"));
        translated = decoupler->caption();
        name = decoupler->name();
        portCaption = decoupler->portCaption(ENodePortType::Out, 0);
        saved = decoupler->save();
        type = decoupler->dataType(ENodePortType::In, 0);
        QMetaObject::invokeMethod(host.models().instance(), "categories", Q_RETURN_ARG(QStringList, categories));
    }
    QVERIFY(!isLibraryMapped());
    QCOMPARE(caption, QStringLiteral("Decoupler for VGR"));
    QCOMPARE(translated, QString::fromUtf8("VGR 用デカップラー"));
    QCOMPARE(name, QStringLiteral("DecouplerVGR"));
    QCOMPARE(portCaption, QStringLiteral("VGR"));
    QCOMPARE(type.id, QStringLiteral("Veltra Grab Result"));
    QCOMPARE(type.name, QStringLiteral("VGR"));
    QCOMPARE(categories, (QStringList{QStringLiteral("Test"), QStringLiteral("Tools")}));
    QCOMPARE(saved.value(QStringLiteral("name")).toString(), QStringLiteral("DecouplerVGR"));
    QCOMPARE(saved.value(QStringLiteral("is_unique")).toBool(true), false);
}

void tst_PluginLife::nothingStaysBehind()
{
    {
        CTestHost host;
        QVERIFY(host.isUp());
        QCOMPARE(QDir(QStringLiteral(":/translation")).entryList(),
                 (QStringList{QStringLiteral("Halvex_en.qm"), QStringLiteral("Halvex_ja.qm"),
                              QStringLiteral("Halvex_ko.qm"), QStringLiteral("Halvex_zh.qm")}));
        host.setLanguage(QStringLiteral("zh"));
    }
    QVERIFY(!QDir(QStringLiteral(":/translation")).exists());
    QCOMPARE(QCoreApplication::translate("Plugin::Halvex::CNodeDecouplerDataModelBase", "Decoupler for %1"),
             QStringLiteral("Decoupler for %1"));
    QCOMPARE(MetaTypes::idOf("Plugin::Halvex::CNodeDataPtr"), int(QMetaType::UnknownType));
    QCOMPARE(MetaTypes::idOf("Plugin::Halvex::CNodeScene*"), int(QMetaType::UnknownType));
    QCOMPARE(MetaTypes::idOf("CNodeDataPtr"), int(QMetaType::UnknownType));
    QCOMPARE(MetaTypes::idOf("CNodeScene*"), int(QMetaType::UnknownType));
}

void tst_PluginLife::hostsOwnTypeStays()
{
    const int type = registerHostsType("Plugin::Halvex::CNodeScene*");
    {
        CTestHost host;
        QVERIFY(host.isUp());
        const QSignalSpy added(host.service(), SIGNAL(sceneAdded(CNodeScene*)));
        host.service()->addNode(host.service()->createModel(QStringLiteral("TestSource")), {});
        QVERIFY(added.at(0).at(0).value<QObject*>());
    }
    QCOMPARE(MetaTypes::idOf("Plugin::Halvex::CNodeScene*"), type);
    takeBackHostsType(type);
}

void tst_PluginLife::hostsOwnTypeIsNotTakenForTheLibrarys()
{
    const int type = registerHostsType("CNodeScene*");
    {
        CTestHost host;
        QVERIFY(host.isUp());
        int scenePointer = QMetaType::UnknownType;
        QVERIFY(
            QMetaObject::invokeMethod(host.models().instance(), "scenePointerType", Q_RETURN_ARG(int, scenePointer)));
        QVERIFY(scenePointer != type);
        QCOMPARE(MetaTypes::nameOf(scenePointer), QByteArray("Plugin::Halvex::CNodeScene*"));
    }
    QCOMPARE(MetaTypes::idOf("CNodeScene*"), type);
    takeBackHostsType(type);
}

QTEST_GUILESS_MAIN(tst_PluginLife)

#include "tst_PluginLife.moc"
