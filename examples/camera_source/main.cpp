// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A camera with a thread of its own, whose frames enter the graph from there. The graph runs in the main thread, in
// which the event loop is.

#include <Halvex/Halvex.h>

#include <QCoreApplication>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

using namespace Plugin::Halvex;

namespace {

/// Stands for the SDK of a camera: its thread calls back with each frame until the camera is stopped.
class CCamera
{
public:
    template <typename Callback>
    void start(Callback callback)
    {
        m_thread = std::thread([this, callback] {
            for (quint64 number = 0; !m_isStopped; ++number) {
                Veltra::SGrabResult frame;
                frame.frameNumber = number;
                callback(Veltra::CGrabResultPtr(std::move(frame)));
                std::this_thread::sleep_for(std::chrono::milliseconds(1)); // its frame rate
            }
        });
    }
    void stop()
    {
        m_isStopped = true;
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    std::thread m_thread;
    std::atomic<bool> m_isStopped{false};
};

class CCameraSource : public ASourceNodeDataModel
{
public:
    CCameraSource()
    {
        // The camera's thread gets an entry, not the model: it leads nowhere when the model is gone.
        m_camera.start([entry = dataEntry()](const Veltra::CGrabResultPtr& frame) {
            entry.setData(QSharedPointer<CVeltraGrabResultData>::create(frame));
        });
    }
    ~CCameraSource() override { m_camera.stop(); } // before anything else of the model goes

    QString caption() override { return QStringLiteral("Camera"); }
    QString name() override { return QStringLiteral("Example Camera"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return false; }

private:
    CCamera m_camera;
};

/// Ends the program after ten frames.
class CFrameCounter : public ASinkNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Counter"); }
    QString name() override { return QStringLiteral("Example Counter"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }

    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        if (data && ++m_count == 10)
            QCoreApplication::quit();
    }

    int count() const { return m_count; }

private:
    int m_count = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    CNodeScene scene(nullptr, nullptr);
    CNodeBase& camera = scene.createNode(std::make_unique<CCameraSource>());
    auto sink = std::make_unique<CFrameCounter>();
    const CFrameCounter& counter = *sink;
    CNodeBase& last = scene.createNode(std::move(sink));
    scene.createConnection(last, 0, camera, 0, {});

    QCoreApplication::exec();
    std::printf("%d frames came\n", counter.count());
}
