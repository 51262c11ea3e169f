// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/ENodePortType.h>

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace Host {

struct SNodeLook;

/// Where the parts of a node are, from its top left corner: a head with caption and category, a row for each pair of
/// ports, what became of the data, and a message.
class CNodeGeometry
{
public:
    explicit CNodeGeometry(const SNodeLook& look);

    static QFont captionFont();
    static QFont smallFont();
    static QFont briefFont(); ///< Of the caption where nothing else has room.

    QSizeF size() const;
    QRectF head() const;
    QRectF portRow(int index) const;
    QRectF figure(int index) const; ///< Two in a row.
    QRectF message() const;
    QPointF port(Plugin::Halvex::ENodePortType side, int index) const;

private:
    const SNodeLook& m_look;
};

} // namespace Host
