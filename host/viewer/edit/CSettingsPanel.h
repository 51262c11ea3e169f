// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

class CGraphEditor;
class CSettingField;

/**
 * The settings of one node, made of its model's Qt properties: each change is a step of the editor. A value that is
 * changed elsewhere, or by undo, is shown, too.
 *
 * The node, its scene and the editor may go at any time; the panel is empty then. Threads: the scene's.
 */
class CSettingsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CSettingsPanel(QWidget* parent = nullptr);

    using QWidget::show;

    /// Shows the settings of \a node. Without an editor (null), or for a node that is not there, the panel is empty.
    void show(CGraphEditor* editor, const Core::CId& node);

protected:
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void showValues();

private:
    void clear();
    void addFields(const Plugin::Halvex::CNodeDataModel& model);
    void watch(Plugin::Halvex::CNodeDataModel& model);
    void onChanged(const QString& name, const QString& value, int gesture);
    void retranslate();

    QPointer<CGraphEditor> m_editor;
    Core::CId m_node;
    QPointer<Plugin::Halvex::CNodeDataModel> m_model;
    QLabel* m_title = nullptr;
    QLabel* m_hint = nullptr;
    QVBoxLayout* m_layout = nullptr;
    std::unique_ptr<QWidget> m_area; // of the fields
    std::vector<CSettingField*> m_fields;
};

} // namespace Host
