// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CImageData.h"

#include <QSharedPointer>

namespace Host {

/// The values of \a image, neither null nor empty, as a camera frame of the format "Mono8", "Mono16", "BGR8" or
/// "BGR16". It keeps the image, and copies it only where its rows do not follow each other. Threads: any.
Plugin::Halvex::CNodeDataPtr rawFrame(const QSharedPointer<const CImageData>& image);

} // namespace Host
