// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CTestModelsPlugin.h"

#include "support/BoundedWait.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <QSemaphore>

#include <atomic>
#include <memory>
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

/// Is opened when the plugin is about to go.
QSemaphore& gateOfWork()
{
    static QSemaphore gate;
    return gate;
}

/// Its work, once begun, is under way until the plugin goes.
class CTestWorker : public AWorkerNodeDataModel
{
    Q_OBJECT

public:
    QString caption() override { return QStringLiteral("Test worker"); }
    QString name() override { return QString::fromLatin1("TestWorker"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    bool isUnique() override { return false; }

    Q_INVOKABLE void waitForWork() { acquireSoon(*m_begun); }

protected:
    Work makeWork() const override
    {
        return [begun = m_begun](const Inputs& inputs) {
            begun->release();
            acquireSoon(gateOfWork());
            return inputs.front();
        };
    }

private:
    std::shared_ptr<QSemaphore> m_begun = std::make_shared<QSemaphore>();
};

} // namespace

CTestModelsPlugin::~CTestModelsPlugin()
{
    if (m_camera) {
        m_camera->requestInterruption();
        waitForEnd(*m_camera);
    }
    gateOfWork().release(1000); // more than there is
    // The work is code of this plugin.
    if (!AWorkerNodeDataModel::waitForRemovedWork())
        qFatal("The work has not ended.");
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
    nodes->registry()->registerModel<CTestWorker>(QString::fromLatin1("Test"));
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
