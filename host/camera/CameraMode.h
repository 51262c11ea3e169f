// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

struct _ArvCamera;

namespace Host {

/// Whether a feature that may be Off or On is On, such as TriggerMode. Asks the camera. False if it has none of that
/// name or does not answer.
bool isOn(_ArvCamera* camera, const char* mode);

/// Whether it sends no frame before somebody triggers it.
bool waitsForTrigger(_ArvCamera* camera);

} // namespace Host
