// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeatureEditor.h"

#include "host/viewer/base/Wheel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

constexpr double mostExact = 9007199254740992.0; // whole numbers beyond it are not exact in a spin box

constexpr double mostTold = 1e12; // a spin box takes numbers for equal that differ in the 13th digit

bool isInteger(const SFeature& feature)
{
    return feature.type == QLatin1String("integer");
}

// A camera's numbers need neither many zeros nor more digits than it tells.
class CNumberBox : public QDoubleSpinBox
{
public:
    using QDoubleSpinBox::QDoubleSpinBox;

    // More digits than 15 show what a double adds to a decimal number; a whole number is exact up to the bounds.
    QString textFromValue(double value) const override
    {
        const bool isWhole = std::trunc(value) == value;
        return isWhole ? QString::number(value, 'f', 0) : QString::number(value, 'g', 15);
    }
    double valueFromText(const QString& text) const override { return number(text).toDouble(); }
    QValidator::State validate(QString& text, int& /*position*/) const override
    {
        bool ok = false;
        number(text).toDouble(&ok);
        return ok ? QValidator::Acceptable : QValidator::Intermediate;
    }

private:
    QString number(const QString& text) const
    {
        QString plain = text;
        return plain.remove(suffix()).trimmed();
    }
};

} // namespace

CFeatureEditor::CFeatureEditor(const SFeature& feature, QWidget* parent)
    : QWidget(parent)
{
    m_editor = makeEditor(feature);
    m_editor->setAccessibleName(feature.name);
    // A wheel that scrolls the list is not to change what comes under the pointer.
    m_editor->setFocusPolicy(Qt::StrongFocus);
    m_editor->installEventFilter(this);
    setFocusProxy(m_editor);
    // As wide as the column, whatever it would like to show.
    m_editor->setMinimumWidth(0);
    m_editor->setSizePolicy(QSizePolicy::Ignored, m_editor->sizePolicy().verticalPolicy());
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 1, 0, 1);
    layout->addWidget(m_editor);
    show(feature);
}

QWidget* CFeatureEditor::makeEditor(const SFeature& feature)
{
    if (feature.type == QLatin1String("command")) {
        auto* const button = new QPushButton(runText(), this);
        connect(button, &QPushButton::clicked, this, [this] { Q_EMIT edited({}); });
        return button;
    }
    if (feature.type == QLatin1String("boolean")) {
        auto* const box = new QCheckBox(this);
        connect(box, &QCheckBox::clicked, this,
                [this](bool isOn) { Q_EMIT edited(isOn ? QStringLiteral("true") : QStringLiteral("false")); });
        return box;
    }
    if (feature.type == QLatin1String("one of")) {
        auto* const box = new QComboBox(this);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(8);
        connect(box, QOverload<int>::of(&QComboBox::activated), this,
                [this, box](int index) { Q_EMIT edited(box->itemText(index)); });
        return box;
    }
    const bool isNumber = isInteger(feature) || feature.type == QLatin1String("float");
    bool isDecimal = false;
    const double value = feature.plainValue.toDouble(&isDecimal);
    return isNumber && isDecimal && std::abs(value) < mostTold ? makeNumber(feature) : makeText();
}

QWidget* CFeatureEditor::makeNumber(const SFeature& feature)
{
    auto* const box = new CNumberBox(this);
    box->setDecimals(isInteger(feature) ? 0 : 9);
    box->setKeyboardTracking(false);
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, box](double value) { Q_EMIT edited(box->textFromValue(value)); });
    return box;
}

QWidget* CFeatureEditor::makeText()
{
    auto* const line = new QLineEdit(this);
    connect(line, &QLineEdit::editingFinished, this, [this, line] {
        if (line->text() != m_shown)
            Q_EMIT edited(line->text());
    });
    return line;
}

void CFeatureEditor::show(const SFeature& feature)
{
    m_shown = feature.plainValue;
    m_editor->setEnabled(feature.isWritable);
    QStringList help{feature.isLocked ? tr("Cannot be changed now") : QString(), feature.range, feature.help};
    help.removeAll({});
    m_editor->setToolTip(help.join(QLatin1Char('\n')));
    const QSignalBlocker blocker(m_editor);
    if (auto* const box = qobject_cast<QCheckBox*>(m_editor))
        box->setChecked(m_shown == QLatin1String("true") || m_shown == QLatin1String("1"));
    else if (qobject_cast<QComboBox*>(m_editor))
        showChoices(feature);
    else if (auto* const number = qobject_cast<QDoubleSpinBox*>(m_editor)) {
        const bool isTyped = number->hasFocus() && number->cleanText() != number->textFromValue(number->value());
        if (!isTyped)
            showNumber(feature);
    } else if (auto* const line = qobject_cast<QLineEdit*>(m_editor)) {
        if (!line->isModified() || !line->hasFocus())
            line->setText(m_shown);
    }
}

void CFeatureEditor::showNumber(const SFeature& feature)
{
    auto* const box = static_cast<QDoubleSpinBox*>(m_editor);
    const double value = m_shown.toDouble();
    box->setRange(std::max(feature.least.value_or(-mostExact), -mostExact),
                  std::min(feature.most.value_or(mostExact), mostExact));
    if (isInteger(feature))
        box->setSingleStep(feature.step);
    else
        box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setSuffix(feature.unit.isEmpty() ? QString() : QLatin1Char(' ') + feature.unit);
    box->setValue(value);
}

void CFeatureEditor::showChoices(const SFeature& feature)
{
    auto* const box = static_cast<QComboBox*>(m_editor);
    QStringList choices = feature.choices;
    if (!choices.contains(m_shown))
        choices.prepend(m_shown);
    box->clear();
    box->addItems(choices);
    box->setCurrentText(m_shown);
}

bool CFeatureEditor::eventFilter(QObject* watched, QEvent* event)
{
    return isWheelForPanel(*m_editor, event) || QWidget::eventFilter(watched, event);
}

} // namespace Host
