// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QCoreApplication>
#include <QString>

class QJsonObject;

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

/**
 * Puts a document, in which CDocumentCheck finds no error, into the scene of a camera.
 *
 * The camera's node is in the scene already. The node in the document that has the same model, whichever camera it was
 * made for, stands for it: connections to that one lead to the camera's.
 *
 * Threads: the scene's.
 */
class CSceneLoader
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSceneLoader)

public:
    /// \a scene has a registry and one node, \a camera. Both outlive this object; if a handler destroys one during
    /// load(), that fails.
    CSceneLoader(Plugin::Halvex::CNodeScene& scene, Plugin::Halvex::CNodeBase& camera);

    /// Once per object. Returns the first thing that cannot be made, place first: "nodes[3]: ..."; empty on success.
    /// The scene is of no use after a failure.
    QString load(const QJsonObject& document);

private:
    QString addNode(const QJsonObject& json);
    bool addConnection(QJsonObject json);

    Plugin::Halvex::CNodeScene& m_scene;
    Plugin::Halvex::CNodeBase& m_camera;
    Core::CId m_cameraId; // in the document
};

} // namespace Host
