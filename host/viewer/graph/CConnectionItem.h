// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/SPort.h"

#include <QGraphicsItem>
#include <QString>

namespace Plugin::Halvex {
class CNodeConnection;
}

namespace Host {

class CNodeItem;
struct SGraphColors;

/// The way that a connection is drawn from an output to an input.
QPainterPath connectionPath(QPointF from, QPointF to);

/**
 * A connection as it is drawn: a line with the type that it carries, the conversion on its way and the rate of its
 * output.
 *
 * Ownership: the canvas, which removes it before the nodes at its ends. The connection itself is not referred to.
 */
class CConnectionItem : public QGraphicsItem
{
public:
    enum
    {
        Type = UserType + 2
    };

    /// \a connection has both ends, which \a from and \a to are the items of.
    CConnectionItem(const Plugin::Halvex::CNodeConnection& connection, CNodeItem& from, CNodeItem& to);
    ~CConnectionItem() override;

    Core::CId id() const { return m_id; }
    CNodeItem& from() const { return m_from; }
    CNodeItem& to() const { return m_to; }
    QPointF middle() const;
    QString label() const;

    /// Whether it leads as \a connection does, from the same nodes' items.
    bool shows(const Plugin::Halvex::CNodeConnection& connection) const;

    /// Frames per second that come out of its output.
    double rate() const;

    /// Follows its ends.
    void adjust();

    /// Repaints if the rate reads differently.
    void refresh();

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QString rateText(int decimals) const;
    void paintRate(QPainter& painter, const SGraphColors& colors, double detail) const;
    QRectF labelRect() const;

    const Core::CId m_id;
    CNodeItem& m_from;
    CNodeItem& m_to;
    const int m_outPort;
    const int m_inPort;
    const QString m_type;
    QString m_typeId;
    QString m_rate;
    QPainterPath m_path;
};

} // namespace Host
