// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginHost.h"

#include "CPluginTestFolder.h"
#include "RefusalReasons.h"
#include "TestTable.h"
#include "host/models/IHostModels.h"

#include <Halvex/service/INodeService.h>

#include <QCoreApplication>

using namespace Host;
using Plugin::Halvex::INodeService;

namespace {

const char* const nodeService = "Plugin::Halvex::INodeService";

QStringList calls()
{
    return qApp->property("calls").toStringList();
}

// What was called since then.
QStringList takeCalls()
{
    const QStringList taken = calls();
    qApp->setProperty("calls", QStringList());
    return taken;
}

// Whether code of that file is in the process.
bool isMapped(const QString& file)
{
    return content(QStringLiteral("/proc/self/maps")).contains(file.toLocal8Bit());
}

bool isPluginMapped(const char* name)
{
    return isMapped(CPluginTestFolder::testPlugin(QString::fromLatin1(name)));
}

// A folder with test plugins.
struct SPlugins : CPluginTestFolder
{
    explicit SPlugins(const QStringList& names)
    {
        if (!addTestPlugins(names))
            qFatal("The test plugins are not there.");
    }
};

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
    void failedOneLeavesNoServiceBehind();
    void failureToUndoIsTold();
    void serviceThatAPluginKeepsGoesBeforeItsCode();
    void whatIsPostedComesBeforeTheCodeGoes();
    void failureOfARequiredOne();
    void failureAtTheEndIsNoEnd();
    void notLoadable();
    void ownPluginsPublishTheirServices();
    void textsFollowTheLanguage();
    void copyOfTheLibraryStandsForIt();
    void againAndAgain();
};

void tst_CPluginHost::init()
{
    for (const char* list : {"calls", "failing", "throwing", "publishing", "keeping", "posting"})
        qApp->setProperty(list, QStringList());
}

void tst_CPluginHost::lifeCycle()
{
    const SPlugins folder({"above", "base"});
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList());
        QCOMPARE(takeCalls(), QStringList({"base.made", "above.made", "base.initialize", "above.initialize",
                                           "base.extensionsInitialized", "above.extensionsInitialized"}));
        QVERIFY(isPluginMapped("above"));
    }
    QCOMPARE(calls(), QStringList({"above.aboutToUninitialize", "base.aboutToUninitialize", "above.uninitialize",
                                   "base.uninitialize", "above.gone", "base.gone"}));
    QVERIFY(!isPluginMapped("above"));
    QVERIFY(!isPluginMapped("base"));
}

void tst_CPluginHost::noCodeOfARefusedPluginRuns()
{
    const SPlugins folder({"for_newer_host", "lacking", "circle_one", "circle_two", "foreign"});
    const CPluginHost host(folder.path());
    QCOMPARE(host.refusals().size(), std::size_t(5));
    QCOMPARE(calls(), QStringList());
    // Each by its name: the path of the build may say anything.
    for (const SPluginRefusal& refusal : host.refusals())
        QVERIFY2(!isMapped(refusal.file), qPrintable(refusal.file));
}

void tst_CPluginHost::failure_data()
{
    addColumns<QString, QString, QString>({"property", "call", "reason"});
    addRow("initialize() fails", "failing", "initialize", "initialize() fails");
    addRow("initialize() throws", "throwing", "initialize", "initialize() throws: thrown by base.initialize");
    addRow("constructor throws", "throwing", "made", "loading throws: thrown by base.made");
}

void tst_CPluginHost::failure()
{
    QFETCH(QString, property);
    QFETCH(QString, call);
    QFETCH(QString, reason);
    const SPlugins folder({"above", "base"});
    qApp->setProperty(property.toLatin1(), QStringList{"base." + call});
    {
        const CPluginHost host(folder.path());
        // What needs it goes too.
        QCOMPARE(reasons(host).size(), 2);
        QVERIFY2(reasons(host).at(0).startsWith(reason), qPrintable(reasons(host).at(0)));
        QCOMPARE(reasons(host).at(1), QStringLiteral("it needs 'base', which is left out"));
        QVERIFY(calls().contains("base." + call));
        QVERIFY(!calls().contains("above." + call));
        QVERIFY(!calls().contains("base.extensionsInitialized"));
    }
    QVERIFY(!calls().contains("above.uninitialize"));
    QCOMPARE(calls().count("base.uninitialize"), calls().count("base.initialize"));
    QCOMPARE(calls().count("above.gone"), calls().count("above.made"));
    // The code of what is needed goes last.
    if (calls().contains("above.made"))
        QVERIFY(calls().indexOf("above.gone") < calls().indexOf("base.gone"));
}

void tst_CPluginHost::failedOneLeavesNoServiceBehind()
{
    for (const char* property : {"failing", "throwing"}) {
        init();
        const SPlugins folder({"base", "for_host"});
        qApp->setProperty("publishing", QStringList({"base.initialize", "for_host.initialize"}));
        qApp->setProperty(property, QStringList{"for_host.initialize"});
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host).size(), 1);
        QVERIFY(!isPluginMapped("for_host"));
        QVERIFY(calls().contains("for_host.service gone"));
        QVERIFY(calls().indexOf("for_host.service gone") < calls().indexOf("for_host.gone"));
        // What the others have published stays.
        QVERIFY(!calls().contains("base.service gone"));
        QVERIFY(host.services().findService("QObject"));
    }
}

void tst_CPluginHost::failureToUndoIsTold()
{
    const SPlugins folder({"base"});
    qApp->setProperty("failing", QStringList{"base.initialize"});
    qApp->setProperty("throwing", QStringList{"base.uninitialize"});
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host), QStringList{"initialize() fails; uninitialize() throws: thrown by base.uninitialize"});
}

void tst_CPluginHost::serviceThatAPluginKeepsGoesBeforeItsCode()
{
    SPlugins folder({"base"});
    QVERIFY(folder.addHostPlugins());
    // It is loaded first, needing nobody, and so its code goes last.
    qApp->setProperty("keeping", QStringList{"base.extensionsInitialized"});
    QWeakPointer<Core::Service::IService> service;
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList());
        service = host.services().findService(nodeService);
        QVERIFY(service);
    }
    QVERIFY(!service);
    QVERIFY(!isMapped(QStringLiteral("libHalvexHostModels")));
}

void tst_CPluginHost::whatIsPostedComesBeforeTheCodeGoes()
{
    const SPlugins folder({"base"});
    qApp->setProperty("posting", QStringList{"base.uninitialize"});
    {
        const CPluginHost host(folder.path());
        QCOMPARE(reasons(host), QStringList());
        takeCalls();
    }
    QCOMPARE(calls(), QStringList({"base.aboutToUninitialize", "base.uninitialize", "base.posted", "base.service gone",
                                   "base.gone"}));
    QVERIFY(!isPluginMapped("base"));
}

void tst_CPluginHost::failureOfARequiredOne()
{
    for (const QString& call : {QString(".made"), QString(".initialize"), QString(".extensionsInitialized")}) {
        const SPlugins folder({"required", "base"});
        qApp->setProperty("throwing", QStringList({"required" + call, "base" + call}));
        const CPluginHost host(folder.path());
        QCOMPARE(host.refusals().size(), std::size_t(2));
        QCOMPARE(host.refusals()[0].file, CPluginTestFolder::testPlugin("base"));
        QVERIFY(!host.refusals()[0].isRequired);
        QCOMPARE(host.refusals()[1].file, CPluginTestFolder::testPlugin("required"));
        QVERIFY(host.refusals()[1].isRequired);
    }
}

void tst_CPluginHost::failureAtTheEndIsNoEnd()
{
    const SPlugins folder({"above", "base"});
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

void tst_CPluginHost::notLoadable()
{
    const SPlugins folder({"unresolved", "no_instance", "base"});
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host).size(), 2);
    QCOMPARE(host.refusals()[0].file, CPluginTestFolder::testPlugin("no_instance"));
    QCOMPARE(reasons(host).at(0), QStringLiteral("its instance is no plugin for this host"));
    QCOMPARE(host.refusals()[1].file, CPluginTestFolder::testPlugin("unresolved"));
    QVERIFY2(reasons(host).at(1).contains("functionThatNobodyHas"), qPrintable(reasons(host).at(1)));
    QVERIFY(calls().contains("base.extensionsInitialized"));
}

void tst_CPluginHost::textsFollowTheLanguage()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins());
    const auto text = [] {
        return QCoreApplication::translate("Plugin::Halvex::CNodeDecouplerDataModelBase", "Decoupler for %1");
    };
    const QString english = text();
    {
        const CPluginHost plugins(folder.path());
        plugins.setLanguage("ja");
        const QString japanese = text();
        QVERIFY(japanese != english);
        plugins.setLanguage("ko_KR");
        QVERIFY(text() != english && text() != japanese);
    }
    QCOMPARE(text(), english);
}

void tst_CPluginHost::ownPluginsPublishTheirServices()
{
    const CPluginHost host(QStringLiteral(HOST_PLUGINS));
    QCOMPARE(reasons(host), QStringList());
    const auto found = host.services().findService(nodeService);
    auto* const nodes = qobject_cast<INodeService*>(found.data());
    QVERIFY(nodes);
    // Of the library's plugin and of the host's.
    for (const char* model : {"DecouplerVGR", "Camera Source"})
        QVERIFY2(nodes->createModel(model), model);

    const auto service = host.services().findService(qobject_interface_iid<IHostModels*>());
    auto* const own = qobject_cast<IHostModels*>(service.data());
    QVERIFY(own);
    QVERIFY(own->supports(QStringLiteral("Mono8")));
    QVERIFY(!own->supports(QStringLiteral("YUV422_8")));
    const auto camera = own->createCameraSource(QStringLiteral("left"));
    QCOMPARE(camera->uniqueName(), QStringLiteral("left"));
    QVERIFY(camera->isUnique());
}

void tst_CPluginHost::copyOfTheLibraryStandsForIt()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addFile("libHalvex.so.1.3.1", content(CPluginTestFolder::library())));
    const CPluginHost host(folder.path());
    QCOMPARE(reasons(host), QStringList());
    QCOMPARE(host.plugins().front().file, CPluginTestFolder::library());
    QCOMPARE(host.copies().size(), std::size_t(1));
    QCOMPARE(QFileInfo(host.copies().front().file).fileName(), QStringLiteral("libHalvex.so.1.3.1"));
    QCOMPARE(host.copies().front().reason,
             QStringLiteral("a copy of '%1', which the program has loaded already").arg(CPluginTestFolder::library()));
    QVERIFY(host.services().findService(nodeService));
}

void tst_CPluginHost::againAndAgain()
{
    for (int i = 0; i < 20; ++i) {
        const CPluginHost host(QStringLiteral(HOST_PLUGINS));
        QVERIFY(host.refusals().empty());
        QVERIFY(host.services().findService(nodeService));
    }
    QVERIFY(!isMapped(QStringLiteral("libHalvexHostModels")));
}

QTEST_GUILESS_MAIN(tst_CPluginHost)
#include "tst_CPluginHost.moc"
