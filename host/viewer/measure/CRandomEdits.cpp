// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/measure/CRandomEdits.h"

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/PortFit.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"

#ifdef HALVEX_HAS_MALLINFO2
#include <malloc.h>
#endif

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr int interval = 50; // milliseconds
constexpr int editsOfRound = 100;

#ifdef HALVEX_HAS_MALLINFO2
constexpr bool isHeapKnown = true;
qint64 heapInUse()
{
    const auto heap = mallinfo2();
    return qint64(heap.uordblks) + qint64(heap.hblkhd);
}
#else
constexpr bool isHeapKnown = false;
qint64 heapInUse()
{
    return 0;
}
#endif

} // namespace

CRandomEdits::CRandomEdits(CSceneTabs& tabs, unsigned int seed)
    : m_tabs(tabs)
    , m_random(seed)
{
    connect(&m_timer, &QTimer::timeout, this, &CRandomEdits::edit);
    m_timer.start(interval);
}

bool CRandomEdits::knowsHeap()
{
    return isHeapKnown;
}

void CRandomEdits::edit()
{
    const CScenePage* const page = m_tabs.current();
    if (!page || !page->scene())
        return;
    if (m_takesBack) {
        takeBack(page->editor().undoStack());
        return;
    }
    act(*page);
    m_takesBack = ++m_edits % editsOfRound == 0;
}

void CRandomEdits::takeBack(QUndoStack& steps)
{
    steps.undo();
    m_takesBack = steps.canUndo();
    if (m_takesBack)
        return;
    steps.clear();
    m_heap.push_back(heapInUse());
}

void CRandomEdits::act(const CScenePage& page)
{
    static const QStringList models{"Blur", "Edges", "Threshold", "Histogram", "To Image", "DecouplerVGR"};
    CGraphEditor& editor = page.editor();
    auto any = page.scene()->nodes().begin();
    std::advance(any, std::ptrdiff_t(m_random() % page.scene()->nodes().size()));
    const Core::CId node = any->first;
    switch (m_random() % 8) {
    case 0:
    case 1:
        page.view().place(models[int(m_random() % unsigned(models.size()))]);
        break;
    case 2:
    case 3: {
        const std::vector<SPort> fitting = fittingPorts(*page.scene(), {node, ENodePortType::In, 0});
        if (!fitting.empty())
            editor.connectPorts(fitting[m_random() % fitting.size()], {node, ENodePortType::In, 0});
        break;
    }
    case 4:
        editor.duplicate({node}, {48, 48});
        break;
    case 5:
        editor.remove({node}, {});
        break;
    case 6:
        editor.undoStack().undo();
        break;
    default:
        editor.undoStack().redo();
    }
}

} // namespace Host
