// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMetaProperty>
#include <QString>

#include <optional>

class QObject;

namespace Host {

/// The numbers that a setting of \a model takes, to be read behind its type and in the user's language: "1 to 99, odd",
/// "from 1". The class information of the model says it, see AImageFilterModel; of settings that the library's own
/// models have it is known here. Empty when nobody says.
QString rangeOf(const QObject& model, const QMetaProperty& property);

/// The numbers between which a setting lies. A plain value.
struct SSettingBounds
{
    double least = 0;
    double most = 0; ///< Infinite without an upper bound.
    bool areOdd = false;
};

/// The bounds of the range; none without one.
std::optional<SSettingBounds> boundsOf(const QObject& model, const QMetaProperty& property);

/// Whether \a value lies between the bounds of the range; true without one. Whatever else a range says ("odd") is up to
/// the model.
bool isInRange(const QObject& model, const QMetaProperty& property, double value);

} // namespace Host
