// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestModel.h"
#include "world/EHook.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/platform/IBaseInfo.h>

/// Hears each call of foreign code: what was called, and whose it is.
class IHookListener
{
public:
    virtual ~IHookListener() = default;
    virtual void onHook(EHook hook, const void* object) = 0;
    virtual void onReceived(const void* model, int value, int port) = 0;
    virtual void onUntruth(const char* what) = 0;

    /// The one that hears, if any does: in the graph's thread, so that what happens in others is no part of it.
    static inline thread_local IHookListener* s_current = nullptr;
    static void call(EHook hook, const void* object)
    {
        if (s_current)
            s_current->onHook(hook, object);
    }
    static void complain(const char* what)
    {
        if (s_current)
            s_current->onUntruth(what);
    }
};

inline Plugin::Halvex::SNodeDataType otherType()
{
    return {QStringLiteral("Other data"), QStringLiteral("O")};
}

/// While it lives, no hook is called: what a check does is no part of what is checked.
class CSilence
{
public:
    CSilence() = default;
    ~CSilence() { IHookListener::s_current = m_listener; }
    Q_DISABLE_COPY(CSilence)

private:
    IHookListener* const m_listener = std::exchange(IHookListener::s_current, nullptr);
};

/// What a node of a world is.
enum class EKind
{
    Step,      ///< Keeps what it receives and passes it on.
    View,      ///< A sink.
    Camera,    ///< A unique source.
    Named,     ///< A source with a unique name, which is not unique.
    Screen,    ///< A unique sink, which the service refuses.
    Plain,     ///< Without an identity.
    Decoupler, ///< The library's own.
    Worker
};

const char* nameOf(EKind kind);

/// A value is the number of the sending, times this, plus how often it was converted.
constexpr int perSending = 1000;

/// Data that tells of its end. Looks like a CTestData: empty data has the value -1.
inline QSharedPointer<CTestData> makeData(int value)
{
    const auto data = CTestData::make(value);
    data->onDestroyed = [which = data.data()] { IHookListener::call(EHook::DataDestroyed, which); };
    return data;
}

class CWorldInfo : public Core::AppCoreComponents::IBaseInfo
{
public:
    CWorldInfo() { ++s_alive; }
    ~CWorldInfo() override
    {
        --s_alive;
        IHookListener::call(EHook::InfoDestroyed, this);
    }
    Q_DISABLE_COPY(CWorldInfo)
    static int alive() { return s_alive; }

private:
    static inline int s_alive = 0;
};

/// Has every operation of \a model call its hook.
template <typename Model>
void hookUp(Model& model)
{
    const auto calling = [&model](EHook hook) { return [hook, &model] { IHookListener::call(hook, &model); }; };
    model.onName = calling(EHook::Name);
    model.onPorts = calling(EHook::Ports);
    model.onSave = calling(EHook::Save);
    model.onRestore = calling(EHook::Restore);
    model.onDestroyed = calling(EHook::ModelDestroyed);
    model.onDataType = [&model](auto side, auto) {
        IHookListener::call(EHook::DataType, &model);
        return side == Plugin::Halvex::ENodePortType::Out ? otherType() : CTestData::defaultType();
    };
    QObject::connect(&model, &Plugin::Halvex::CNodeDataModel::dataUpdated, calling(EHook::DataUpdatedFirst));
    QObject::connect(&model, &Plugin::Halvex::CNodeDataModel::infoInjected, calling(EHook::InfoInjected));
    model.onSetInData = [&model](auto data, auto port) {
        model.received.clear(); // what is kept longer than needed hides its end
        if (IHookListener::s_current)
            IHookListener::s_current->onReceived(&model, CTestData::valueOf(data), port);
        IHookListener::call(EHook::SetInData, &model);
    };
}

/**
 * A node of a world, with two ports on each side. Uses itself after each hook where it is promised to be still there.
 *
 * A step passes on what is newer than all that it has passed on, and empty data, so that a walk ends, whatever the
 * loops.
 */
class CWorldModel : public CNamedTestModelOf<Plugin::Halvex::ASourceNodeDataModel>
{
public:
    explicit CWorldModel(EKind kind, const QString& uniqueName = noUniqueName())
        : CNamedTestModelOf(2, 2, QString::fromLatin1(nameOf(kind)), uniqueName)
        , m_isPassing(kind != EKind::View && kind != EKind::Screen)
    {
        using Type = Plugin::Halvex::ENodeDataModelType;
        hookUp(*this);
        unique = kind == EKind::Camera || kind == EKind::Screen;
        setType(m_isPassing ? Type::Source : Type::Sink);
        onIsUnique = [this] { IHookListener::call(EHook::IsUnique, this); };
        onSetInData = [this, hear = onSetInData](const CNodeDataPtr& data, int port) {
            hear(data, port);
            if (m_isPassing && !isDeaf)
                passOn(data);
        };
        onOutData = [this](int port) {
            IHookListener::call(EHook::OutData, this);
            return nextOut ? std::exchange(nextOut, {}) : kept(port);
        };
        QObject::connect(getDataFlowProxy(), &Plugin::Halvex::CNodeDataFlowProxy::newDataAvailable, this,
                         [this] { IHookListener::call(EHook::NewData, this); });
    }

    /// Sends \a data, as a camera does.
    void send(const CNodeDataPtr& data)
    {
        m_lastPassed = qMax(m_lastPassed, sendingOf(data));
        getDataFlowProxy()->setData(data);
    }

    bool isPassing() const { return m_isPassing; }
    int lastPassed() const { return m_lastPassed; }

    /// The number in the data that it keeps.
    int value() { return CTestData::valueOf(kept(0)); }

    bool isDeaf = false;  ///< Keeps nothing and passes nothing on.
    CNodeDataPtr nextOut; ///< What it gives out instead of what it keeps, once.

private:
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): what the source keeps, and not what the test model gives out
    CNodeDataPtr kept(int port) { return ASourceNodeDataModel::outData(port); }
    static int sendingOf(const CNodeDataPtr& data) { return data ? CTestData::valueOf(data) / perSending : 0; }
    void passOn(const CNodeDataPtr& data)
    {
        if (data && sendingOf(data) <= m_lastPassed)
            return;
        send(data);
    }

    bool m_isPassing;
    int m_lastPassed = 0;
};
