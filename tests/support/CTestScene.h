// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/COverwritten.h"
#include "support/SceneConsistency.h"

#include <QTest>

#include <algorithm>
#include <memory>

/// A scene that fails the test if it is not sound when it goes, together with all others of its kind. Overwritten with
/// ones: its tables have no end then.
class CTestScene : public Plugin::Halvex::CNodeScene, public COverwritten<0xff>
{
public:
    using CNodeScene::CNodeScene;
    ~CTestScene() override
    {
        if (!m_endsInside)
            QCOMPARE(inconsistencyOf(s_world), QString());
    }
    Q_DISABLE_COPY(CTestScene)

    /// Destroys \a scene in the middle of one of its operations, for a handler that does so: nothing can be proved
    /// then.
    static void endInside(std::unique_ptr<CTestScene>& scene)
    {
        scene->m_endsInside = true;
        scene.reset();
    }

private:
    class CMembership
    {
    public:
        explicit CMembership(const CNodeScene* scene)
            : m_scene(scene)
        {
            s_world.push_back(scene);
        }
        ~CMembership() { s_world.erase(std::find(s_world.begin(), s_world.end(), m_scene)); }
        Q_DISABLE_COPY(CMembership)

    private:
        const CNodeScene* m_scene;
    };

    static inline SceneWorld s_world;
    const CMembership m_membership{this};
    bool m_endsInside = false;
};
