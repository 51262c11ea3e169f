// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin {
namespace Halvex {

/**
 * Which nodes and connections exist in this process.
 *
 * Graph objects keep track of each other through links. But some of their pointers can be overwritten by a host (a
 * connection's end, a port table), and of a pointer that came in that way nothing is known: it is used only after
 * it was found here.
 *
 * Threads: any. Scenes of different threads share it.
 */
class CLiveObjects
{
public:
    static void add(const void* object);
    static void remove(const void* object) noexcept;
    static bool contains(const void* object);
};

} // namespace Halvex
} // namespace Plugin
