// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Input: the text of a scene document. It is loaded into an empty scene.
//
// True whatever the text is: nothing but std::logic_error is thrown; the scene is sound; what it saves, loaded into
// another scene, gives the same nodes, settings and connections; nothing outlives the scene.

#include "support/CFuzzModel.h"
#include "support/FuzzProperties.h"
#include "support/StableIds.h"

#include <stdexcept>
#include <typeinfo>

using namespace Plugin::Halvex;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StableIds::restart();
    CFuzzModel::deliveriesLeft = 1000;
    {
        CNodeScene scene(fuzzRegistry(), nullptr, nullptr);
        try {
            scene.loadFromMemory(QByteArray(reinterpret_cast<const char*>(data), int(size)));
        } catch (const std::logic_error& error) {
            // A model that is not registered; what came before it stays.
            require(typeid(error) == typeid(std::logic_error), QStringLiteral("nothing else is thrown"));
        }
        requireSoundness(scene);
        requireRoundTrip(scene);
    }
    requireNothingLeft();
    return 0;
}
