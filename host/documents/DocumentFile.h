// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SDocumentGraph.h"
#include "host/check/SFault.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace Host {

class CDocumentCheck;

/// A document that was read from a file. A plain value.
struct SDocumentFile
{
    QString name; ///< As messages have it.
    QByteArray text;
    SDocumentGraph graph;
    std::vector<SFault> faults; ///< All that `check` tells.
};

/// Reads the chain or scene in \a file, "-" for standard input. On failure the reason, which names the file, in
/// \a error.
SDocumentFile readDocumentFile(const QString& file, CDocumentCheck& check, QString* error);

/// Why the document cannot be taken for a graph, in lines as `check` writes them, below one that says how many: it is
/// no JSON, has another shape, or its names leave open what is connected. Empty if it can be: what a run refuses
/// besides may well be looked at.
QString unreadableText(const SDocumentFile& document);

/// The errors among \a faults, found in the document \a name, in the same form; empty if there are none. \a what: what
/// is not done, with a place for the name, "cannot convert '%1'".
QString faultsText(const QString& what, const QString& name, const std::vector<SFault>& faults);

} // namespace Host
