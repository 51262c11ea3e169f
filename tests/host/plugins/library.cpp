// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A library that is no plugin.
extern "C" __attribute__((visibility("default"))) int answer();

extern "C" int answer()
{
    return 42;
}
