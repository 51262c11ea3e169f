// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGLibError.h"

#include <QCoreApplication>

namespace Host {

QString CGLibError::text() const
{
    QString text = m_error ? QString::fromUtf8(m_error->message).simplified()
                           : QCoreApplication::translate("Host::CGLibError", "no answer");
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

} // namespace Host
