// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>
#include <QString>

namespace Plugin::Halvex {

class CNodeBase;
class CNodeScene;

/**
 * Turns import documents into the one scene document that adds them to a scene; the format is in
 * docs/import-document.md. Exported for its tests.
 *
 * \code
 * CSceneImport import(scene);
 * import.addDocument(chain);
 * scene.loadFromMemory(QJsonDocument(import.sceneDocument()).toJson(QJsonDocument::Compact));
 * \endcode
 *
 * The scene's unique names are read once, in the constructor; nothing is written to the scene. The work is linear in
 * the scene and the documents.
 *
 * Threads: the scene's.
 */
class HALVEX_EXPORT CSceneImport
{
public:
    explicit CSceneImport(CNodeScene& scene);

    /// Adds a document, which may use the labels of those before it. Text that is no JSON array adds nothing.
    void addDocument(const QString& text);

    /// {"nodes", "connections"} of all documents so far.
    QJsonObject sceneDocument() const;

private:
    /// A node of the scene whose model has a unique name.
    struct SSource
    {
        QPointer<CNodeBase> node;
        QJsonObject json; ///< The node's entry; empty until it is asked for.
    };

    void addNodes(const QJsonObject& element);
    void addSource(const QString& name);
    void addConnections(const QJsonObject& element);
    void connectNodes(const QString& inId, int inIndex, const QString& outId, int outIndex);
    QString makeId(const QString& label);
    QString idOf(const QString& label);
    QString idOfConsumer(const QString& label);

    QHash<QString, SSource> m_sources; // by unique name
    QHash<QString, QString> m_ids;     // by label, as text
    QJsonArray m_nodes;
    QJsonArray m_connections;
};

} // namespace Plugin::Halvex
