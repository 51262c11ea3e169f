// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/RenderImage.h"

#include <QWidget>

#include <array>
#include <vector>

class QLabel;

namespace Host {

class CElidedLabel;

/// What there is to tell of the values in a rectangle: its place and size, and a row for each channel with mean,
/// minimum, maximum and deviation, in the camera's own depth. Hidden while there is none. Threads: the window's.
class CStatisticsTable : public QWidget
{
    Q_OBJECT

public:
    explicit CStatisticsTable(QWidget* parent = nullptr);

    void showImage(const SRenderedImage& image);

    /// As it is read, "100 × 80 at 5, 6" first, then the rows; empty while there is nothing.
    QString text() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    static constexpr std::size_t columns = 5; // the channel's name, and four numbers
    using Row = std::array<QLabel*, columns>;

    void retranslate();
    QString channelName(std::size_t channel, std::size_t channels) const;
    void fillRow(const Row& row, const QString& name, const SChannelStatistics& values);

    CElidedLabel* m_place;
    Row m_head{};
    std::vector<Row> m_rows;
    QRect m_part;
    std::vector<SChannelStatistics> m_statistics;
};

} // namespace Host
