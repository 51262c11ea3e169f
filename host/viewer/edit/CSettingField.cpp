// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CSettingField.h"

#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Wheel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

#include <cmath>
#include <limits>
#include <utility>

namespace Host {

namespace {

int toInt(double bound)
{
    if (std::isinf(bound))
        return bound < 0 ? std::numeric_limits<int>::lowest() : std::numeric_limits<int>::max();
    return int(bound);
}

QStringList choicesIn(const SModelSetting& setting)
{
    return setting.range.split(QStringLiteral(", "));
}

// The values of an enumeration are in its box.
QString rangeText(const SModelSetting& setting)
{
    return isChoice(setting) ? QString() : setting.range;
}

constexpr int mostDecimals = 9;

// Shows no more decimals than the value needs.
class CShortNumberBox : public QDoubleSpinBox
{
public:
    using QDoubleSpinBox::QDoubleSpinBox;

    QString textFromValue(double value) const override
    {
        QLocale words = locale();
        words.setNumberOptions(words.numberOptions() | QLocale::OmitGroupSeparator);
        return words.toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

} // namespace

CSettingField::CSettingField(const SModelSetting& setting, const std::optional<SSettingBounds>& bounds,
                             QString defaultValue, QWidget* parent)
    : QWidget(parent)
    , m_name(setting.name)
    , m_default(std::move(defaultValue))
    , m_isChoice(isChoice(setting))
    , m_reset(new QToolButton(this))
    , m_problem(new QLabel(this))
{
    makeEditor(setting, bounds);
    const QString words = wordsOf(m_name);
    const QString help = modelText(setting.help);
    m_editor->setObjectName(m_name);
    m_editor->setAccessibleName(words);
    m_editor->setAccessibleDescription(help);
    m_editor->installEventFilter(this);

    auto* const label = new QLabel(words, this);
    label->setBuddy(m_editor);
    auto* const range = new QLabel(rangeText(setting), this);
    QFont small = range->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    range->setFont(small);
    m_reset->setObjectName(QStringLiteral("reset ") + m_name);
    m_reset->setAutoRaise(true);
    m_reset->setText(QStringLiteral("↺"));
    connect(m_reset, &QToolButton::clicked, this, [this] { announce(m_default); });
    m_problem->setWordWrap(true);
    m_problem->hide();

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->addWidget(label, 0, 0);
    grid->addWidget(range, 0, 1, Qt::AlignRight);
    grid->addWidget(m_editor, 1, 0, 1, 2);
    grid->addWidget(m_reset, 1, 2);
    grid->addWidget(m_problem, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    for (QWidget* each : std::initializer_list<QWidget*>{this, label, m_editor})
        each->setToolTip(help);
    retranslate();
    showValue(setting.value);
}

void CSettingField::showValue(const QString& value)
{
    m_value = value;
    m_reset->setEnabled(value != m_default);
    if (m_typed.isThere())
        return;
    const QSignalBlocker blocker(m_editor);
    m_show(value);
}

void CSettingField::showProblem(const QString& text)
{
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
}

bool CSettingField::eventFilter(QObject* watched, QEvent* event)
{
    if (isWheelForPanel(*m_editor, event))
        return true;
    const bool isKey = event->type() == QEvent::KeyPress && !static_cast<QKeyEvent*>(event)->isAutoRepeat();
    if (isKey || event->type() == QEvent::MouseButtonPress || event->type() == QEvent::FocusIn)
        ++m_gesture;
    return QWidget::eventFilter(watched, event);
}

void CSettingField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CSettingField::makeEditor(const SModelSetting& setting, const std::optional<SSettingBounds>& bounds)
{
    if (setting.type == QLatin1String("bool"))
        makeCheckBox();
    else if (setting.type == QLatin1String("int"))
        makeSpinBox(bounds);
    else if (setting.type == QLatin1String("double") || setting.type == QLatin1String("float"))
        makeDoubleSpinBox(bounds);
    else if (m_isChoice)
        makeComboBox(choicesIn(setting));
    else
        makeLineEdit();
}

void CSettingField::makeCheckBox()
{
    auto* const box = new QCheckBox(this);
    m_editor = box;
    m_show = [box](const QString& value) { box->setChecked(value == QLatin1String("true")); };
    connect(box, &QCheckBox::toggled, this,
            [this](bool on) { announce(on ? QStringLiteral("true") : QStringLiteral("false")); });
}

void CSettingField::makeSpinBox(const std::optional<SSettingBounds>& bounds)
{
    auto* const box = new QSpinBox(this);
    m_editor = box;
    const double infinite = std::numeric_limits<double>::infinity();
    box->setRange(toInt(bounds ? bounds->least : -infinite), toInt(bounds ? bounds->most : infinite));
    box->setSingleStep(bounds && bounds->areOdd ? 2 : 1);
    box->setKeyboardTracking(false);
    m_show = [box](const QString& value) { box->setValue(value.toInt()); };
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int value) { announce(QString::number(value)); });
    keepTyped(*box);
}

void CSettingField::makeDoubleSpinBox(const std::optional<SSettingBounds>& bounds)
{
    auto* const box = new CShortNumberBox(this);
    m_editor = box;
    constexpr double most = 1e9;
    box->setDecimals(mostDecimals);
    box->setRange(bounds ? bounds->least : -most, bounds && !std::isinf(bounds->most) ? bounds->most : most);
    box->setKeyboardTracking(false);
    m_show = [box](const QString& value) { box->setValue(value.toDouble()); };
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this](double value) { announce(QString::number(value, 'f', QLocale::FloatingPointShortest)); });
    keepTyped(*box);
}

void CSettingField::makeComboBox(const QStringList& words)
{
    auto* const box = new QComboBox(this);
    m_editor = box;
    for (const QString& word : words)
        box->addItem(wordsOf(word), word);
    m_show = [box](const QString& value) { box->setCurrentIndex(box->findData(value)); };
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, box](int index) { announce(box->itemData(index).toString()); });
}

void CSettingField::makeLineEdit()
{
    auto* const edit = new QLineEdit(this);
    m_editor = edit;
    m_show = [edit](const QString& value) { edit->setText(value); };
    m_typed.watch(*edit);
    connect(&m_typed, &CTypedText::ended, this, [this, edit] { announce(edit->text()); });
}

// Typed text that says nothing new is not announced: the value may have changed meanwhile.
void CSettingField::keepTyped(QAbstractSpinBox& box)
{
    m_typed.watch(box);
    connect(&m_typed, &CTypedText::ended, this, [this] { showValue(m_value); });
}

void CSettingField::announce(const QString& value)
{
    m_typed.clear();
    Q_EMIT changed(m_name, value, m_gesture);
}

void CSettingField::retranslate()
{
    m_reset->setToolTip(tr("Back to the default, %1").arg(m_isChoice ? wordsOf(m_default) : m_default));
    m_reset->setAccessibleName(tr("Default of %1").arg(wordsOf(m_name)));
}

} // namespace Host
