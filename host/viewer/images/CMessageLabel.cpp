// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CMessageLabel.h"

namespace Host {

namespace {

constexpr QChar invisibleSpace(0x200b); // a line may be broken there

// Behind what separates the parts of a file's name.
QString breakable(const QString& text)
{
    QString result;
    for (const QChar letter : text) {
        result += letter;
        if (QStringLiteral("/\\_-.").contains(letter))
            result += invisibleSpace;
    }
    return result;
}

} // namespace

CMessageLabel::CMessageLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setWordWrap(true);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    hide();
}

void CMessageLabel::setMessage(const QString& message)
{
    if (message != m_message) {
        m_message = message;
        setText(breakable(message));
    }
    setVisible(!message.isEmpty());
}

} // namespace Host
