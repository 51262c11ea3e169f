// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QFrame>

#include <vector>

class QLabel;
class QLineEdit;

namespace Host {

class CGraphView;

/// Finds nodes by what stands on them or by the names of their models. Typing goes to the first one, Enter and Down to
/// the next, Up to the one before, Escape closes.
class CGraphSearch : public QFrame
{
    Q_OBJECT

public:
    explicit CGraphSearch(CGraphView& view);

    void open();
    int found() const { return int(m_found.size()); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void find(const QString& text);
    void step(int by);
    void showPlace();
    void close();
    void retranslate();

    CGraphView& m_view;
    QLineEdit* m_text = nullptr;
    QLabel* m_place = nullptr;
    std::vector<Core::CId> m_found; // from left to right
    int m_current = 0;
};

} // namespace Host
