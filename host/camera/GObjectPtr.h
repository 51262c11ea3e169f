// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <glib-object.h>

#include <memory>

namespace Host {

/// Drops one reference of a GObject.
struct SUnref
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// One owned reference of a GObject.
template <typename T>
using GObjectPtr = std::unique_ptr<T, SUnref>;

} // namespace Host
