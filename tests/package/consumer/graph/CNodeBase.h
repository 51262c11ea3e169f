// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Consumer {

/// The consumer's own class in a file of a name that the library has too.
class CNodeBase
{
};

} // namespace Consumer
