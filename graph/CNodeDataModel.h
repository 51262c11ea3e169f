// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/graph/SNodeDataType.h>
#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/platform/ISerializable.h>

#include <QJsonObject>
#include <QObject>
#include <QString>

namespace Plugin::Halvex {

/// What a model thinks of its inputs and settings; published for the host, never read by the library.
enum class ENodeValidationState
{
    Valid = 0,   ///< Nothing is wrong.
    Warning = 1, ///< It works, but not as it should.
    Error = 2    ///< It cannot work.
};

/**
 * The behaviour of one node: its ports, what it does with data that arrives, what it offers.
 *
 * \code
 * class CNegateModel : public CNodeDataModel
 * {
 * public:
 *     QString caption() override { return QStringLiteral("Negate"); }
 *     QString name() override { return QStringLiteral("Negate"); }
 *     unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 1; }
 *     SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumberData().type(); }
 *     void setInData(CNodeDataPtr data, NodePortIndex) override
 *     {
 *         const auto number = data.dynamicCast<CNumberData>();
 *         m_out = number ? QSharedPointer<CNumberData>::create(-number->value()) : CNodeDataPtr();
 *         if (m_out)
 *             Q_EMIT dataUpdated(0); // the node now reads outData(0) and passes it on
 *         else
 *             Q_EMIT dataInvalidated(0);
 *     }
 *     CNodeDataPtr outData(NodePortIndex) override { return m_out; }
 *
 * private:
 *     CNodeDataPtr m_out;
 * };
 * \endcode
 *
 * Ownership: a model is owned by its node through a `std::unique_ptr` and is destroyed with it; it never has a QObject
 * parent. Port counts are read once, when the node is made, and must not change.
 *
 * Threads: the virtual operations are called in the graph's thread, the one that constructed the model. Signals may be
 * emitted from any thread; dataUpdated() from another thread is queued for the graph's. A model with threads of its own
 * guards what they share with outData(). The destructor of the most derived class ends them before it does anything
 * else. Until then they may emit, also while the node is being removed.
 *
 * Re-entry: setInData() and outData() run inside a walk. They may change the graph, and even remove their own node:
 * the node and this model then live until these calls have returned.
 */
class HALVEX_EXPORT CNodeDataModel : public QObject, public AppCore::ISerializable
{
    Q_OBJECT

public:
    /// How many connections an output port is meant to have; published for the host, never consulted here.
    enum class EConnectionPolicy
    {
        One = 0, ///< One at most.
        Many = 1 ///< Any number.
    };
    Q_ENUM(EConnectionPolicy)

    CNodeDataModel();
    ~CNodeDataModel() override;

    /// What a person reads on the node.
    virtual QString caption() = 0;
    /// Whether the caption is shown; published for the host, as all captions are. True unless overridden.
    virtual bool captionVisible() const;

    /// What a person reads at a port. Empty unless overridden.
    virtual QString portCaption(ENodePortType portType, NodePortIndex index) const;
    /// Whether the caption of a port is shown. False unless overridden.
    virtual bool portCaptionVisible(ENodePortType portType, NodePortIndex index) const;

    /// The registered name, unique per model class. It stands in scene documents: never translate or change it.
    virtual QString name() = 0;

    /// Number of ports on one side; 0 for None.
    virtual unsigned int nPorts(ENodePortType portType) const = 0;
    /// The type of the data that a port takes or gives. Ports of different types can be connected: the data then goes
    /// through the converter that the connection has, if it has one.
    virtual SNodeDataType dataType(ENodePortType portType, NodePortIndex index) const = 0;
    /// How many connections output port \a index is meant to have. Many unless overridden.
    virtual EConnectionPolicy portOutConnectionPolicy(NodePortIndex index) const;

    /// Takes \a data, null for empty data, on input port \a index.
    virtual void setInData(CNodeDataPtr data, NodePortIndex index) = 0;

    /// The current data of output port \a index, null if there is none. If dataUpdated() named a port that does not
    /// exist, it is asked for that port too.
    virtual CNodeDataPtr outData(NodePortIndex index) = 0;

    /// What the model thinks of its inputs and settings. Valid unless overridden.
    virtual ENodeValidationState validationState() const;
    /// The same in words, for a person. Empty unless overridden.
    virtual QString validationMessage() const;

    /// Replaces the information object and emits infoInjected(). Does nothing if the model holds \a info already. The
    /// previous object is released before the signal.
    void setInfo(Core::AppCoreComponents::BaseInfoPtr info);

    /// The scene's information object; null until setInfo() was called with one.
    Core::AppCoreComponents::BaseInfoPtr getInfo();

    /// {"name": name()}. Subclasses add their settings to it.
    QJsonObject save() const override;

Q_SIGNALS:
    /// There is new data on output port \a index. Store the data before you emit this: outData() is read at once.
    /// Nothing is passed on if that gives null.
    void dataUpdated(NodePortIndex index);

    /// Output port \a index has become empty: outData() gives null now. For the host: the graph passes nothing on, and
    /// the models behind keep what they have.
    void dataInvalidated(NodePortIndex index);

    /// For the host: the model begins to work.
    void computingStarted();
    /// For the host: the model has done its work.
    void computingFinished();

    /// setInfo() has stored \a info. Once per change.
    void infoInjected(const Core::AppCoreComponents::BaseInfoPtr& info);

protected:
    /// \a model without its const, for a save() that asks name() or isUnique(): by contract these are not const, but
    /// they only read.
    template <typename Model>
    static Model& mutableSelf(const Model& model)
    {
        return const_cast<Model&>(model);
    }

private:
    Core::AppCoreComponents::BaseInfoPtr m_info;
};

} // namespace Plugin::Halvex
