// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginHost.h"

#include "CPluginTestFolder.h"
#include "host/models/IHostModels.h"

#include <Halvex/service/INodeService.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace Host;

namespace {

QStringList calls()
{
    return qApp->property("calls").toStringList();
}

QStringList reasons(const CPluginHost& host)
{
    QStringList reasons;
    for (const SPluginRefusal& refusal : host.refusals())
        reasons << refusal.reason;
    return reasons;
}

// Whether code of that file is in the process.
bool isMapped(const QString& file)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(file.toLocal8Bit());
}

} // namespace

class tst_CPluginHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void lifeCycle();
    void noCodeOfARefusedPluginRuns();
    void failure_data();
    void failure();
    void failedOneLeavesNoServiceBehind_data();
    void failedOneLeavesNoServiceBehind();
    void failureToUndoIsTold();
    void serviceThatAPluginKeepsGoesBeforeItsCode();
    void whatIsPostedComesBeforeTheCodeGoes();
    void failureOfARequiredOne_data();
    void failureOfARequiredOne();
    void failureAtTheEndIsNoEnd();
    void notLoadable_data();
    void notLoadable();
    void ownPluginsPublishTheirServices();
    void copyOfTheLibraryIsRefused();
    void againAndAgain();
};

void tst_CPluginHost::init()
{
    for (const char* list : {"calls", "failing", "throwing", "publishing", "keeping", "posting"})
        qApp->setProperty(list, QStringList());
}

void tst_CPluginHost::lifeCycle()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"above", "base"}));
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList());
        QCOMPARE(calls(), QStringList({"base.made", "above.made", "base.initialize", "above.initialize",
                                       "base.extensionsInitialized", "above.extensionsInitialized"}));
        QVERIFY(isMapped(CPluginTestFolder::testPlugin("above")));
        qApp->setProperty("calls", QStringList());
    }
    QCOMPARE(calls(), QStringList({"above.aboutToUninitialize", "base.aboutToUninitialize", "above.uninitialize",
                                   "base.uninitialize", "above.gone", "base.gone"}));
    QVERIFY(!isMapped(CPluginTestFolder::testPlugin("above")));
    QVERIFY(!isMapped(CPluginTestFolder::testPlugin("base")));
}

void tst_CPluginHost::noCodeOfARefusedPluginRuns()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"for_newer_host", "lacking", "circle_one", "circle_two", "foreign"}));
    const CPluginHost host(folder.path());
    QCOMPARE(host.refusals().size(), std::size_t(5));
    QCOMPARE(calls(), QStringList());
    // Each by its name: the path of the build may say anything.
    for (const SPluginRefusal& refusal : host.refusals())
        QVERIFY2(!isMapped(refusal.file), qPrintable(refusal.file));
}

void tst_CPluginHost::failure_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("uncalled");
    QTest::newRow("initialize() fails") << "failing"
                                        << "base.initialize"
                                        << "initialize() fails"
                                        << "above.initialize";
    QTest::newRow("initialize() throws") << "throwing"
                                         << "base.initialize"
                                         << "initialize() throws: thrown by base.initialize"
                                         << "above.initialize";
    QTest::newRow("constructor throws") << "throwing"
                                        << "base.made"
                                        << "loading throws: thrown by base.made"
                                        << "above.made";
}

void tst_CPluginHost::failure()
{
    QFETCH(QString, property);
    QFETCH(QString, call);
    QFETCH(QString, reason);
    QFETCH(QString, uncalled);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"above", "base"}));
    qApp->setProperty(property.toLatin1().constData(), QStringList{call});
    {
        const CPluginHost host(folder.path());
        // What needs it goes too.
        QCOMPARE(reasons(host).size(), 2);
        QVERIFY2(reasons(host).at(0).startsWith(reason), qPrintable(reasons(host).at(0)));
        QCOMPARE(reasons(host).at(1), QStringLiteral("it needs 'base', which is left out"));
        QVERIFY(calls().contains(call));
        QVERIFY(!calls().contains(uncalled));
        QVERIFY(!calls().contains("base.extensionsInitialized"));
    }
    QVERIFY(!calls().contains("above.uninitialize"));
    QCOMPARE(calls().count("base.uninitialize"), calls().count("base.initialize"));
    QCOMPARE(calls().count("above.gone"), calls().count("above.made"));
    // The code of what is needed goes last.
    if (calls().contains("above.made"))
        QVERIFY(calls().indexOf("above.gone") < calls().indexOf("base.gone"));
}

void tst_CPluginHost::failedOneLeavesNoServiceBehind_data()
{
    QTest::addColumn<QString>("property");
    QTest::newRow("fails") << "failing";
    QTest::newRow("throws") << "throwing";
}

void tst_CPluginHost::failedOneLeavesNoServiceBehind()
{
    QFETCH(QString, property);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base", "for_host"}));
    qApp->setProperty("publishing", QStringList({"base.initialize", "for_host.initialize"}));
    qApp->setProperty(property.toLatin1().constData(), QStringList{"for_host.initialize"});
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host).size(), 1);
    QVERIFY(!isMapped(CPluginTestFolder::testPlugin("for_host")));
    QVERIFY(calls().contains("for_host.service gone"));
    QVERIFY(calls().indexOf("for_host.service gone") < calls().indexOf("for_host.gone"));
    // What the others have published stays.
    QVERIFY(!calls().contains("base.service gone"));
    QVERIFY(host.services().findService("QObject"));
}

void tst_CPluginHost::failureToUndoIsTold()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    qApp->setProperty("failing", QStringList{"base.initialize"});
    qApp->setProperty("throwing", QStringList{"base.uninitialize"});
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host), QStringList{"initialize() fails; uninitialize() throws: thrown by base.uninitialize"});
}

void tst_CPluginHost::serviceThatAPluginKeepsGoesBeforeItsCode()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins());
    QVERIFY(folder.addTestPlugins({"base"}));
    // It is loaded first, needing nobody, and so its code goes last.
    qApp->setProperty("keeping", QStringList{"base.extensionsInitialized"});
    QWeakPointer<Core::Service::IService> service;
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList());
        service = host.services().findService(Plugin::Halvex::INodeService::staticMetaObject.className());
        QVERIFY(service);
    }
    QVERIFY(!service);
    QVERIFY(!isMapped(QStringLiteral("libHalvexHostModels")));
}

void tst_CPluginHost::whatIsPostedComesBeforeTheCodeGoes()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    qApp->setProperty("posting", QStringList{"base.uninitialize"});
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList());
        qApp->setProperty("calls", QStringList());
    }
    QCOMPARE(calls(), QStringList({"base.aboutToUninitialize", "base.uninitialize", "base.posted", "base.service gone",
                                   "base.gone"}));
    QVERIFY(!isMapped(CPluginTestFolder::testPlugin("base")));
}

void tst_CPluginHost::failureOfARequiredOne_data()
{
    QTest::addColumn<QString>("call");
    QTest::newRow("constructor") << "made";
    QTest::newRow("initialize()") << "initialize";
    QTest::newRow("extensionsInitialized()") << "extensionsInitialized";
}

void tst_CPluginHost::failureOfARequiredOne()
{
    QFETCH(QString, call);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"required", "base"}));
    qApp->setProperty("throwing", QStringList({"required." + call, "base." + call}));
    const CPluginHost host(folder.path());
    QCOMPARE(host.refusals().size(), std::size_t(2));
    QCOMPARE(host.refusals()[0].file, CPluginTestFolder::testPlugin("base"));
    QVERIFY(!host.refusals()[0].isRequired);
    QCOMPARE(host.refusals()[1].file, CPluginTestFolder::testPlugin("required"));
    QVERIFY(host.refusals()[1].isRequired);
}

void tst_CPluginHost::failureAtTheEndIsNoEnd()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"above", "base"}));
    qApp->setProperty("failing", QStringList{"base.extensionsInitialized"});
    qApp->setProperty("throwing", QStringList{"above.aboutToUninitialize", "above.uninitialize"});
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList{"extensionsInitialized() fails"});
        QVERIFY(calls().contains("above.extensionsInitialized"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("aboutToUninitialize\\(\\) throws: thrown by above"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("uninitialize\\(\\) throws: thrown by above"));
    }
    QCOMPARE(calls().mid(calls().size() - 4),
             QStringList({"above.uninitialize", "base.uninitialize", "above.gone", "base.gone"}));
}

void tst_CPluginHost::notLoadable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("function that nobody has") << "unresolved"
                                              << "functionThatNobodyHas";
    QTest::newRow("instance of another class") << "no_instance"
                                               << "its instance is no plugin for this host";
}

void tst_CPluginHost::notLoadable()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({name, "base"}));
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host).size(), 1);
    QVERIFY2(reasons(host).constFirst().contains(reason), qPrintable(reasons(host).constFirst()));
    QCOMPARE(host.refusals()[0].file, CPluginTestFolder::testPlugin(name));
    QVERIFY(calls().contains("base.extensionsInitialized"));
}

void tst_CPluginHost::ownPluginsPublishTheirServices()
{
    const CPluginHost host(QStringLiteral(HOST_PLUGINS));
    QCOMPARE(reasons(host), QStringList());
    const auto found = host.services().findService(Plugin::Halvex::INodeService::staticMetaObject.className());
    auto* const nodes = qobject_cast<Plugin::Halvex::INodeService*>(found.data());
    QVERIFY(nodes);
    const std::unordered_map<QString, QString> models{
        {"Blur", "Filters"},          {"Edges", "Filters"},  {"Histogram", "Filters"},  {"Threshold", "Filters"},
        {"Camera Source", "Sources"}, {"PNG Sink", "Sinks"}, {"DecouplerVGR", "Tools"}, {"To Image", "Filters"}};
    QCOMPARE(nodes->registry()->registeredModelsCategoryAssociation(), models);

    const auto service = host.services().findService(qobject_interface_iid<IHostModels*>());
    auto* const own = qobject_cast<IHostModels*>(service.data());
    QVERIFY(own);
    QVERIFY(own->supports(QStringLiteral("Mono8")));
    QVERIFY(!own->supports(QStringLiteral("Mono12Packed")));
    const auto camera = own->createCameraSource(QStringLiteral("left"));
    QCOMPARE(camera->uniqueName(), QStringLiteral("left"));
    QVERIFY(camera->isUnique());
}

void tst_CPluginHost::copyOfTheLibraryIsRefused()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addFile("libHalvex.so.1.3.1", CPluginTestFolder::content(CPluginTestFolder::library())));
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host),
             QStringList{QStringLiteral("a copy of '%1', which is in use").arg(CPluginTestFolder::library())});
    QVERIFY(!host.services().findService("QObject"));
}

void tst_CPluginHost::againAndAgain()
{
    for (int i = 0; i < 20; ++i) {
        const CPluginHost host(QStringLiteral(HOST_PLUGINS));
        QVERIFY(host.refusals().empty());
        QVERIFY(host.services().findService(Plugin::Halvex::INodeService::staticMetaObject.className()));
    }
    QVERIFY(!isMapped(QStringLiteral("libHalvexHostModels")));
}

QTEST_GUILESS_MAIN(tst_CPluginHost)
#include "tst_CPluginHost.moc"
