// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/models/ENodeDataModelType.h>
#include <Halvex/scene/CNodeScene.h>

#include <QPointer>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/**
 * A model with an identity, as a host would hand it to the service: the test chooses everything that the service may
 * ask of it, and runs its own code in each of its operations. Unless told otherwise it has two ports on each side and
 * passes what it receives on to output 0.
 */
class CHostModel : public Plugin::Halvex::ANodeDataModel
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodeDataModelType = Plugin::Halvex::ENodeDataModelType;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    explicit CHostModel(ENodeDataModelType type, QString name = QStringLiteral("Model"))
        : m_name(std::move(name))
    {
        enter(type);
    }
    CHostModel(ENodeDataModelType type, QString name, QString uniqueName)
        : ANodeDataModel(std::move(uniqueName))
        , m_name(std::move(name))
    {
        enter(type);
    }
    ~CHostModel() override
    {
        --s_alive;
        if (onDestroyed)
            onDestroyed();
    }

    static int alive() { return s_alive; }
    /// How often anything virtual of any such model was called.
    static int calls() { return s_calls; }

    // moc's function is not wanted, for the service asks through it what a model is.
    const QMetaObject* metaObject() const override
    {
        ++s_calls;
        return ANodeDataModel::metaObject();
    }
    QString caption() override { return counted(m_name); }
    QString name() override
    {
        const QString name = m_name;
        run(onName);
        return name;
    }
    bool isUnique() override
    {
        run(onIsUnique);
        return unique;
    }
    unsigned int nPorts(ENodePortType side) const override
    {
        run(onPorts);
        return side == ENodePortType::None ? 0 : 2;
    }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType, NodePortIndex) const override
    {
        return counted(CTestData::defaultType());
    }
    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        received.emplace_back(CTestData::valueOf(data), index);
        const QPointer<CHostModel> self(this);
        run(onSetInData);
        if (self && data)
            offer(data);
    }
    CNodeDataPtr outData(NodePortIndex) override { return counted(m_out); }
    void restore(const QJsonObject& json) override
    {
        restored.push_back(json);
        run(onRestore);
    }

    /// Stores \a data as the output and announces it on port 0.
    void offer(const CNodeDataPtr& data)
    {
        m_out = data;
        Q_EMIT dataUpdated(0);
    }

    bool unique = false;
    std::vector<std::pair<int, NodePortIndex>> received; ///< -1 for empty data.
    std::vector<QJsonObject> restored;

    std::function<void()> onName;
    std::function<void()> onIsUnique;
    std::function<void()> onPorts;
    std::function<void()> onSetInData;
    std::function<void()> onRestore;
    std::function<void()> onDestroyed; ///< Runs in the destructor, when this class's part is still whole.

private:
    void enter(ENodeDataModelType type)
    {
        ++s_alive;
        m_modelType = type;
    }
    template <typename Value>
    static Value counted(Value value)
    {
        ++s_calls;
        return value;
    }
    // A copy, because the test's code may destroy this model.
    static void run(std::function<void()> code) // NOLINT(performance-unnecessary-value-param)
    {
        ++s_calls;
        if (code)
            code();
    }

    QString m_name;
    CNodeDataPtr m_out;
    static inline int s_alive = 0;
    static inline int s_calls = 0;
};

/// A source that is unique by its name, as a camera's would be.
inline std::unique_ptr<CHostModel> makeSource(const QString& name = QStringLiteral("cam"))
{
    auto source = std::make_unique<CHostModel>(Plugin::Halvex::ENodeDataModelType::Source, name, name);
    source->unique = true;
    return source;
}

/// The first in \a scene that has that name; null if there is none, or no scene.
inline CHostModel* modelNamed(const Plugin::Halvex::CNodeScene* scene, const QString& name)
{
    if (!scene)
        return nullptr;
    for (const auto& entry : scene->nodes()) {
        if (entry.second->nodeDataModel()->name() == name)
            return dynamic_cast<CHostModel*>(entry.second->nodeDataModel());
    }
    return nullptr;
}

/// The node that owns \a model, null if none in \a scene does.
inline Plugin::Halvex::CNodeBase* nodeOf(const Plugin::Halvex::CNodeScene& scene,
                                         const Plugin::Halvex::CNodeDataModel* model)
{
    for (const auto& entry : scene.nodes()) {
        if (entry.second->nodeDataModel() == model)
            return entry.second.get();
    }
    return nullptr;
}
