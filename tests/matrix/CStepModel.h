// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/models/ASourceNodeDataModel.h>

#include <functional>
#include <utility>

/**
 * One step of a chain: keeps what it receives and passes it on. Runs the test's code in everything that the library
 * calls, and uses itself afterwards where it is promised to be still there.
 */
class CStepModel : public Plugin::Halvex::ASourceNodeDataModel
{
public:
    CStepModel() { watch(); }

    /// A unique one.
    explicit CStepModel(const QString& uniqueName)
        : ASourceNodeDataModel(uniqueName)
        , m_isUnique(true)
    {
        watch();
    }

    ~CStepModel() override
    {
        --s_alive;
        run(onDestroyed);
    }

    static int alive() { return s_alive; }
    static QString modelName() { return QStringLiteral("Step"); }

    QString caption() override { return modelName(); }
    QString name() override
    {
        run(onName);
        return modelName();
    }
    bool isUnique() override
    {
        const bool result = m_isUnique; // the code may destroy this model
        run(onIsUnique);
        return result;
    }
    unsigned int nPorts(Plugin::Halvex::ENodePortType) const override
    {
        run(onNPorts);
        return 1;
    }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType, Plugin::Halvex::NodePortIndex) const override
    {
        run(onDataType);
        return CTestData::defaultType();
    }

    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex) override
    {
        run(onSetInData);
        if (!isDeaf)
            getDataFlowProxy()->setData(data);
    }

    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override
    {
        run(onOutData);
        return nextOut ? std::exchange(nextOut, {}) : ASourceNodeDataModel::outData(index);
    }

    QJsonObject save() const override
    {
        run(onSave);
        return ASourceNodeDataModel::save();
    }

    void restore(const QJsonObject& json) override
    {
        run(onRestore);
        ASourceNodeDataModel::restore(json);
    }

    /// The number in the data that it keeps.
    int value() { return CTestData::valueOf(ASourceNodeDataModel::outData(0)); }

    bool isDeaf = false;                  ///< Keeps nothing and passes nothing on.
    Plugin::Halvex::CNodeDataPtr nextOut; ///< What it gives out instead of what it keeps, once.
    std::function<void()> onDataUpdated;  ///< Before its node hears of it.
    std::function<void()> onName;
    std::function<void()> onIsUnique;
    std::function<void()> onNPorts;
    std::function<void()> onDataType;
    std::function<void()> onSetInData;
    std::function<void()> onOutData;
    std::function<void()> onSave;
    std::function<void()> onRestore;
    std::function<void()> onDestroyed;

private:
    void watch()
    {
        ++s_alive;
        connect(this, &CNodeDataModel::dataUpdated, [this] { run(onDataUpdated); });
    }

    // A copy, since the code may destroy this model.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    static void run(std::function<void()> code)
    {
        if (code)
            code();
    }

    bool m_isUnique = false;
    static inline int s_alive = 0;
};
