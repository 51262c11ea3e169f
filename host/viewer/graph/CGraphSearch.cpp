// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphSearch.h"

#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/NodeWalk.h"

#include <Halvex/graph/CNodeBase.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace Host {

using namespace Plugin::Halvex;

namespace {

bool matches(const CNodeItem& item, const QString& text)
{
    CNodeBase* const node = item.node();
    return item.look().caption.contains(text, Qt::CaseInsensitive) ||
           (node && node->nodeDataModel()->name().contains(text, Qt::CaseInsensitive));
}

} // namespace

CGraphSearch::CGraphSearch(CGraphView& view)
    : QFrame(&view)
    , m_view(view)
    , m_text(new QLineEdit(this))
    , m_place(new QLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("graphSearch"));
    m_text->setClearButtonEnabled(true);
    m_text->setMinimumWidth(200);
    m_text->installEventFilter(this);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 8, 8, 8);
    row->setSpacing(8);
    row->addWidget(m_text);
    row->addWidget(m_place);
    m_place->setMinimumWidth(m_place->fontMetrics().horizontalAdvance(QStringLiteral("000 / 000")));
    m_place->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(m_text, &QLineEdit::textChanged, this, &CGraphSearch::find);
    retranslate();
}

void CGraphSearch::open()
{
    show();
    raise();
    m_text->setFocus();
    m_text->selectAll();
    find(m_text->text());
}

bool CGraphSearch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        step(1);
        return true;
    case Qt::Key_Up:
        step(-1);
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}

void CGraphSearch::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

void CGraphSearch::find(const QString& text)
{
    m_found.clear();
    m_current = 0;
    CGraphCanvas& canvas = m_view.canvas();
    canvas.sync();
    Core::CId node = nodeBeside(canvas, Core::CId(), true);
    while (!text.isEmpty() && node != Core::CId()) {
        if (matches(*canvas.nodeItem(node), text))
            m_found.push_back(node);
        node = nodeBeside(canvas, node, true);
    }
    step(0);
}

void CGraphSearch::step(int by)
{
    const int count = found();
    if (count > 0) {
        m_current = (m_current + by + count) % count;
        m_view.goTo(m_found[std::size_t(m_current)]);
    }
    showPlace();
}

void CGraphSearch::showPlace()
{
    if (m_text->text().isEmpty())
        m_place->clear();
    else if (m_found.empty())
        m_place->setText(tr("none"));
    else
        m_place->setText(tr("%1 / %2").arg(m_current + 1).arg(found()));
}

void CGraphSearch::close()
{
    hide();
    m_view.setFocus();
}

void CGraphSearch::retranslate()
{
    m_text->setPlaceholderText(tr("Find a node"));
    m_text->setAccessibleName(tr("Find a node"));
    showPlace();
}

} // namespace Host
