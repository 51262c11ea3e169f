// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Never run: the compiler dumps the virtual tables of these classes. A pure operation has no name in a table, so each
// abstract class gets a subclass that overrides exactly what is pure.

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
