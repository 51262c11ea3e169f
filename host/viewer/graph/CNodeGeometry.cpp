// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CNodeGeometry.h"

#include "host/viewer/graph/SNodeLook.h"

#include <QApplication>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// All on a grid of 8, so that nodes beside each other have their ports at one height.
constexpr double width = 208;
constexpr double padding = 12;
constexpr double headHeight = 48;
constexpr double rowHeight = 24;
constexpr double figureHeight = 16;
constexpr double messageHeight = 24;

int rowsOf(const SNodeLook& look)
{
    return int(std::max(look.inputs.size(), look.outputs.size()));
}

double figuresHeight(const SNodeLook& look)
{
    const std::size_t rows = (look.figures.size() + 1) / 2;
    return rows == 0 ? 0 : double(rows) * figureHeight + 8;
}

} // namespace

CNodeGeometry::CNodeGeometry(const SNodeLook& look)
    : m_look(look)
{
}

QFont CNodeGeometry::captionFont()
{
    QFont font = QApplication::font();
    font.setPixelSize(14);
    font.setBold(true);
    return font;
}

QFont CNodeGeometry::smallFont()
{
    QFont font = QApplication::font();
    font.setPixelSize(11);
    return font;
}

QFont CNodeGeometry::briefFont()
{
    QFont font = smallFont();
    font.setBold(true);
    return font;
}

QSizeF CNodeGeometry::size() const
{
    return {width, headHeight + rowsOf(m_look) * rowHeight + figuresHeight(m_look) +
                       (m_look.message.isEmpty() ? 0 : messageHeight) + 8};
}

QRectF CNodeGeometry::head() const
{
    return {0, 0, width, headHeight};
}

QRectF CNodeGeometry::portRow(int index) const
{
    return {padding, headHeight + 4 + index * rowHeight, width - 2 * padding, rowHeight};
}

QRectF CNodeGeometry::figure(int index) const
{
    constexpr double columnGap = 12;
    const double column = (width - 2 * padding - columnGap) / 2;
    const double top = headHeight + rowsOf(m_look) * rowHeight + 8;
    const int row = index / 2;
    return {padding + (index % 2) * (column + columnGap), top + row * figureHeight, column, figureHeight};
}

QRectF CNodeGeometry::message() const
{
    return {padding, size().height() - messageHeight - 4, width - 2 * padding, messageHeight};
}

QPointF CNodeGeometry::port(ENodePortType side, int index) const
{
    return {side == ENodePortType::In ? 0 : width, portRow(index).center().y()};
}

} // namespace Host
