// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>
#include <QTimer>

#include <random>
#include <vector>

class QUndoStack;

namespace Host {

class CScenePage;
class CSceneTabs;

/**
 * Edits of the shown scene by random, twenty a second: nodes come, are connected, duplicated and go, with undo and
 * redo. After a hundred of them all is undone, as quickly, step by step, and the history forgotten, so that what is
 * there then is what was there before; the heap that is in use is noted then.
 *
 * Threads: the main thread. \a tabs outlives this object.
 */
class CRandomEdits : public QObject
{
    Q_OBJECT

public:
    CRandomEdits(CSceneTabs& tabs, unsigned int seed);

    int edits() const { return m_edits; }

    /// Whether the C library tells how much of the heap is in use.
    static bool knowsHeap();

    /// Bytes, each time that all was undone; 0 where it is not known.
    const std::vector<qint64>& heap() const { return m_heap; }

private:
    void edit();
    void act(const CScenePage& page);
    void takeBack(QUndoStack& steps);

    CSceneTabs& m_tabs;
    std::mt19937 m_random;
    QTimer m_timer;
    int m_edits = 0;
    bool m_takesBack = false;
    std::vector<qint64> m_heap;
};

} // namespace Host
