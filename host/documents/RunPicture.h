// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/documents/SPicture.h"

#include <QByteArray>
#include <QString>

namespace Host {

/// How the graphs of a run are drawn, with rates and drops, a frame for each camera if there are several. \a report:
/// what `run --json` writes. What is wrong with it goes to \a error, in words behind "cannot read '<file>': ".
SPicture runPicture(const QByteArray& report, QString* error);

} // namespace Host
