// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/scene/CNodeScene.h>

#include <QPointer>
#include <QWidget>

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

class CGraphEditor;
class CGraphView;

/**
 * What a tab shows of a scene: its graph. It knows the file that the scene was read from or saved to.
 *
 * Ownership: the scene is watched, not owned. Threads: the main thread.
 */
class CScenePage : public QWidget
{
    Q_OBJECT

public:
    CScenePage(Plugin::Halvex::CNodeScene& scene, Plugin::Halvex::INodeService& service, QWidget* parent = nullptr);
    ~CScenePage() override;

    /// Null once it is gone.
    Plugin::Halvex::CNodeScene* scene() const { return m_scene; }

    /// Of the scene, also while it is being destroyed; to compare.
    const QObject* address() const { return m_address; }

    CGraphEditor& editor() const { return *m_editor; }
    CGraphView& view() const { return *m_view; }

    /// The node that frames come from; null if the scene has none.
    Plugin::Halvex::CNodeBase* camera() const;

    /// The unique name of that; empty without one.
    QString cameraName() const;

    /// Empty if there is none.
    QString file() const { return m_file; }
    void setFile(const QString& file);

    /// Whether something was changed since the scene was made, read or saved.
    bool isModified() const;

    /// The camera's name, the file's behind it, and a star if the scene is modified.
    QString title() const;

Q_SIGNALS:
    void titleChanged();

private:
    const QPointer<Plugin::Halvex::CNodeScene> m_scene;
    const QObject* const m_address;
    CGraphEditor* const m_editor;
    CGraphView* const m_view;
    QString m_file;
};

} // namespace Host
