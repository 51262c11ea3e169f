// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QObject>
#include <QPointer>

#include <utility>

namespace Plugin::Halvex {

/// Puts \a data into \a place, a member of \a model, and releases what was there. Returns whether the model still
/// exists: the destructor of a data object is foreign code and may destroy it.
inline bool storeNewestData(QObject& model, CNodeDataPtr& place, CNodeDataPtr data)
{
    const QPointer<QObject> self(&model);
    place.swap(data);
    data.reset();
    return !self.isNull();
}

} // namespace Plugin::Halvex
