// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SHostService.h"
#include "host/run/SceneFile.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/PortFit.h"
#include "support/SceneConsistency.h"

#include <Halvex/scene/CNodeScene.h>

#include <QFile>
#include <QTest>

/// A scene of the service with a camera in it, and its editor.
struct SEditedScene
{
    using ENodePortType = Plugin::Halvex::ENodePortType;

    SEditedScene()
    {
        camera = service.nodes.addNode(service.models.createCameraSource(QStringLiteral("cam")), nullptr);
        scene = service.nodes.getActiveScene();
        editor = std::make_unique<Host::CGraphEditor>(*scene, service.nodes);
        editor->setPositions({{camera.toString(), QPointF(0, 0)}});
        QObject::connect(editor.get(), &Host::CGraphEditor::refused, editor.get(),
                         [this](const QString& reason) { refusals << reason; });
    }
    ~SEditedScene()
    {
        if (scene)
            QCOMPARE(inconsistencyOf(*scene), QString());
    }
    Q_DISABLE_COPY(SEditedScene)

    Core::CId add(const char* model, QPointF position = {}) const
    {
        return editor->addNode(QString::fromLatin1(model), position);
    }
    static Host::SPort out(const Core::CId& node, int index = 0) { return {node, ENodePortType::Out, index}; }
    static Host::SPort in(const Core::CId& node, int index = 0) { return {node, ENodePortType::In, index}; }
    bool connectNodes(const Core::CId& from, const Core::CId& to) const
    {
        return editor->connectPorts(out(from), in(to));
    }
    QByteArray document() const { return Host::orderedScene(scene->saveToMemory()); }
    QUndoStack& stack() const { return editor->undoStack(); }

    static QByteArray demoChain()
    {
        QFile file(QStringLiteral(DEMO_CHAIN));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    SHostService service;
    Core::CId camera;
    QPointer<Plugin::Halvex::CNodeScene> scene;
    std::unique_ptr<Host::CGraphEditor> editor;
    QStringList refusals;
};
