// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonObject>
#include <QtGlobal>

namespace Plugin::AppCore {

/// An object that writes itself to a JSON object and reads itself back from one.
class Q_DECL_EXPORT ISerializable
{
public:
    virtual ~ISerializable() = default;

    /// The object's state. Called in the object's thread.
    virtual QJsonObject save() const = 0;

    /// Takes the state from \a json; each class says what a missing key means. Does nothing unless overridden.
    virtual void restore(const QJsonObject& json) { Q_UNUSED(json) }
};

} // namespace Plugin::AppCore
