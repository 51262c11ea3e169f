// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CElidedLabel.h"

#include "host/viewer/base/ModelText.h"

#include <QPainter>

namespace Host {

CElidedLabel::CElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void CElidedLabel::setLine(const QString& text)
{
    if (text == this->text())
        return;
    setText(text);
    setToolTip(asToolTip(text));
}

QSize CElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void CElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawText(contentsRect(), int(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

} // namespace Host
