// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"
#include "host/viewer/base/CTypedText.h"

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;

namespace Host {

/**
 * The widget for one feature of a camera: a number with its range and unit, a list of choices, a box to tick, a line of
 * text, or a button for a command. What cannot be written now is greyed.
 *
 * \code
 * auto* const editor = new CFeatureEditor(feature, this);
 * connect(editor, &CFeatureEditor::edited, this, [=](const QString& value) { session->setFeature(name, value); });
 * \endcode
 */
class CFeatureEditor : public QWidget
{
    Q_OBJECT

public:
    explicit CFeatureEditor(const SFeature& feature, QWidget* parent = nullptr);

    /// Shows \a feature, which has the same name and type as the one before. What a person is typing stays until it is
    /// sent.
    void show(const SFeature& feature);

    static QString runText() { return tr("Run"); }

Q_SIGNALS:
    /// A person chose \a value, as CFeatures::set() takes it; empty for a command.
    void edited(const QString& value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeEditor();
    QWidget* makeNumber();
    QWidget* makeText();
    void showValue();
    void showNumber(QDoubleSpinBox* box) const;
    void showChoices(QComboBox* box) const;
    void send(const QString& value);

    SFeature m_feature; // as the camera told it last
    QWidget* m_editor = nullptr;
    CTypedText m_typed;
};

} // namespace Host
