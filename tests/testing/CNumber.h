// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>
#include <Halvex/testing/SCheckOptions.h>

/// A number that, unlike data should, can be changed.
class CNumber : public Plugin::Halvex::CNodeData
{
public:
    explicit CNumber(int value = 0)
        : m_value(value)
    {
    }

    static Plugin::Halvex::SNodeDataType dataType()
    {
        return {QStringLiteral("Test number"), QStringLiteral("Number")};
    }
    Plugin::Halvex::SNodeDataType type() const override { return dataType(); }

    int value() const { return m_value; }
    void setValue(int value) { m_value = value; }

private:
    int m_value;
};

inline Plugin::Halvex::CNodeDataPtr makeNumber(int value)
{
    return Plugin::Halvex::CNodeDataPtr(new CNumber(value));
}

/// What a check has to know of numbers.
inline Plugin::Halvex::Testing::SCheckOptions numberOptions()
{
    using namespace Plugin::Halvex;
    Testing::SCheckOptions options;
    options.makeData = [](const SNodeDataType& type, int number) {
        return type.id == CNumber::dataType().id ? makeNumber(number) : CNodeDataPtr();
    };
    options.checksum = [](const CNodeData& data) {
        const auto* const number = dynamic_cast<const CNumber*>(&data);
        return number ? QByteArray::number(number->value()) : QByteArray();
    };
    options.patience = std::chrono::milliseconds(100);
    return options;
}
