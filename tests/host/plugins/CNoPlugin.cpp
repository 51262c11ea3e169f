// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CNoPlugin.h"

#include "CNoPlugin.moc"
