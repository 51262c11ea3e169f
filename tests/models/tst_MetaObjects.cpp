// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/CContextTranslator.h"
#include "support/MetaMethods.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>
#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CDecoupler.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QMetaEnum>
#include <QtTest>

using namespace Plugin::Halvex;

namespace {

/// What Qt knows of a class: hosts connect by these names, and translators find its texts under them.
struct SClass
{
    const char* name = nullptr;
    const QMetaObject* meta = nullptr;
    const QMetaObject* super = nullptr;
    QString (*translate)(const char* text, const char* comment, int number) = nullptr;
    QStringList methods;
    int otherMembers = 0;
};

template <typename Class, typename Super>
SClass classOf(const char* name, const QStringList& methods, int otherMembers = 0)
{
    return {name, &Class::staticMetaObject, &Super::staticMetaObject, &Class::tr, methods, otherMembers};
}

const std::vector<SClass>& classes()
{
    static const std::vector<SClass> all{
        classOf<CNodeDataModel, QObject>("CNodeDataModel",
                                         {"public signal dataUpdated(NodePortIndex index)",
                                          "public signal dataInvalidated(NodePortIndex index)",
                                          "public signal computingStarted()", "public signal computingFinished()",
                                          "public signal infoInjected(Core::AppCoreComponents::BaseInfoPtr info)"},
                                         1),
        classOf<CNodeBase, QObject>("CNodeBase",
                                    {"public slot propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex)",
                                     "public slot onDataUpdated(NodePortIndex index)"}),
        classOf<CNodeConnection, QObject>("CNodeConnection", {"public signal updated(CNodeConnection& conn)"}),
        classOf<ANodeDataModel, CNodeDataModel>("ANodeDataModel", {}),
        classOf<ASourceNodeDataModel, ANodeDataModel>("ASourceNodeDataModel",
                                                      {"private slot onNewDataAvailable(CNodeDataPtr ptrNodeData)"}),
        classOf<ASinkNodeDataModel, ANodeDataModel>("ASinkNodeDataModel",
                                                    {"private slot onNewDataAvailable(CNodeDataPtr ptrNodeData)"}),
        classOf<CNodeDataFlowProxy, QObject>("CNodeDataFlowProxy",
                                             {"public signal newDataAvailable(CNodeDataPtr ptrNodeData)"}),
        classOf<CDecoupler, QThread>("CDecoupler",
                                     {"public signal nodeDataAvailable(CNodeDataPtr ptrNodeData)",
                                      "public slot setNodeData(CNodeDataPtr ptrNodeData)", "public slot shutDown()",
                                      "public slot enableThrottle(bool enable)", "public slot throttleTimerTick()"}),
        classOf<CNodeDecouplerDataModelBase, ANodeDataModel>(
            "CNodeDecouplerDataModelBase",
            {"public signal inDataUpdated(CNodeDataPtr ptrNodeData)", "public signal framesPerSecondChanged(double )",
             "private slot onNodeDataAvailable(CNodeDataPtr ptrNodeData)"},
            1),
        classOf<CNodeScene, QObject>("CNodeScene", {"public signal nodeCreated(CNodeBase& node)",
                                                    "public signal nodeDeleted(CNodeBase& node)",
                                                    "public signal connectionCreated(CNodeConnection& connection)",
                                                    "public signal connectionDeleted(CNodeConnection& connection)"}),
        classOf<INodeService, Core::Service::IService>(
            "INodeService",
            {"public signal activeSceneChanged(CNodeScene* scene)", "public signal sceneAdded(CNodeScene* scene)",
             "public signal sceneRemoving(CNodeScene* scene)", "public signal sceneRemoved()"}),
        classOf<CNodeService, INodeService>("CNodeService", {"private slot onNodeCreated(CNodeBase& node)",
                                                             "private slot onNodeDeleted(CNodeBase& node)"}),
    };
    return all;
}

} // namespace

class tst_MetaObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void classesAreKnownByTheirFullNames();
    void methodsAndMembers();
    void textsAreTranslatedUnderTheClassName();
    void connectionPolicyIsKnown();
    void frameRateIsAProperty();
};

void tst_MetaObjects::classesAreKnownByTheirFullNames()
{
    for (const SClass& each : classes()) {
        QCOMPARE(QString(each.meta->className()), QStringLiteral("Plugin::Halvex::") + each.name);
        QCOMPARE(each.meta->superClass(), each.super);
    }
}

void tst_MetaObjects::methodsAndMembers()
{
    for (const SClass& each : classes()) {
        QCOMPARE(methodsOf(*each.meta), each.methods);
        QVERIFY2(otherMembersOf(*each.meta) == each.otherMembers, each.name);
    }
}

void tst_MetaObjects::textsAreTranslatedUnderTheClassName()
{
    const CContextTranslator translator;
    for (const SClass& each : classes())
        QCOMPARE(each.translate("text", nullptr, -1), QStringLiteral("Plugin::Halvex::") + each.name);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 has tr() alone
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QCOMPARE(CNodeDataModel::trUtf8("text"), QStringLiteral("Plugin::Halvex::CNodeDataModel"));
    QT_WARNING_POP
#endif
}

void tst_MetaObjects::connectionPolicyIsKnown()
{
    const QMetaEnum policy = QMetaEnum::fromType<CNodeDataModel::EConnectionPolicy>();
    QVERIFY(policy.isValid());
    QCOMPARE(policy.keyCount(), 2);
    QCOMPARE(policy.value(0), 0);
    QCOMPARE(policy.value(1), 1);
}

void tst_MetaObjects::frameRateIsAProperty()
{
    const QMetaObject& metaObject = CNodeDecouplerDataModelBase::staticMetaObject;
    const QMetaProperty rate = metaObject.property(metaObject.propertyOffset());
    QCOMPARE(rate.name(), "framesPerSecond");
    QCOMPARE(rate.userType(), int(QMetaType::Double));
    QVERIFY(rate.isReadable() && rate.isWritable() && rate.isStored() && rate.isDesignable() && rate.isScriptable());
    QVERIFY(!rate.isConstant() && !rate.isFinal());
    QCOMPARE(rate.notifySignal().methodSignature(), QByteArray("framesPerSecondChanged(double)"));
}

QTEST_GUILESS_MAIN(tst_MetaObjects)

#include "tst_MetaObjects.moc"
