// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CModelsTestPlugin.h"

#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>
#include <Halvex/service/INodeService.h>

using namespace Plugin::Halvex;

namespace {

class CEverySecondModel : public ANodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Every Second"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    bool isUnique() override { return false; }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        if (!data || ++m_frames % 2 == 0)
            return;
        m_data = data;
        Q_EMIT dataUpdated(0);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_data; }

private:
    CNodeDataPtr m_data;
    int m_frames = 0;
};

class CJoinModel : public AWorkerNodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Join"); }
    unsigned int nPorts(ENodePortType side) const override
    {
        return side == ENodePortType::In ? 2 : side == ENodePortType::Out ? 1 : 0;
    }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    bool isUnique() override { return false; }

protected:
    Work makeWork() const override
    {
        return [](const Inputs& inputs) { return inputs.back(); };
    }
};

} // namespace

bool CModelsTestPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    m_manager = manager;
    return true;
}

bool CModelsTestPlugin::extensionsInitialized()
{
    const auto services = m_manager.toStrongRef();
    const auto service = services ? services->findService(INodeService::staticMetaObject.className()) : nullptr;
    auto* const nodes = qobject_cast<INodeService*>(service.data());
    if (!nodes)
        return false;
    nodes->registry()->registerModel<CEverySecondModel>(QStringLiteral("Test"));
    nodes->registry()->registerModel<CJoinModel>(QStringLiteral("Test"));
    return true;
}

bool CModelsTestPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>&)
{
    return AWorkerNodeDataModel::waitForRemovedWork();
}

#include "CModelsTestPlugin.moc"
