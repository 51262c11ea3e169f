// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/SOperation.h"
#include "support/CTestData.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>

#include <QPointer>

#include <memory>
#include <utility>

namespace Sequences {

/// Hears what happens in models.
class IModelListener
{
public:
    virtual ~IModelListener() = default;
    virtual void onMade() = 0;
    virtual void onAsked(int model, int port) = 0;
    virtual void onReceived(int model, int value, int port) = 0;
    virtual void onGone(int model) = 0;
};

/// What every model of a sequence has. It goes with the model.
class CIdentity
{
public:
    CIdentity(IModelListener& listener, int number, EKind kind)
        : m_listener(listener)
        , m_number(number)
        , m_kind(kind)
    {
        ++s_alive;
        m_listener.onMade();
    }
    virtual ~CIdentity()
    {
        --s_alive;
        m_listener.onGone(m_number);
    }
    Q_DISABLE_COPY(CIdentity)

    int number() const { return m_number; }
    EKind kind() const { return m_kind; }
    static int alive() { return s_alive; }

    /// The number in \a data, 0 for empty data.
    static int valueOf(const Plugin::Halvex::CNodeDataPtr& data) { return data ? CTestData::valueOf(data) : 0; }

protected:
    void hearQuestion(int port) const { m_listener.onAsked(m_number, port); }
    void hear(const Plugin::Halvex::CNodeDataPtr& data, int port) const
    {
        m_listener.onReceived(m_number, valueOf(data), port);
    }

private:
    IModelListener& m_listener;
    int m_number;
    EKind m_kind;
    static inline int s_alive = 0;
};

/// What the models have in common, two ports on each side for example. \a Base is the library's class.
template <typename Base>
class CSequenceModel : public Base, public CIdentity
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    template <typename... Arguments>
    CSequenceModel(IModelListener& listener, int number, EKind kind, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , CIdentity(listener, number, kind)
    {
    }

    QString caption() override { return name(); }
    QString name() override { return nameOf(kind()); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::None ? 0 : 2; }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType, NodePortIndex) const override
    {
        return CTestData::defaultType();
    }
    void setInData(CNodeDataPtr data, NodePortIndex index) override { hear(data, index); }
};

/// Passes on data that comes from a later operation than all that it has passed on: a walk ends, whatever the loops.
template <typename Base>
class CPassingModel : public CSequenceModel<Base>
{
public:
    using typename CSequenceModel<Base>::CNodeDataPtr;
    using typename CSequenceModel<Base>::NodePortIndex;
    using CSequenceModel<Base>::CSequenceModel;

    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        this->hear(data, index);
        const int operation = operationOf(this->valueOf(data));
        if (operation <= m_lastPassed)
            return;
        m_lastPassed = operation;
        m_out = data;
        Q_EMIT this->dataUpdated(0);
    }
    CNodeDataPtr outData(NodePortIndex index) override
    {
        this->hearQuestion(index);
        return m_out;
    }

private:
    CNodeDataPtr m_out;
    int m_lastPassed = 0;
};

class CPlainModel : public CPassingModel<Plugin::Halvex::CNodeDataModel>
{
public:
    using CPassingModel::CPassingModel;
};

class CFilterModel : public CPassingModel<Plugin::Halvex::ANodeDataModel>
{
public:
    CFilterModel(IModelListener& listener, int number)
        : CPassingModel(listener, number, Filter)
    {
        m_modelType = Plugin::Halvex::ENodeDataModelType::Decoupler;
    }
    bool isUnique() override { return false; }
};

/// A source, unique or not.
class CFedModel : public CSequenceModel<Plugin::Halvex::ASourceNodeDataModel>
{
public:
    using CSequenceModel::CSequenceModel;
    bool isUnique() override { return kind() == Source; }
    CNodeDataPtr outData(NodePortIndex index) override
    {
        hearQuestion(index);
        return ASourceNodeDataModel::outData(index);
    }
};

class CViewModel : public CSequenceModel<Plugin::Halvex::ASinkNodeDataModel>
{
public:
    CViewModel(IModelListener& listener, int number, bool unique = false)
        : CSequenceModel(listener, number, View)
        , m_isUnique(unique)
    {
    }
    bool isUnique() override { return m_isUnique; }
    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        hear(data, index);
        getDataFlowProxy()->setData(std::move(data));
    }
    CNodeDataPtr outData(NodePortIndex index) override
    {
        hearQuestion(index);
        return {};
    }

private:
    bool m_isUnique;
};

} // namespace Sequences
