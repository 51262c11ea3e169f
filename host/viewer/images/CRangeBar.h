// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/ImageColors.h"

#include <QWidget>

class QLabel;
class QSpinBox;

namespace Host {

/// Two fields for the values that are shown as black and as white, in the camera's own depth. White stays above black:
/// a value that comes too close takes the other one with it. Threads: the window's.
class CRangeBar : public QWidget
{
    Q_OBJECT

public:
    explicit CRangeBar(QWidget* parent = nullptr);

    /// Values that a camera of \a bits can have.
    void setBits(int bits);

    SValueRange range() const;
    void setRange(const SValueRange& range);

Q_SIGNALS:
    /// By hand or by setRange(). Once for each change.
    void rangeChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void onBlackChanged();
    void onWhiteChanged();

    QLabel* m_blackLabel;
    QSpinBox* m_black;
    QLabel* m_whiteLabel;
    QSpinBox* m_white;
};

} // namespace Host
