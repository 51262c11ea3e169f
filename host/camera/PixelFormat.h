// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace Host {

/// The GenICam name of a pixel format code, "Mono8"; a code without a name of ours in hexadecimal, "0x010c0004".
QString pixelFormatName(quint32 code);

/// The names of ours, which a camera may have.
QStringList pixelFormatNames();

/// Bits that one pixel takes in memory.
int bitsPerPixel(quint32 code);

} // namespace Host
