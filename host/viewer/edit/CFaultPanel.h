// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QByteArray>
#include <QWidget>

class QLabel;
class QModelIndex;
class QPlainTextEdit;
class QTreeView;

namespace Plugin::Halvex {
class CNodeScene;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class CFaultModel;
class IHostModels;

/**
 * What the checker finds in a scene or in a document, as a list. A click, or Enter, leads to the place: to the node of
 * a scene; in a document, which is shown beside the list, to the line and the column.
 *
 * \code
 * panel->checkScene(*editor->scene());
 * connect(panel, &CFaultPanel::nodeChosen, view, &CGraphView::goTo);
 * \endcode
 *
 * It checks when it is asked to, in the scene's thread, and does not keep the scene.
 */
class CFaultPanel : public QWidget
{
    Q_OBJECT

public:
    /// Both outlive the panel.
    CFaultPanel(Plugin::Halvex::INodeService& service, const IHostModels& models, QWidget* parent = nullptr);

    /// Checks the document that the scene would be saved as.
    void checkScene(const Plugin::Halvex::CNodeScene& scene);

    /// Checks a chain or a scene document.
    void checkText(const QByteArray& text);

    int errors() const;
    int warnings() const;

Q_SIGNALS:
    /// A finding of a scene, at that node.
    void nodeChosen(const Core::CId& node);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showFaults(const QByteArray& text, const Plugin::Halvex::CNodeScene* scene);
    void choose(const QModelIndex& index);
    void showPlace(int line, int column);
    int count(bool areErrors) const;
    void retranslate();

    Plugin::Halvex::INodeService& m_service;
    const IHostModels& m_models;
    CFaultModel* m_faults = nullptr;
    QLabel* m_summary = nullptr;
    QTreeView* m_view = nullptr;
    QPlainTextEdit* m_text = nullptr; // hidden when a scene was checked
    bool m_hasChecked = false;
};

} // namespace Host
