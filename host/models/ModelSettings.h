// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class QObject;

namespace Host {

/**
 * A setting of a model, as its Qt property tells it; AImageFilterModel shows how a model tells what makes sense.
 *
 * \code
 * for (const SModelSetting& setting : settingsOf(*model))
 *     print(setting.name, setting.value, setting.range);
 * const QString error = setSetting(*model, QStringLiteral("size"), QStringLiteral("9"));
 * \endcode
 */
struct SModelSetting
{
    QString name;
    QString type;  ///< "int", "double", "bool", "text", or "one of" for an enumeration.
    QString value; ///< What it is now; the default in a new model.
    QString range; ///< "1 to 99, odd", or the values of an enumeration; empty when the model does not say.
    QString help;  ///< One sentence; may be empty.
};

/// Whether its values are words of an enumeration.
bool isChoice(const SModelSetting& setting);

/// In the order in which the classes declare them, the most derived class's first.
std::vector<SModelSetting> settingsOf(const QObject& model);

/// Sets what \a name says, in the spelling of the property or of a document: "mostWaiting" or "most_waiting". Returns
/// what is wrong, in one line; empty on success. Threads: the model's.
QString setSetting(QObject& model, const QString& name, const QString& value);

} // namespace Host
