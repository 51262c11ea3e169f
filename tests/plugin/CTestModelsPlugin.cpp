// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CTestModelsPlugin.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <utility>

using namespace Plugin::Halvex;

namespace {

class CTestSource : public ASourceNodeDataModel
{
    Q_OBJECT

public:
    CTestSource()
        : ASourceNodeDataModel(QStringLiteral("test-source"))
    {
    }
    QString caption() override { return QStringLiteral("Test source"); }
    QString name() override { return QString::fromLatin1("TestSource"); } // the registry outlives this plugin
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return true; }

    /// Sends a frame of that number.
    Q_INVOKABLE void send(qulonglong frameNumber)
    {
        Veltra::SGrabResult result;
        result.frameNumber = frameNumber;
        getDataFlowProxy()->setData(
            QSharedPointer<CVeltraGrabResultData>::create(Veltra::CGrabResultPtr(std::move(result))));
    }
};

class CTestSink : public ASinkNodeDataModel
{
    Q_OBJECT

public:
    QString caption() override { return QStringLiteral("Test sink"); }
    QString name() override { return QString::fromLatin1("TestSink"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        if (const auto frame = data.dynamicCast<CVeltraGrabResultData>())
            Q_EMIT received(frame->grabResult()->frameNumber);
    }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }

Q_SIGNALS:
    /// With the frame's number.
    void received(qulonglong);
};

} // namespace

CTestModelsPlugin::~CTestModelsPlugin()
{
    if (!m_camera)
        return;
    m_camera->requestInterruption();
    if (!m_camera->wait(60000UL))
        qFatal("The camera's thread has not ended within a minute.");
}

bool CTestModelsPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    m_manager = manager;
    return true;
}

bool CTestModelsPlugin::extensionsInitialized()
{
    INodeService* const nodes = service();
    if (nodes == nullptr)
        return false;
    nodes->registry()->registerModel<CTestSource>(QString::fromLatin1("Test"));
    nodes->registry()->registerModel<CTestSink>(QString::fromLatin1("Test"));
    return true;
}

bool CTestModelsPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>&)
{
    return true;
}

QStringList CTestModelsPlugin::categories() const
{
    QStringList found;
    for (const QString& category : service()->registry()->categories())
        found << category;
    return found;
}

int CTestModelsPlugin::scenePointerType() const
{
    return qMetaTypeId<CNodeScene*>();
}

void CTestModelsPlugin::startCamera(QObject* source)
{
    const CNodeDataEntry entry = qobject_cast<ASourceNodeDataModel*>(source)->dataEntry();
    m_camera.reset(QThread::create([this, entry] {
        while (!QThread::currentThread()->isInterruptionRequested()) {
            if (!entry.setData(QSharedPointer<CVeltraGrabResultData>::create()))
                ++m_refusedFrames;
            QThread::usleep(100); // until the next frame
        }
    }));
    m_camera->start();
}

INodeService* CTestModelsPlugin::service() const
{
    const auto manager = m_manager.toStrongRef();
    return manager ? qobject_cast<INodeService*>(manager->findService("Plugin::Halvex::INodeService").data()) : nullptr;
}

#include "CTestModelsPlugin.moc"
