// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>

class QAbstractSpinBox;
class QLineEdit;

namespace Host {

/**
 * What a person types into a field and has not ended yet: it stays, whatever is to be shown there meanwhile.
 *
 * \code
 * m_typed.watch(*box); // without keyboard tracking
 * connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int value) {
 *     m_typed.clear();
 *     announce(value);
 * });
 * connect(&m_typed, &CTypedText::ended, this, [this] { show(m_value); }); // it said nothing new
 * ...
 * if (!m_typed.isThere())
 *     show(m_value);
 * \endcode
 *
 * Threads: the window's. It watches one field, which it does not own.
 */
class CTypedText : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void watch(QLineEdit& line) const;
    void watch(QAbstractSpinBox& box) const;

    bool isThere() const { return m_isThere; }

    /// It has been taken.
    void clear() { m_isThere = false; }

Q_SIGNALS:
    /// The person has ended what nobody has taken: by Return, or by going elsewhere. It is not there any more.
    void ended();

private:
    void onTyped() { m_isThere = true; }
    void onEditingFinished();

    bool m_isThere = false;
};

} // namespace Host
