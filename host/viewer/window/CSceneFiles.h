// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/GraphPart.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <utility>

namespace Plugin::Halvex {
class CNodeBase;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class CPositionsFile;
class CScenePage;
class IHostModels;

/**
 * Reads and writes the graphs of scenes: scene documents, and chains.
 *
 * \code
 * const QString error = files.open(*page, "scene.json");
 * if (!error.isEmpty())
 *     faults->checkText(files.takeRefusedText()); // the errors as a list
 * \endcode
 *
 * What the checker finds errors in is not read, and changes nothing; a graph that is only not complete is read.
 * Functions return what is wrong; empty on success.
 *
 * Threads: the main thread.
 */
class CSceneFiles
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSceneFiles)

public:
    /// All outlive this object.
    CSceneFiles(Plugin::Halvex::INodeService& service, const IHostModels& models, const CPositionsFile& positions);

    /// Replaces all of the scene but its camera by the document. It is no step that can be undone. If that fails, what
    /// was there is put back; if that fails, too, the page is modified and has no file.
    QString open(CScenePage& page, const QString& file);

    QString save(CScenePage& page, const QString& file) const;

    /// Adds the chain to the scene, as one step.
    QString importChain(CScenePage& page, const QString& file);

    /// The document that was refused last, once; empty if none was.
    QByteArray takeRefusedText() { return std::exchange(m_refusedText, {}); }

private:
    static QString replace(CScenePage& page, Plugin::Halvex::CNodeBase& camera, const NodePositions& positions,
                           const QJsonObject& document, const QString& file);

    Plugin::Halvex::INodeService& m_service;
    const IHostModels& m_models;
    const CPositionsFile& m_positions;
    QByteArray m_refusedText;
};

} // namespace Host
