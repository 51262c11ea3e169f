// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Input: a sequence of operations of a service and its scenes, eight bytes each, see tests/world/CSequence.h. Some are
// run in hooks of others: wherever the library runs foreign code, which may throw as well.
//
// True whatever the sequence is: all that tests/world says of one. Among it, after each operation every scene is sound
// and every signal was told once; a service throws nothing; at the end every scene's document comes back, data goes
// where the connections lead, and nothing outlives the service.

#include "support/FuzzProperties.h"
#include "world/CSequence.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString wrong = CSequence::run(QByteArray(reinterpret_cast<const char*>(data), int(size)));
    require(wrong.isEmpty(), wrong);
    return 0;
}
