// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLabel>

namespace Host {

/// A line of text that asks for no width: what does not fit is cut with "…", and the tool tip shows all of it. It asks
/// for its whole width where there is room. Threads: the window's.
class CElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit CElidedLabel(QWidget* parent = nullptr);

    /// Also what the tool tip and a screen reader tell.
    void setLine(const QString& text);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Host
