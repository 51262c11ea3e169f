// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>

#include <random>

/// Another seed in each run. It is printed; to have a run again, put it into the environment: HALVEX_SEED=123.
inline unsigned int freshSeed()
{
    const QByteArray given = qgetenv("HALVEX_SEED");
    const unsigned int seed = given.isEmpty() ? std::random_device()() % 1000000 : given.toUInt();
    qInfo("HALVEX_SEED=%u", seed);
    return seed;
}
