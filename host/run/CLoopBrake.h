// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <cstddef>
#include <vector>

namespace Plugin::Halvex {
class CNodeDecouplerDataModelBase;
}

namespace Host {

/**
 * Brings the loops of a graph to rest when no frame comes any more. Each leads through a decoupler, from which frames
 * would otherwise go round for ever.
 *
 * \code
 * brake.hold();                                 // no frame comes any more
 * // when all else has come through, again and again:
 * if (!brake.releaseNext())
 *     end();
 * \endcode
 *
 * A decoupler that holds keeps its frame. Each lets out what it has by then once, in the order of the flow, so that
 * every frame of the camera has gone through the whole loop. What came round meanwhile stays where it is.
 *
 * Ownership: of the decouplers none; they outlive the last call. Threads: the graph's.
 */
class CLoopBrake
{
public:
    using Decoupler = Plugin::Halvex::CNodeDecouplerDataModelBase;

    /// One that lies on a loop. In the order of the flow.
    void add(Decoupler& decoupler) { m_decouplers.push_back({&decoupler, 0.0}); }

    void hold();

    /// Lets the next one release its frame, if it has one. False when all have had their turn.
    bool releaseNext();

    /// To be called when a decoupler has given out a frame.
    void noteDelivery(const Decoupler& decoupler);

    bool isOnLoop(const Decoupler& decoupler) const;

    /// Whether what \a decoupler has is to stay there.
    bool isHolding(const Decoupler& decoupler) const;

    /// The rate that it has, or had before it was held.
    double framesPerSecond(const Decoupler& decoupler) const;

private:
    struct SLooped
    {
        Decoupler* model;
        double framesPerSecond; // before hold()
    };

    const SLooped* find(const Decoupler& decoupler) const;

    std::vector<SLooped> m_decouplers;
    std::size_t m_next = 0;
    const Decoupler* m_released = nullptr;
    bool m_isHolding = false;
};

} // namespace Host
