// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CLoopBrake.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <algorithm>

namespace Host {

namespace {

// A decoupler cannot be stopped, but its next tick can be some weeks away.
constexpr double heldFramesPerSecond = 1e-9;
constexpr double releasedFramesPerSecond = 1000.0;

} // namespace

void CLoopBrake::hold()
{
    m_isHolding = true;
    for (SLooped& each : m_decouplers) {
        each.framesPerSecond = each.model->framesPerSecond();
        each.model->setFramesPerSecond(heldFramesPerSecond);
    }
}

bool CLoopBrake::releaseNext()
{
    while (m_isHolding && m_next < m_decouplers.size()) {
        Decoupler& decoupler = *m_decouplers[m_next++].model;
        if (decoupler.statistics().pending == 0)
            continue;
        m_released = &decoupler;
        decoupler.setFramesPerSecond(releasedFramesPerSecond);
        return true;
    }
    return false;
}

void CLoopBrake::noteDelivery(const Decoupler& decoupler)
{
    if (m_released != &decoupler)
        return;
    m_released = nullptr;
    find(decoupler)->model->setFramesPerSecond(heldFramesPerSecond);
}

bool CLoopBrake::isOnLoop(const Decoupler& decoupler) const
{
    return find(decoupler) != nullptr;
}

bool CLoopBrake::isHolding(const Decoupler& decoupler) const
{
    return m_isHolding && m_released != &decoupler && isOnLoop(decoupler);
}

double CLoopBrake::framesPerSecond(const Decoupler& decoupler) const
{
    const SLooped* const looped = find(decoupler);
    return looped && m_isHolding ? looped->framesPerSecond : decoupler.framesPerSecond();
}

const CLoopBrake::SLooped* CLoopBrake::find(const Decoupler& decoupler) const
{
    const auto found = std::find_if(m_decouplers.begin(), m_decouplers.end(),
                                    [&](const SLooped& each) { return each.model == &decoupler; });
    return found == m_decouplers.end() ? nullptr : &*found;
}

} // namespace Host
