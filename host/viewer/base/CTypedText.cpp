// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CTypedText.h"

#include <QAbstractSpinBox>
#include <QLineEdit>

namespace Host {

void CTypedText::watch(QLineEdit& line) const
{
    connect(&line, &QLineEdit::textEdited, this, &CTypedText::onTyped);
    connect(&line, &QLineEdit::editingFinished, this, &CTypedText::onEditingFinished);
}

void CTypedText::watch(QAbstractSpinBox& box) const
{
    connect(box.findChild<QLineEdit*>(), &QLineEdit::textEdited, this, &CTypedText::onTyped);
    connect(&box, &QAbstractSpinBox::editingFinished, this, &CTypedText::onEditingFinished);
}

void CTypedText::onEditingFinished()
{
    if (!m_isThere)
        return;
    m_isThere = false;
    Q_EMIT ended();
}

} // namespace Host
