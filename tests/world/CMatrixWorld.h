// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/CWorld.h"

#include <functional>
#include <map>

/// What an operation works on, as seen from where the hook runs.
enum class ETarget
{
    AtHand,
    Upstream,
    Downstream,
    Unrelated
};

/// Whether the targets lie in one scene or in a scene each, connected with each other.
enum class ELayout
{
    OneScene,
    SceneEach
};

/**
 * A world with a chain, upstream → at hand → downstream, each of which is fed by what comes before it, and with another
 * pair of nodes that is not connected to the chain.
 */
class CMatrixWorld : public CWorld
{
public:
    CMatrixWorld(ELayout layout, bool hasDecouplers, bool hasWorkers);

    SPlace& at(ETarget target) { return m_places[target]; }
    SPlace& hand() { return at(ETarget::AtHand); }

    /// Lets the workers of all decouplers run, and leaves data waiting in them. Returns whether they do.
    bool startDecouplers();

    /// Whether the node at hand is the first to go when its scene is cleared. The order is that of the scene's table,
    /// and differs from world to world.
    bool isHandFirst();

    /// What the hook does: once, at its first call.
    void setHandler(std::function<void()> handler) { m_handler = std::move(handler); }
    bool hasFired() const { return m_hasFired; }

    /// The hook that is meant, from now on: that of \a object, or of any. \a first is done before the handler runs.
    using First = std::function<void(const void* object)>;
    void arm(EHook hook, const void* object = nullptr, First first = {});
    /// Runs the handler, if it has not run yet: for what is no hook.
    void fire();

    /// Makes the connection from \a place's feeder to its node.
    static Plugin::Halvex::CNodeConnection* connectPlace(const SPlace& place);
    /// Adds a node that \a feeder, of \a place's scene, feeds.
    static CWorldModel& addBehind(const SPlace& place, CNodeBase& feeder);
    /// Sends a new number through \a place, if it is still there.
    void feed(const SPlace& place);
    /// Hands \a data to \a place's decoupler, which passes it on as soon as it can.
    static void feedDecoupler(const SPlace& place, CNodeDataPtr data);

private:
    void onHook(EHook hook, const void* object) override;
    void addScene(SPlace& place);

    std::map<ETarget, SPlace> m_places;
    std::function<void()> m_handler;
    EHook m_hook = EHook::NodeCreated;
    const void* m_object = nullptr;
    First m_first;
    bool m_isArmed = false;
    bool m_hasFired = false;
};
