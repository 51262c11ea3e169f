// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/ImageColors.h"
#include "host/viewer/images/LineIcon.h"
#include "host/viewer/images/RenderImage.h"

#include <QAction>
#include <QList>
#include <QMenu>
#include <QObject>

#include <array>
#include <memory>

namespace Host {

/**
 * The actions of an image dock, with their texts, shortcuts, icons and menus. What they do the dock connects.
 *
 * Shortcuts work while the focus is in the widget that the actions were added to: each dock has its own.
 *
 * Ownership: the dock. Threads: the window's.
 */
class CImageActions : public QObject
{
    Q_OBJECT

public:
    explicit CImageActions(QObject* parent = nullptr);

    /// What can be chosen, without the menus: for a command palette.
    QList<QAction*> actions() const;

    /// What stands in a tool bar; null stands for a separator.
    QList<QAction*> toolBarActions() const;

    /// After a change of the language.
    void retranslate();

    QAction* const fit;
    QAction* const oneToOne;
    QAction* const zoomIn;
    QAction* const zoomOut;
    QAction* const rectangle;
    const std::array<QAction*, 4> palettes; ///< In the order of EPalette.
    const std::array<QAction*, 3> ranges;   ///< In the order of ERangeMode.
    QAction* const histogram;
    QAction* const logarithmic;
    QAction* const saveImage;
    QAction* const saveView;
    QAction* const copy;
    const std::array<QAction*, 3> records; ///< In the order of CRecorder::EKind.
    QAction* const recordFolder;
    QAction* const stop;

private:
    QAction* make(const char* name, const QKeySequence& key = {});
    QAction* makeCheckable(const char* name, const QKeySequence& key = {});
    void setIcons();

    std::unique_ptr<QMenu> m_colorMenu = std::make_unique<QMenu>();
    std::unique_ptr<QMenu> m_rangeMenu = std::make_unique<QMenu>();
    std::unique_ptr<QMenu> m_saveMenu = std::make_unique<QMenu>();
    std::unique_ptr<QMenu> m_recordMenu = std::make_unique<QMenu>();

public:
    /// Shown in place of stop while nothing is recorded.
    QAction* recordMenu() const { return m_recordMenu->menuAction(); }
};

} // namespace Host
