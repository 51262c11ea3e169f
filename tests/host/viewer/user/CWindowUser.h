// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CFakeGigECamera.h"
#include "host/viewer/window/CScenePage.h"
#include "window/WindowFixture.h"

#include <QHash>

#include <random>

/**
 * A person who does whatever comes to mind with the window of the viewer, while cameras stream into its graphs: one of
 * them over the network, whose cable is pulled now and then.
 *
 * \code
 * CWindowUser user(freshSeed());
 * QVERIFY(user.plugCameraIn());
 * user.act();
 * QCOMPARE(user.wrong(), QString());
 * \endcode
 */
class CWindowUser
{
public:
    explicit CWindowUser(unsigned int seed);

    /// Starts the camera of the network. False if it cannot be.
    bool plugCameraIn();

    /// Returns what was done, in a word.
    const char* act();

    /// What is not as it should be between two steps; empty if all is.
    QString wrong();

    /// Undoes all of the shown scene and does it again, twice. Returns what differs then; empty if nothing does.
    QString undoAndRedoAll();

private:
    std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }
    Host::CViewerWindow& window() const { return *m_test.window; }
    Host::CScenePage* page() const;
    void trigger(const char* action) const;

    bool answer();
    const char* beginAnew();
    const char* edit();
    const char* useFiles();
    const char* useScenes();
    const char* useCameras();
    const char* pullCable();
    const char* useImages();
    const char* useWindow();
    void rememberFirstDocument();

    SWindow m_test;
    CFakeGigECamera m_camera;
    bool m_isPluggedIn = false;
    std::mt19937 m_random;
    QHash<const QObject*, QByteArray> m_firstDocuments; // of the scenes, before the first step that can be undone
    QObject m_watcher;                                  // last: it goes first, and hears of nothing then
};
