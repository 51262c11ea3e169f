// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QWidget>

namespace Host {

class CGraphView;

/// The whole drawing in a corner of its view, with a frame around what the view shows. A click or a drag goes there.
class CGraphOverview : public QWidget
{
    Q_OBJECT

public:
    explicit CGraphOverview(CGraphView& view);

    QSize sizeHint() const override { return {184, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QTransform fromScene() const;
    void goTo(QPoint point);
    void retranslate();

    CGraphView& m_view;
};

} // namespace Host
