// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QToolButton;

namespace Host {

class CElidedLabel;
class CMessageLabel;
class CRecorder;

/**
 * A line about the recording of a view: what was received, written and dropped, while it lasts and after it, until
 * somebody closes the line. An error stands there, too. Hidden before the first recording.
 *
 * It is drawn again at most every 100 ms, by a timer that runs only while something changes.
 *
 * Threads: the window's. \a recorder outlives it.
 */
class CRecordBar : public QWidget
{
    Q_OBJECT

public:
    explicit CRecordBar(CRecorder& recorder, QWidget* parent = nullptr);

    QString stateMessage() const; ///< "Recording"
    QString countsText() const;   ///< "12 received · 12 written · 0 dropped"
    QString detailText() const;   ///< The folder, or what is wrong.

protected:
    void changeEvent(QEvent* event) override;

private:
    void takeColors();
    void onChanged();
    void refresh();
    void retranslate();
    QString stateText() const;

    CRecorder& m_recorder;
    QLabel* m_dot;
    CMessageLabel* m_state;
    CElidedLabel* m_counts;
    CMessageLabel* m_detail; // the error, or the folder
    QToolButton* m_close;
    QTimer m_pace{this};
    bool m_hasChanged = false;
};

} // namespace Host
