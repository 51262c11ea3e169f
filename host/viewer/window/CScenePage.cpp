// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CScenePage.h"

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CGraphView.h"

#include <Halvex/models/ASourceNodeDataModel.h>

#include <QAction>
#include <QFileInfo>
#include <QVBoxLayout>

namespace Host {

using namespace Plugin::Halvex;

CScenePage::CScenePage(CNodeScene& scene, INodeService& service, QWidget* parent)
    : QWidget(parent)
    , m_scene(&scene)
    , m_address(&scene)
    , m_editor(new CGraphEditor(scene, service, this))
    , m_view(new CGraphView(*m_editor, this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    // The window has these for all scenes. Two actions with one shortcut would be none.
    const auto graphActions = m_view->graphActions();
    for (QAction* const action : graphActions) {
        if (action->objectName() != QLatin1String("graphUndo") && action->objectName() != QLatin1String("graphRedo"))
            continue;
        action->setShortcut({});
        action->setVisible(false);
    }
    connect(&m_editor->undoStack(), &QUndoStack::cleanChanged, this, &CScenePage::titleChanged);
    // The camera comes when the scene is there already.
    connect(&scene, &CNodeScene::nodeCreated, this, &CScenePage::titleChanged);
}

CScenePage::~CScenePage()
{
    // Its steps tell of themselves when they go, with the editor; by then this is no CScenePage any more.
    m_editor->undoStack().disconnect(this);
}

CNodeBase* CScenePage::camera() const
{
    if (!m_scene)
        return nullptr;
    for (const auto& node : m_scene->nodes()) {
        const auto* const source = qobject_cast<ASourceNodeDataModel*>(node.second->nodeDataModel());
        if (source && source->hasUniqueName())
            return node.second.get();
    }
    return nullptr;
}

QString CScenePage::cameraName() const
{
    const CNodeBase* const node = camera();
    return node ? qobject_cast<ASourceNodeDataModel*>(node->nodeDataModel())->uniqueName() : QString();
}

void CScenePage::setFile(const QString& file)
{
    m_file = file;
    setToolTip(file);
    Q_EMIT titleChanged();
}

bool CScenePage::isModified() const
{
    return !m_editor->undoStack().isClean();
}

QString CScenePage::title() const
{
    QString title = cameraName();
    if (!m_file.isEmpty())
        title += QStringLiteral(" – %1").arg(QFileInfo(m_file).fileName());
    return isModified() ? title + QLatin1Char('*') : title;
}

} // namespace Host
