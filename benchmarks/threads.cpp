// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A frame's way from another thread through a source and a sink, against one queued signal.

#include "CFrame.h"
#include "CSignalGraph.h"
#include "Measuring.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>

#include <chrono>
#include <thread>

using namespace Plugin::Halvex;

namespace {

class CEntry : public ASourceNodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Entry"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return false; }
};

class CExit : public ASinkNodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Exit"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr data, NodePortIndex) override { getDataFlowProxy()->setData(std::move(data)); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }
};

/// From a source to the proxy of a sink.
class CGraph
{
public:
    CGraph()
        : m_scene(nullptr, nullptr)
    {
        auto entry = std::make_unique<CEntry>();
        auto exit = std::make_unique<CExit>();
        source = entry.get();
        QObject::connect(exit->getDataFlowProxy().data(), &CNodeDataFlowProxy::newDataAvailable, &m_scene,
                         [this] { ++received; });
        CNodeBase& node = m_scene.createNode(std::move(entry));
        m_scene.createConnection(m_scene.createNode(std::move(exit)), 0, node, 0, {});
    }

    CEntry* source = nullptr;
    int received = 0;

private:
    CNodeScene m_scene;
};

class CProxyWay : public CGraph
{
public:
    void send(const CNodeDataPtr& frame) { m_proxy.setData(frame); }

private:
    CNodeDataFlowProxy& m_proxy = *source->getDataFlowProxy();
};

class CEntryWay : public CGraph
{
public:
    void send(const CNodeDataPtr& frame) { m_entry.setData(frame); }

private:
    const CNodeDataEntry m_entry = source->dataEntry();
};

/// The floor: one queued signal.
class CSignalWay
{
public:
    CSignalWay()
    {
        QObject::connect(&m_sender, &CNodeDataFlowProxy::newDataAvailable, &m_receiver, [this] { ++received; });
    }

    void send(const CNodeDataPtr& frame) { m_sender.setData(frame); }

    int received = 0;

private:
    QObject m_receiver;
    CNodeDataFlowProxy m_sender;
};

/// The floor, and behind it a walk of the floor F2 from a source to a sink, and the signal with which the sink passes
/// the frame out of the graph.
class CSignalsWay
{
public:
    CSignalsWay()
    {
        QObject::connect(&m_sender, &CNodeDataFlowProxy::newDataAvailable, &m_receiver,
                         [this](const CNodeDataPtr& data) {
                             m_graph.walk(data);
                             m_exit.setData(data);
                         });
        QObject::connect(&m_exit, &CNodeDataFlowProxy::newDataAvailable, &m_receiver, [this] { ++received; });
    }

    void send(const CNodeDataPtr& frame) { m_sender.setData(frame); }

    int received = 0;

private:
    QObject m_receiver;
    CSignalGraph<SPlainConnection> m_graph{SShape::chain(2)};
    CNodeDataFlowProxy m_exit;
    CNodeDataFlowProxy m_sender;
};

/// Many frames at once: first they are sent, then they arrive, so that the threads do not disturb each other.
template <typename Way>
std::string addBatch(const std::string& name)
{
    const auto measure = [](benchmark::State& state) {
        constexpr int frames = 1000;
        const CNodeDataPtr frame = makeFrame();
        Way way;
        for ([[maybe_unused]] auto iteration : state) {
            way.received = 0;
            std::thread([&] {
                for (int i = 0; i < frames; ++i)
                    way.send(frame);
            }).join();
            while (way.received < frames)
                QCoreApplication::processEvents();
        }
        setItems(state, frames);
    };
    // The time of both threads, which do not work at the same time: what other processes take does not count.
    benchmark::RegisterBenchmark(name.c_str(), measure)->MeasureProcessCPUTime();
    return name;
}

} // namespace

void registerThreads(CRatioTable& table)
{
    const std::string floor = addBatch<CSignalWay>("setData/queued signal");
    const std::string proxy = addBatch<CProxyWay>("setData/proxy");
    table.add({"setData() in another thread to the sink", proxy, {floor}, 1.2});
    table.add({"the same through an entry", addBatch<CEntryWay>("setData/entry"), {floor}, 1.2});
    const std::string walk = addBatch<CSignalsWay>("setData/queued signal and F2");
    table.add({"the same through the proxy, against a queued signal and F2", proxy, {walk}});
}
