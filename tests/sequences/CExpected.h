// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/AWorld.h"
#include "sequences/CExpectedScenes.h"
#include "sequences/SState.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <vector>

namespace Sequences {

/**
 * What should be there: a service with its scenes.
 *
 * It has the service's queue of turns once more, with the removal of a scene and the choice of the next active one as
 * turns of their own: what an operation in a handler finds depends on what has had its turn, so it could not be told
 * what to expect without it. Nothing else is the service's way of doing it; nodes are found by walking lists.
 */
class CExpected : public AWorld
{
public:
    /// \a actual: what the actual graph has just done in the same step.
    CExpected(CEventLog& log, const CEventLog& actual);

    SState state() const;

protected:
    int perform(const SOperation& operation) override;

private:
    int performOnService(const SOperation& operation);
    int performOnScene(const SOperation& operation);
    bool isPossible(const SOperation& operation) const;

    int addSource(int number, int info);
    int addModel(int number, EKind kind);
    int addUniqueSink(int number);
    int addAgain(int node);
    int removeSceneOfNode(int node, bool byId);
    int connectModels(int in, int inPort, int out, int outPort);
    int destroyScene(int scene);

    void takeTurn(const std::function<void()>& turn);
    void tell(EEvent event, int scene);
    void activate(int scene);
    void removeScene(int scene);
    void endScene(int scene);
    void endHostsScene(int scene);
    void forgetScene(int scene);
    void tellRemoved();

    int placeInto(int scene, int number, EKind kind);
    bool isOwned(int scene) const;
    bool isFoundByModel(int node) const;
    int findById(int id) const;
    int removeFound(int node, bool removeLoneNodeScene);

    int importAll(const std::vector<Document>& documents);
    int nodeOfName(int scene, int name) const;

    int restoreNode(int scene, int index);
    int restoreConnection(int scene, int index);

    CExpectedScenes m_scenes;
    std::vector<int> m_order; // of the service's scenes
    std::map<int, int> m_infos;
    std::vector<Document> m_stored;
    CExpectedScenes::SSaved m_saved;
    std::set<int> m_leaving;
    std::deque<std::function<void()>> m_turns;
    bool m_isTelling = false;
    int m_active = 0;
};

} // namespace Sequences
