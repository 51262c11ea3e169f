// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace Host {

/// An import document, docs/import-document.md. A plain value.
struct SChain
{
    QString name;        ///< For messages: the file.
    QByteArray source;   ///< As it was read; it need not be sound.
    QByteArray text;     ///< As the node service takes it.
    QJsonArray elements; ///< What the text says; none if it is no array.
};

/// \a chain with the run's \a cameras wherever it says anyCamera in "unique_sources", but for those that are named
/// beside it. A chain without that stays as it is, byte for byte.
SChain withCameras(SChain chain, const QStringList& cameras);

/// The chain that \a text is; messages call it \a name.
SChain chainOf(const QString& name, const QByteArray& text);

/// The chain in \a file, at most 64 MiB. On failure the reason, which names the file, in \a error. What is wrong with
/// the chain itself is left to CDocumentCheck.
SChain readChain(const QString& file, QString* error);

/**
 * The chain of a run that is given none, for these cameras:
 *
 * \verbatim
 * camera ─┬─ image ──────────────────────────────────► PNG files "frames"
 *         └─ decoupler ── image ─┬─ blur ── threshold ─┬─► PNG files "threshold"
 *                                │                     └─ edges ─► PNG files "edges"
 *                                └─ histogram ──────────────► PNG files "histogram"
 * \endverbatim
 *
 * The first branch gets every frame; the decoupler lets 25 per second through to the preview behind it.
 */
SChain defaultChain(const QStringList& cameras);

/// The chains in \a files for these cameras, or the default one if there are none. On failure the reason in \a error.
std::vector<SChain> readChains(const QStringList& files, const QStringList& cameras, QString* error);

/// Why these chains cannot be in one graph, in one line: two have sinks of one name, whose files would mix. Empty if
/// they can.
QString findClash(const std::vector<SChain>& chains);

} // namespace Host
