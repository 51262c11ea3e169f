// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

/// Whether Q_ASSERT asserts in this build, in the library as in its tests.
#if defined(QT_NO_DEBUG) && !defined(QT_FORCE_ASSERTS)
constexpr bool hasAssertions = false;
#else
constexpr bool hasAssertions = true;
#endif
