// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// Black and white: 255 where the grey value, of 256, is above a threshold, else 0. Of 16 bits the 8 highest count.
class CThresholdModel : public AImageFilterModel
{
    Q_OBJECT
    Q_PROPERTY(EMethod method READ method WRITE setMethod NOTIFY settingChanged)
    Q_PROPERTY(int level READ level WRITE setLevel NOTIFY settingChanged)
    Q_CLASSINFO("method.help", "Otsu finds the threshold that separates each image best, Fixed takes 'level'.")
    Q_CLASSINFO("level.range", "0..255")
    Q_CLASSINFO("level.help", "Grey values above it become white. Otsu does not ask for it.")

public:
    enum class EMethod
    {
        Otsu,
        Fixed
    };
    Q_ENUM(EMethod)

    static QString modelName();

    QString caption() override { return QStringLiteral("Threshold"); }
    QString name() override { return modelName(); }

    EMethod method() const { return m_method; }
    void setMethod(EMethod method);

    int level() const { return m_level; }
    void setLevel(int level);

protected:
    Filter makeFilter() const override;

private:
    EMethod m_method = EMethod::Otsu;
    int m_level = 128;
};

} // namespace Host
