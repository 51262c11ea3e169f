// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Never run: the compiler dumps the layouts and the virtual tables of these classes. A pure operation has no name in a
// table, so each abstract class gets a subclass that overrides exactly what is pure.

#include <Halvex/Halvex.h>

using namespace Plugin::Halvex;
using Core::Service::IServiceManager;

struct PSerializable : Plugin::AppCore::ISerializable
{
    QJsonObject save() const override { return {}; }
};

struct PNodeData : CNodeData
{
    SNodeDataType type() const override { return {}; }
};

/// What every model must say, on top of any model class.
template <typename Model>
struct PModel : Model
{
    QString caption() override { return {}; }
    QString name() override { return {}; }
    unsigned int nPorts(ENodePortType) const override { return 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
};

struct PNodeDataModel : PModel<CNodeDataModel>
{
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
};

struct PNamedModel : PModel<ANodeDataModel>
{
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }
};

struct PSourceModel : PModel<ASourceNodeDataModel>
{
    bool isUnique() override { return false; }
};

struct PSinkModel : PModel<ASinkNodeDataModel>
{
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }
};

struct PWorkerModel : AWorkerNodeDataModel
{
    QString caption() override { return {}; }
    QString name() override { return {}; }
    unsigned int nPorts(ENodePortType) const override { return 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    bool isUnique() override { return false; }
    Work makeWork() const override { return {}; }
};

template class Plugin::Halvex::CGenericNodeDecouplerDataModel<CVeltraGrabResultData>;

struct PDecouplerModel : CNodeDecouplerDataModelBase
{
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    QString dataTypeName() override { return {}; }
};

struct PServiceManager : IServiceManager
{
    void registerService(const QSharedPointer<Core::Service::IService>&) override {}
    void unregisterService(const QSharedPointer<Core::Service::IService>&) override {}
    QSharedPointer<Core::Service::IService> findService(const char*) const override { return {}; }
};

struct PPlugin : Core::Plugin::ALocalizedPlugin
{
    bool initialize(const QWeakPointer<IServiceManager>&) override { return false; }
    bool extensionsInitialized() override { return false; }
    bool uninitialize(const QWeakPointer<IServiceManager>&) override { return false; }
};

struct PNodeService : INodeService
{
    using INodeService::INodeService;
    Core::CId addNode(std::unique_ptr<ANodeDataModel>, Core::AppCoreComponents::BaseInfoPtr) override { return {}; }
    CNodeBase* findNode(Core::CId) override { return nullptr; }
    CNodeBase* findNodeByModel(ANodeDataModel*) override { return nullptr; }
    void removeNode(Core::CId, bool) override {}
    void removeNodeByModel(ANodeDataModel*&, bool) override {}
    void removeSceneOfNode(Core::CId) override {}
    void removeSceneOfNode(CNodeBase*) override {}
    Core::CId connectModels(ANodeDataModel*, NodePortIndex, ANodeDataModel*, NodePortIndex) override { return {}; }
    bool importDocument(const QString&) override { return false; }
    bool importStoredDocuments() override { return false; }
    void addStoredDocument(const QString&) override {}
    std::unique_ptr<ANodeDataModel> createModel(const QString&) override { return nullptr; }
    void registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>&, NodeDataConverter) override {}
    QPointer<CNodeScene> getActiveScene() override { return nullptr; }
    void setActiveScene(QPointer<CNodeScene>) override {}
    CNodeScene* findSceneByInfo(Core::AppCoreComponents::BaseInfoPtr) override { return nullptr; }
};
