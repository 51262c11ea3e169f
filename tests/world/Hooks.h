// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/CMatrixWorld.h"

#include <vector>

/// What an operation cannot be done to where a hook runs, since it is not there.
struct SGone
{
    const char* reason = nullptr;
    std::vector<EPart> parts;
    std::vector<ETarget> inOneScene;
    std::vector<ETarget> inSceneEach;
};

/// A way in which the library comes to run foreign code: a hook may have several.
struct SHook
{
    /// What provoking it takes beyond the plain world.
    enum ENeeds
    {
        Nothing,
        Decouplers,
        Workers,
        HandFirst ///< The node at hand is the first to go when its scene is cleared.
    };

    const char* name = nullptr;
    void (*provoke)(CMatrixWorld&) = nullptr; ///< Makes the library run the world's handler there.
    std::vector<SGone> gone;
    ENeeds needs = Nothing;
};

/// All that run in the graph's thread. A data object may also go in a decoupler's; what may be called from there, and
/// is, is in tst_CDecoupler.
const std::vector<SHook>& matrixHooks();
