// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The smallest graph: numbers go into a source, are doubled, and are printed. No plugin and no registry is needed as
// long as nothing is made by its name.

#include <Halvex/Halvex.h>

#include <cstdio>
#include <memory>

using namespace Plugin::Halvex;

namespace {

/// What flows: made once, shared, and never changed afterwards.
class CNumber : public CNodeData
{
public:
    explicit CNumber(int value = 0)
        : m_value(value)
    {
    }
    SNodeDataType type() const override { return {QStringLiteral("example.number"), QStringLiteral("Number")}; }
    int value() const { return m_value; }

private:
    int m_value;
};

class CNumberSource : public ASourceNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Numbers"); }
    QString name() override { return QStringLiteral("Example Numbers"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {} // there is no input
    bool isUnique() override { return false; }
};

class CDouble : public CNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Double"); }
    QString name() override { return QStringLiteral("Example Double"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber().type(); }
    CNodeDataPtr outData(NodePortIndex) override { return m_doubled; }

    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        const auto number = data.dynamicCast<CNumber>();
        m_doubled = number ? QSharedPointer<CNumber>::create(2 * number->value()) : CNodeDataPtr();
        if (m_doubled)
            Q_EMIT dataUpdated(0); // stored first: outData() is read at once
        else
            Q_EMIT dataInvalidated(0); // tells the host; the graph passes nothing on
    }

private:
    CNodeDataPtr m_doubled;
};

class CPrint : public CNodeDataModel
{
public:
    QString caption() override { return QStringLiteral("Print"); }
    QString name() override { return QStringLiteral("Example Print"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber().type(); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }

    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        if (const auto number = data.dynamicCast<CNumber>()) // empty data comes when a connection goes
            std::printf("%d\n", number->value());
    }
};

} // namespace

int main()
{
    CNodeScene scene(nullptr, nullptr);
    auto source = std::make_unique<CNumberSource>();
    const QPointer<CNodeDataFlowProxy> entrance = source->getDataFlowProxy();
    CNodeBase& numbers = scene.createNode(std::move(source));
    CNodeBase& twice = scene.createNode(std::make_unique<CDouble>());
    CNodeBase& print = scene.createNode(std::make_unique<CPrint>());
    scene.createConnection(twice, 0, numbers, 0, {}); // the consumer comes first
    scene.createConnection(print, 0, twice, 0, {});

    for (const int value : {1, 2, 3})
        entrance->setData(QSharedPointer<CNumber>::create(value)); // it is printed when this returns
}
