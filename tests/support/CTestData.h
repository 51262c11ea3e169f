// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <atomic>
#include <functional>
#include <utility>

/// A data object with a number in it, of a type that the test chooses. Knows how many of them exist.
class CTestData : public Plugin::Halvex::CNodeData
{
public:
    explicit CTestData(int value = 0, Plugin::Halvex::SNodeDataType type = defaultType())
        : m_value(value)
        , m_type(std::move(type))
    {
        ++s_alive;
    }
    CTestData(const CTestData&) = delete;
    CTestData& operator=(const CTestData&) = delete;
    ~CTestData() override
    {
        --s_alive;
        if (onDestroyed)
            onDestroyed();
    }

    static Plugin::Halvex::SNodeDataType defaultType() { return {QStringLiteral("Test data"), QStringLiteral("T")}; }
    static QSharedPointer<CTestData> make(int value) { return QSharedPointer<CTestData>::create(value); }
    static int alive() { return s_alive; }

    /// The number in \a data; -1 for empty data.
    static int valueOf(const Plugin::Halvex::CNodeDataPtr& data)
    {
        const auto number = data.dynamicCast<CTestData>();
        return number ? number->value() : -1;
    }

    Plugin::Halvex::SNodeDataType type() const override { return m_type; }
    int value() const { return m_value; }

    std::function<void()> onDestroyed; ///< Runs in the destructor.

private:
    int m_value;
    Plugin::Halvex::SNodeDataType m_type;
    static inline std::atomic<int> s_alive{0};
};

/// A converter that changes nothing.
inline Plugin::Halvex::CNodeDataPtr passOn(Plugin::Halvex::CNodeDataPtr data)
{
    return data;
}

/// A converter that adds ten.
inline Plugin::Halvex::CNodeDataPtr addTen(const Plugin::Halvex::CNodeDataPtr& data)
{
    return data ? CTestData::make(CTestData::valueOf(data) + 10) : nullptr;
}
