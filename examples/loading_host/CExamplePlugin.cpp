// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CExamplePlugin.h"

#include <Halvex/Halvex.h>

using namespace Plugin::Halvex;

namespace {

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

// A host that does not link the library reaches models by virtual operations, and by what Qt's meta-object system
// knows: properties, signals and invokable functions.

class CNumbers : public ASourceNodeDataModel
{
    Q_OBJECT

public:
    CNumbers()
        : ASourceNodeDataModel(QStringLiteral("numbers"))
    {
    }
    QString caption() override { return QStringLiteral("Numbers"); }
    // The registry outlives this plugin's code, in which the text of a QStringLiteral() would lie.
    QString name() override { return QString::fromLatin1("Example Numbers"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return true; } // it gets a scene of its own

    Q_INVOKABLE void send(int value) { getDataFlowProxy()->setData(QSharedPointer<CNumber>::create(value)); }
};

class CDouble : public ASinkNodeDataModel
{
    Q_OBJECT

public:
    QString caption() override { return QStringLiteral("Double"); }
    QString name() override { return QString::fromLatin1("Example Double"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber().type(); }
    CNodeDataPtr outData(NodePortIndex) override { return m_doubled; }
    bool isUnique() override { return false; }

    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        const auto number = data.dynamicCast<CNumber>();
        m_doubled = number ? QSharedPointer<CNumber>::create(2 * number->value()) : CNodeDataPtr();
        if (m_doubled)
            Q_EMIT dataUpdated(0);
        else
            Q_EMIT dataInvalidated(0);
    }

private:
    CNodeDataPtr m_doubled;
};

class CSum : public ASinkNodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(int sum READ sum)

public:
    QString caption() override { return QStringLiteral("Sum"); }
    QString name() override { return QString::fromLatin1("Example Sum"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber().type(); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return false; }

    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        if (const auto number = data.dynamicCast<CNumber>())
            m_sum += number->value();
    }

    int sum() const { return m_sum; }

private:
    int m_sum = 0;
};

} // namespace

bool CExamplePlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    m_manager = manager;
    return true;
}

bool CExamplePlugin::extensionsInitialized()
{
    const auto manager = m_manager.toStrongRef();
    const auto service = manager ? manager->findService("Plugin::Halvex::INodeService") : nullptr;
    auto* const nodes = qobject_cast<INodeService*>(service.data());
    if (!nodes)
        return false;
    const QString category = QString::fromLatin1("Examples");
    nodes->registry()->registerModel<CNumbers>(category);
    nodes->registry()->registerModel<CDouble>(category);
    nodes->registry()->registerModel<CSum>(category);
    return true;
}

bool CExamplePlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>&)
{
    return true;
}

#include "CExamplePlugin.moc"
