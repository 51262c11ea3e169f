// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QString>

namespace Host {

/**
 * The scene document \a document, written so that one scene is always the same text, whichever process saves it:
 * nodes in the order of the flow, those at one depth by their ids, and connections by the nodes that they join.
 *
 * A unique node is made anew in each process, under a new id. Here it gets one that is made of its unique name.
 */
QByteArray orderedScene(const QByteArray& document);

} // namespace Host
