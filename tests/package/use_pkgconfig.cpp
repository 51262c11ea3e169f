// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A program that knows nothing but what pkg-config says of the package.

#include <Halvex/Halvex.h>

int main()
{
    const Plugin::Halvex::CNodeScene scene(nullptr, nullptr);
    return scene.saveToMemory().isEmpty() ? 1 : 0;
}
