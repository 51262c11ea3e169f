// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A filter with two inputs: how far apart two cameras' frames are in brightness. It speaks as soon as it has both, and
// then whenever one of them is new.

#include <Halvex/Halvex.h>

#include <array>
#include <cstdio>
#include <memory>

using namespace Plugin::Halvex;

namespace {

class CBrightness : public CNodeData
{
public:
    explicit CBrightness(double mean = 0.0)
        : m_mean(mean)
    {
    }
    SNodeDataType type() const override { return {QStringLiteral("example.brightness"), QStringLiteral("Brightness")}; }
    double mean() const { return m_mean; }

private:
    double m_mean;
};

/// Where the brightness of a camera's frames comes in; the camera itself is of no interest here.
class CMeter : public ASourceNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Meter"); }
    QString name() override { return QStringLiteral("Example Meter"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CBrightness().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return false; }
};

class CDifference : public CNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Difference"); }
    QString name() override { return QStringLiteral("Example Difference"); }
    unsigned int nPorts(ENodePortType side) const override
    {
        if (side == ENodePortType::In)
            return unsigned(m_inputs.size());
        return side == ENodePortType::Out ? 1 : 0;
    }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CBrightness().type(); }
    QString portCaption(ENodePortType side, NodePortIndex index) const override
    {
        if (side == ENodePortType::Out)
            return QStringLiteral("left - right");
        return index == 0 ? QStringLiteral("left") : QStringLiteral("right");
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_output; }

    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        if (index < 0 || index >= NodePortIndex(m_inputs.size()))
            return;
        m_inputs[std::size_t(index)] = data.dynamicCast<CBrightness>(); // null for empty data
        m_output = difference();
        if (m_output)
            Q_EMIT dataUpdated(0);
        else
            Q_EMIT dataInvalidated(0);
    }

    ENodeValidationState validationState() const override
    {
        return hasBoth() ? ENodeValidationState::Valid : ENodeValidationState::Warning;
    }
    QString validationMessage() const override { return hasBoth() ? QString() : QStringLiteral("An input is missing"); }

private:
    bool hasBoth() const { return m_inputs[0] && m_inputs[1]; }

    CNodeDataPtr difference() const
    {
        if (!hasBoth())
            return {};
        return QSharedPointer<CBrightness>::create(m_inputs[0]->mean() - m_inputs[1]->mean());
    }

    std::array<QSharedPointer<CBrightness>, 2> m_inputs;
    CNodeDataPtr m_output;
};

} // namespace

int main()
{
    CNodeScene scene(nullptr, nullptr);
    auto leftMeter = std::make_unique<CMeter>();
    auto rightMeter = std::make_unique<CMeter>();
    const QPointer<CNodeDataFlowProxy> left = leftMeter->getDataFlowProxy();
    const QPointer<CNodeDataFlowProxy> right = rightMeter->getDataFlowProxy();
    CNodeBase& leftNode = scene.createNode(std::move(leftMeter));
    CNodeBase& rightNode = scene.createNode(std::move(rightMeter));
    CNodeBase& difference = scene.createNode(std::make_unique<CDifference>());
    scene.createConnection(difference, 0, leftNode, 0, {});
    scene.createConnection(difference, 1, rightNode, 0, {});

    // A node's output can be watched without a sink.
    CNodeDataModel& model = *difference.nodeDataModel();
    QObject::connect(&model, &CNodeDataModel::dataUpdated, [&model] {
        if (const auto result = model.outData(0).dynamicCast<CBrightness>())
            std::printf("%g\n", result->mean());
    });

    left->setData(QSharedPointer<CBrightness>::create(100.0)); // alone: nothing
    right->setData(QSharedPointer<CBrightness>::create(90.0)); // 10
    left->setData(QSharedPointer<CBrightness>::create(95.0));  // 5
}
