// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <rapidjson/error/error.h>

class QByteArray;

namespace Host {

class CFaultList;
struct SJsonNode;

/// What \a code, which the parser reports at \a offset, is about: what stands there and what belongs there. \a open is
/// the innermost array or object that is not closed, null if there is none.
QString syntaxErrorText(const QByteArray& text, rapidjson::ParseErrorCode code, int offset, const SJsonNode* open,
                        const CFaultList& faults);

} // namespace Host
