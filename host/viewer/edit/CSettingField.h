// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/SettingRange.h"
#include "host/models/ModelSettings.h"
#include "host/viewer/base/CTypedText.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QToolButton;

namespace Host {

/**
 * One setting of a model as a person changes it: a box to tick, a number with its range, a text or a choice of words,
 * and a button that brings the default back.
 *
 * What is shown comes from showValue() alone; a person's change is only announced. Whoever hears of it sets the model
 * and calls showValue() with what the model has then.
 */
class CSettingField : public QWidget
{
    Q_OBJECT

public:
    /// \a defaultValue is what a new model has.
    CSettingField(const SModelSetting& setting, const std::optional<SSettingBounds>& bounds, QString defaultValue,
                  QWidget* parent);

    QString name() const { return m_name; }
    QWidget* editor() const { return m_editor; }

    /// Shows the value without announcing it. While a person types, what is typed stays until it is announced.
    void showValue(const QString& value);

    /// Below the field, for as long as it is not empty: why a value was not taken.
    void showProblem(const QString& text);

Q_SIGNALS:
    /// A person wants this value. Changes of one \a gesture, such as holding a key down, have the same number.
    void changed(const QString& name, const QString& value, int gesture);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeEditor(const SModelSetting& setting, const std::optional<SSettingBounds>& bounds);
    void makeCheckBox();
    void makeSpinBox(const std::optional<SSettingBounds>& bounds);
    void makeDoubleSpinBox(const std::optional<SSettingBounds>& bounds);
    void makeComboBox(const QStringList& words);
    void makeLineEdit();
    void keepTyped(QAbstractSpinBox& box);
    void announce(const QString& value);
    void retranslate();

    const QString m_name;
    const QString m_default;
    const bool m_isChoice;
    QWidget* m_editor = nullptr;
    QToolButton* m_reset = nullptr;
    QLabel* m_problem = nullptr;
    std::function<void(const QString&)> m_show;
    QString m_value; // as the model has it
    CTypedText m_typed;
    int m_gesture = 1;
};

} // namespace Host
