// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CGrabResultPtr.h>

#include <QImage>
#include <QSize>

namespace Host {

/// A small picture of \a frame that fits into \a most; null for null and for a pixel format that cannot be shown. In
/// any thread.
QImage previewOf(const Veltra::CGrabResultPtr& frame, const QSize& most);

} // namespace Host
