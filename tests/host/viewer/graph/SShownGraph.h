// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "edit/SEditedScene.h"
#include "graph/SGraphHand.h"

/// A scene with a camera, and the view of it.
struct SShownGraph
{
    SShownGraph()
    {
        view = std::make_unique<Host::CGraphView>(*edited.editor);
        view->resize(1000, 700);
        view->show();
        view->activateWindow();
        view->setFocus();
        // Shortcuts work in the active window.
        if (!QTest::qWaitForWindowActive(view.get()))
            QFAIL("the window does not become active");
    }

    Host::CGraphCanvas& canvas() const { return view->canvas(); }
    Host::CNodeItem* item(const Core::CId& id) const { return canvas().nodeItem(id); }
    SGraphHand hand() const { return {*view}; }

    template <typename Place>
    QPoint at(const Place& place) const
    {
        return hand().at(place);
    }
    void press(QPoint place) const { hand().press(place); }
    void move(QPoint place) const { hand().move(place); }
    void release(QPoint place) const { hand().release(place); }
    void drag(QPoint from, QPoint to) const { hand().drag(from, to); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const { hand().key(key, modifiers); }
    QString mismatch() const { return mismatchOf(*view); }

    SEditedScene edited;
    std::unique_ptr<Host::CGraphView> view;
};
