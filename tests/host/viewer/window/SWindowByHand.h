// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CHand.h"
#include "WindowFixture.h"

#include <QAction>
#include <QTest>

/// A window on an X server, and a hand for it. Recordings go into the fixture's folder.
struct SWindowByHand : SWindow
{
    SWindowByHand()
    {
        settings.setRecordFolder(folder.path());
        makeWindow();
        window->move(0, 0);
        QVERIFY(hand.giveFocus(*window));
    }

    QAction* action(const char* name) const
    {
        auto* const found = window->findChild<QAction*>(QLatin1String(name));
        if (!found)
            qFatal("no action %s", name);
        return found;
    }

    CHand hand;
};

/// Whether a person sees it: a dock behind another one is visible for Qt, but lies outside the window.
inline bool isSeen(const QWidget& widget)
{
    const QWidget* const window = widget.window();
    return widget.isVisible() && window->rect().intersects({widget.mapTo(window, {0, 0}), widget.size()});
}
