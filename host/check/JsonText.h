// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>

namespace Host {

class CFaultList;
class CJsonTree;

/**
 * Reads \a text into \a tree. False if there is no value to go on with.
 *
 * Comments, commas behind the last item, NaN and keys that an object has twice are told and passed over, so that what
 * comes behind them is looked at as well. Everything else that is no JSON ends the reading.
 */
bool readJson(const QByteArray& text, CJsonTree& tree, CFaultList& faults);

} // namespace Host
