// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

/// Begins the identifiers that this process makes from the start. Each input does so first, for it must do the same
/// thing whenever it is run.
void restartIds();
