// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Makes the plugin it is linked into one that cannot be loaded: nobody has this function.
extern "C" int functionThatNobodyHas();
extern "C" __attribute__((visibility("default"))) int callIt();

extern "C" int callIt()
{
    return functionThatNobodyHas();
}
