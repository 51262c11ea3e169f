// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"

#include <QWidget>

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

    /// Shows \a feature, which has the same name and type as the one before. What a person is typing stays.
    void show(const SFeature& feature);

    static QString runText() { return tr("Run"); }

Q_SIGNALS:
    /// A person chose \a value, as CFeatures::set() takes it; empty for a command.
    void edited(const QString& value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeEditor(const SFeature& feature);
    QWidget* makeNumber(const SFeature& feature);
    QWidget* makeText();
    void showNumber(const SFeature& feature);
    void showChoices(const SFeature& feature);

    QWidget* m_editor = nullptr;
    QString m_shown; // the camera's value
};

} // namespace Host
