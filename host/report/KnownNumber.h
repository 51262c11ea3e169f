// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

namespace Host {

/// For a document; null if it is not known.
template <typename Number>
QJsonValue numberJson(std::optional<Number> value)
{
    return value ? QJsonValue(double(*value)) : QJsonValue();
}

/// For people; empty if it is not known.
inline QString numberText(std::optional<quint64> value)
{
    return value ? QString::number(*value) : QString();
}

/// The same with a digit behind the point, and with \a unit.
inline QString rateText(std::optional<double> value, const char* unit = "")
{
    return value ? QString::number(*value, 'f', 1) + QLatin1String(unit) : QString();
}

} // namespace Host
