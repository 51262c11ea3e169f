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
    , m_feature(feature)
{
    m_editor = makeEditor();
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

QWidget* CFeatureEditor::makeEditor()
{
    if (m_feature.type == QLatin1String("command")) {
        auto* const button = new QPushButton(runText(), this);
        connect(button, &QPushButton::clicked, this, [this] { send({}); });
        return button;
    }
    if (m_feature.type == QLatin1String("boolean")) {
        auto* const box = new QCheckBox(this);
        connect(box, &QCheckBox::clicked, this,
                [this](bool isOn) { send(isOn ? QStringLiteral("true") : QStringLiteral("false")); });
        return box;
    }
    if (m_feature.type == QLatin1String("one of")) {
        auto* const box = new QComboBox(this);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(8);
        connect(box, QOverload<int>::of(&QComboBox::activated), this,
                [this, box](int index) { send(box->itemText(index)); });
        return box;
    }
    const bool isNumber = isInteger(m_feature) || m_feature.type == QLatin1String("float");
    bool isDecimal = false;
    const double value = m_feature.plainValue.toDouble(&isDecimal);
    return isNumber && isDecimal && std::abs(value) < mostTold ? makeNumber() : makeText();
}

QWidget* CFeatureEditor::makeNumber()
{
    auto* const box = new CNumberBox(this);
    box->setDecimals(isInteger(m_feature) ? 0 : 9);
    box->setKeyboardTracking(false);
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, box](double value) { send(box->textFromValue(value)); });
    m_typed.watch(*box);
    // It said nothing new, but the camera may have.
    connect(&m_typed, &CTypedText::ended, this, &CFeatureEditor::showValue);
    return box;
}

QWidget* CFeatureEditor::makeText()
{
    auto* const line = new QLineEdit(this);
    m_typed.watch(*line);
    connect(&m_typed, &CTypedText::ended, this, [this, line] {
        if (line->text() != m_feature.plainValue)
            send(line->text());
    });
    return line;
}

void CFeatureEditor::show(const SFeature& feature)
{
    m_feature = feature;
    m_editor->setEnabled(feature.isWritable);
    QStringList help{feature.isLocked ? tr("Cannot be changed now") : QString(), feature.range, feature.help};
    help.removeAll({});
    m_editor->setToolTip(help.join(QLatin1Char('\n')));
    if (!m_typed.isThere())
        showValue();
}

void CFeatureEditor::showValue()
{
    const QSignalBlocker blocker(m_editor);
    const QString& value = m_feature.plainValue;
    if (auto* const box = qobject_cast<QCheckBox*>(m_editor))
        box->setChecked(value == QLatin1String("true") || value == QLatin1String("1"));
    else if (auto* const choices = qobject_cast<QComboBox*>(m_editor))
        showChoices(choices);
    else if (auto* const number = qobject_cast<QDoubleSpinBox*>(m_editor))
        showNumber(number);
    else if (auto* const line = qobject_cast<QLineEdit*>(m_editor))
        line->setText(value);
}

void CFeatureEditor::showNumber(QDoubleSpinBox* box) const
{
    box->setRange(std::max(m_feature.least.value_or(-mostExact), -mostExact),
                  std::min(m_feature.most.value_or(mostExact), mostExact));
    if (isInteger(m_feature))
        box->setSingleStep(m_feature.step);
    else
        box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setSuffix(m_feature.unit.isEmpty() ? QString() : QLatin1Char(' ') + m_feature.unit);
    box->setValue(m_feature.plainValue.toDouble());
}

void CFeatureEditor::showChoices(QComboBox* box) const
{
    QStringList choices = m_feature.choices;
    if (!choices.contains(m_feature.plainValue))
        choices.prepend(m_feature.plainValue);
    box->clear();
    box->addItems(choices);
    box->setCurrentText(m_feature.plainValue);
}

void CFeatureEditor::send(const QString& value)
{
    m_typed.clear();
    Q_EMIT edited(value);
}

bool CFeatureEditor::eventFilter(QObject* watched, QEvent* event)
{
    return isWheelForPanel(*m_editor, event) || QWidget::eventFilter(watched, event);
}

} // namespace Host
