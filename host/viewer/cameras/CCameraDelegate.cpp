// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraDelegate.h"

#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraList.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace Host {

namespace {

constexpr QSize pictureSize(8 * gridStep, 6 * gridStep);
constexpr int mostLines = 3;

QColor stateColor(CCameraList::EState state, const QPalette& palette)
{
    switch (state) {
    case CCameraList::EState::Streaming:
        return accentColor(EAccent::Good, palette);
    case CCameraList::EState::Opening:
    case CCameraList::EState::Connected:
        return accentColor(EAccent::Active, palette);
    case CCameraList::EState::Gone:
    case CCameraList::EState::InUse:
        return accentColor(EAccent::Warning, palette);
    case CCameraList::EState::Failed:
        return accentColor(EAccent::Error, palette);
    case CCameraList::EState::Free:
        break;
    }
    return palette.color(QPalette::Text);
}

void drawPicture(QPainter* painter, const QRect& place, const QImage& picture, const QPalette& palette)
{
    painter->fillRect(place, palette.color(QPalette::Window));
    if (!picture.isNull()) {
        QRect fitted({}, picture.size().scaled(place.size(), Qt::KeepAspectRatio));
        fitted.moveCenter(place.center());
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(fitted, picture);
    }
    painter->setPen(palette.color(QPalette::Mid));
    painter->drawRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace

void CCameraDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem background = option;
    const QWidget* const widget = option.widget;
    QStyle* const style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &background, painter, widget);

    painter->save();
    const QRect inner = option.rect.adjusted(gridStep, gridStep, -gridStep, -gridStep);
    const QRect picture(inner.topLeft(), pictureSize);
    drawPicture(painter, picture, index.data(Qt::DecorationRole).value<QImage>(), option.palette);

    const bool isSelected = option.state & QStyle::State_Selected;
    const QColor text = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const auto state = CCameraList::EState(index.data(CCameraList::StateRole).toInt());
    struct SLine
    {
        QString text;
        QColor color;
    };
    const SLine all[] = {
        {index.data(CCameraList::NameRole).toString(), text},
        {index.data(CCameraList::TitleRole).toString(), text},
        {index.data(CCameraList::StateTextRole).toString(), isSelected ? text : stateColor(state, option.palette)}};
    const int count = mostLines - int(all[1].text.isEmpty()); // of one that was not opened
    constexpr double detailSize = 0.88; // of the name's: a camera's maker, model and format have room in a narrow dock
    QRect line(picture.right() + gridStep, inner.top(), inner.right() - picture.right() - gridStep,
               option.fontMetrics.height());
    line.translate(0, std::max(0, (inner.height() - count * line.height()) / 2));
    for (const SLine& each : all) {
        if (each.text.isEmpty())
            continue;
        QFont font = option.font;
        const bool isName = &each == all;
        font.setBold(isName);
        if (!isName)
            font.setPointSizeF(font.pointSizeF() * detailSize);
        painter->setFont(font);
        painter->setPen(each.color);
        painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                          QFontMetrics(font).elidedText(each.text, Qt::ElideRight, line.width()));
        line.translate(0, line.height());
    }
    painter->restore();
}

QSize CCameraDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {pictureSize.width() + 20 * gridStep,
            2 * gridStep + std::max(pictureSize.height(), mostLines * option.fontMetrics.height())};
}

} // namespace Host
