// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/base/CRateMeter.h"
#include "host/viewer/images/RenderImage.h"

#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace Host {

class CElidedLabel;
class CMessageLabel;
class CStatisticsTable;

/**
 * The lines below an image: the value under the cursor, how fast images are shown and delivered, and, while there is a
 * rectangle, the statistics of its values. A message of what was done or went wrong stands there until the next one.
 *
 * \code
 * status.setProbe(view.rendered(), view.probe());
 * status.setCounts(view.shown(), model.delivered());
 * \endcode
 *
 * Rates are told four times a second while something comes, and 0 once nothing does; then no timer runs.
 *
 * Threads: the window's.
 */
class CImageStatus : public QWidget
{
    Q_OBJECT

public:
    explicit CImageStatus(QWidget* parent = nullptr);

    void setProbe(const SRenderedImage& image, const std::optional<QPoint>& pixel);
    void setStatistics(const SRenderedImage& image);
    void setCounts(quint64 shown, quint64 delivered);
    void setMessage(const QString& message);

    /// Images per second that came in the last second.
    double deliveredRate() const { return m_deliveredRate.rate(); }

    QString probeText() const;
    QString statisticsText() const;
    QString ratesText() const;
    QString messageText() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void measure();

    CElidedLabel* m_probe;
    CStatisticsTable* m_statistics;
    CElidedLabel* m_rates;
    CMessageLabel* m_message;
    quint64 m_shown = 0;
    quint64 m_delivered = 0;
    quint64 m_measured = 0; // of m_delivered
    int m_quietTurns = 0;   // of the timer, in which nothing came
    CRateMeter m_shownRate;
    CRateMeter m_deliveredRate;
    QTimer m_timer{this};
};

} // namespace Host
