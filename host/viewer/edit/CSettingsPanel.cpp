// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CSettingsPanel.h"

#include "host/base/Attempt.h"
#include "host/base/ModelProperties.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/CSettingField.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <QEvent>
#include <QLabel>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QVBoxLayout>

#include <map>

namespace Host {

using namespace Plugin::Halvex;

namespace {

std::map<QString, QString> valuesOf(const QObject& model)
{
    std::map<QString, QString> values;
    for (const SModelSetting& setting : settingsOf(model))
        values[setting.name] = setting.value;
    return values;
}

// What a new model has; nothing if none can be made.
std::map<QString, QString> defaultsOf(CNodeDataModelRegistry& registry, CNodeDataModel& model)
{
    std::map<QString, QString> values;
    attempt(QString(), [&] {
        if (const auto fresh = registry.create(model.name()))
            values = valuesOf(*fresh);
        return true;
    });
    return values;
}

} // namespace

CSettingsPanel::CSettingsPanel(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_hint(new QLabel(this))
    , m_layout(new QVBoxLayout(this))
{
    QFont bold = font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_hint->setWordWrap(true);
    m_layout->setContentsMargins(8, 8, 8, 8);
    m_layout->setSpacing(8);
    m_layout->addWidget(m_title);
    m_layout->addWidget(m_hint);
    m_layout->addStretch(1);
    retranslate();
}

void CSettingsPanel::show(CGraphEditor* editor, const Core::CId& node)
{
    if (m_editor && m_editor != editor)
        disconnect(&m_editor->undoStack(), nullptr, this, nullptr);
    clear();
    m_editor = editor;
    m_node = node;
    const CNodeBase* const found = editor ? editor->node(node) : nullptr;
    if (found) {
        m_model = found->nodeDataModel();
        addFields(*m_model);
        watch(*m_model);
        // Not every model tells of a change of its settings.
        connect(&editor->undoStack(), &QUndoStack::indexChanged, this, &CSettingsPanel::showValues,
                Qt::UniqueConnection);
    }
    retranslate();
}

void CSettingsPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        show(m_editor, m_node);
    QWidget::changeEvent(event);
}

void CSettingsPanel::showValues()
{
    if (!m_model)
        return;
    const auto values = valuesOf(*m_model);
    for (CSettingField* field : m_fields) {
        // A model that is being destroyed may tell of a change when it has only the settings of its base class left.
        const auto value = values.find(field->name());
        if (value != values.end())
            field->showValue(value->second);
        field->showProblem(QString());
    }
}

void CSettingsPanel::clear()
{
    if (m_model)
        disconnect(m_model, nullptr, this, nullptr);
    m_model = nullptr;
    m_fields.clear();
    // Later: a field may be what tells of the change that leads here.
    if (QWidget* const area = m_area.release()) {
        area->hide();
        area->deleteLater();
    }
}

void CSettingsPanel::addFields(const CNodeDataModel& model)
{
    m_area = std::make_unique<QWidget>(this);
    auto* const column = new QVBoxLayout(m_area.get());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    const auto defaults = defaultsOf(*m_editor->registry(), *m_model);
    const auto properties = propertiesOf(model);
    const auto settings = settingsOf(model);
    for (std::size_t i = 0; i < settings.size(); ++i) {
        const auto found = defaults.find(settings[i].name);
        auto* const field =
            new CSettingField(settings[i], boundsOf(model, properties[i]),
                              found == defaults.end() ? settings[i].value : found->second, m_area.get());
        field->setEnabled(properties[i].isWritable());
        connect(field, &CSettingField::changed, this, &CSettingsPanel::onChanged);
        column->addWidget(field);
        m_fields.push_back(field);
    }
    m_layout->insertWidget(2, m_area.get());
}

void CSettingsPanel::watch(CNodeDataModel& model)
{
    const QMetaMethod shows = metaObject()->method(metaObject()->indexOfSlot("showValues()"));
    for (const QMetaProperty& property : propertiesOf(model)) {
        if (property.hasNotifySignal())
            connect(&model, property.notifySignal(), this, shows, Qt::UniqueConnection);
    }
    connect(&model, &QObject::destroyed, this, [this] {
        clear();
        retranslate();
    });
}

void CSettingsPanel::onChanged(const QString& name, const QString& value, int gesture)
{
    if (!m_editor)
        return;
    QString problem;
    const auto heard =
        connect(m_editor, &CGraphEditor::refused, this, [said = &problem](const QString& reason) { *said = reason; });
    m_editor->setSetting(m_node, name, value, gesture);
    disconnect(heard);
    showValues();
    for (CSettingField* field : m_fields) {
        if (field->name() == name)
            field->showProblem(problem);
    }
}

void CSettingsPanel::retranslate()
{
    setAccessibleName(tr("Settings"));
    CNodeDataModel* const model = m_model;
    m_title->setText(model ? captionText(*model) : tr("Settings"));
    m_hint->setText(model ? tr("This node has no settings.") : tr("Choose a node to see its settings."));
    m_hint->setVisible(m_fields.empty());
}

} // namespace Host
