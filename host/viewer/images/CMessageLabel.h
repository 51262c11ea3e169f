// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLabel>

namespace Host {

/// A message in as many lines as it needs, broken within long file names, too, so that it asks for no width. Hidden
/// while it is empty. Threads: the window's.
class CMessageLabel : public QLabel
{
    Q_OBJECT

public:
    explicit CMessageLabel(QWidget* parent = nullptr);

    void setMessage(const QString& message);
    QString message() const { return m_message; }

private:
    QString m_message;
};

} // namespace Host
