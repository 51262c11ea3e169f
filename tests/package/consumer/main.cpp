// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A plugin author's models against the installed package: exits with 0 when the frame that went into the source came
// out of the sink.

#include "graph/CNodeBase.h"
#include "platform/CId.h"

#include <Halvex/Halvex.h>

#include <QCoreApplication>

#include <cstdio>
#include <memory>
#include <type_traits>
#include <utility>

using namespace Plugin::Halvex;

static_assert(std::is_class_v<Consumer::CNodeBase> && std::is_class_v<Consumer::CId>,
              "the consumer's own headers are found, and the library finds its own");
static_assert(sizeof(HALVEX_VERSION_STR) > 1, "the version is told at compile time");

namespace {

/// A grab result as graph data.
class CFrameData : public CNodeData
{
public:
    explicit CFrameData(Veltra::CGrabResultPtr frame = {})
        : m_frame(std::move(frame))
    {
    }

    SNodeDataType type() const override { return {QStringLiteral("Consumer Frame"), QStringLiteral("CF")}; }
    const Veltra::CGrabResultPtr& frame() const { return m_frame; }

private:
    Veltra::CGrabResultPtr m_frame;
};

class CFrameSource : public ASourceNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Camera"); }
    QString name() override { return QStringLiteral("Consumer Camera"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrameData().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return false; }
};

/// Passes what arrives out of the graph.
class CFrameSink : public ASinkNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Window"); }
    QString name() override { return QStringLiteral("Consumer Window"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrameData().type(); }
    void setInData(CNodeDataPtr data, NodePortIndex) override { getDataFlowProxy()->setData(data); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);

    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel<CFrameSource>(QStringLiteral("Consumer"));
    registry->registerModel<CFrameSink>(QStringLiteral("Consumer"));

    CNodeDataPtr arrived; // outlives the scene, whose end sends empty data
    CNodeScene scene(registry, Core::AppCoreComponents::BaseInfoPtr(), nullptr);
    CNodeBase& source = scene.createNode(registry->create(QStringLiteral("Consumer Camera")));
    CNodeBase& sink = scene.createNode(registry->create(QStringLiteral("Consumer Window")));
    const auto connection = scene.createConnection(sink, 0, source, 0, NodeDataConverter());
    if (!connection) {
        std::fprintf(stderr, "no connection\n");
        return 1;
    }

    auto* sinkModel = dynamic_cast<CFrameSink*>(sink.nodeDataModel());
    auto* sourceModel = dynamic_cast<CFrameSource*>(source.nodeDataModel());
    if (sinkModel == nullptr || sourceModel == nullptr) {
        std::fprintf(stderr, "the nodes do not hold the models\n");
        return 1;
    }
    QObject::connect(sinkModel->getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, &application,
                     [&arrived](const CNodeDataPtr& data) { arrived = data; });

    const CNodeDataPtr sent = QSharedPointer<CFrameData>::create();
    sourceModel->getDataFlowProxy()->setData(sent);
    if (arrived != sent || !sent.dynamicCast<CFrameData>()) {
        std::fprintf(stderr, "the frame did not arrive\n");
        return 1;
    }
    std::printf("Halvex " HALVEX_VERSION_STR ": the frame arrived\n");
    return 0;
}
