// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// Smooths, grey and colour alike. 16 bits stay 16 bits, but for a median over more than 5 pixels.
class CBlurModel : public AImageFilterModel
{
    Q_OBJECT
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY settingChanged)
    Q_PROPERTY(EMethod method READ method WRITE setMethod NOTIFY settingChanged)
    Q_CLASSINFO("size.range", "1..99, odd")
    Q_CLASSINFO("size.help", "Pixels along each side of the square that a pixel is smoothed over.")
    Q_CLASSINFO("method.help", "Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels.")

public:
    enum class EMethod
    {
        Gaussian,
        Box,
        Median
    };
    Q_ENUM(EMethod)

    static QString modelName();

    QString caption() override { return QStringLiteral("Blur"); }
    QString name() override { return modelName(); }

    int size() const { return m_size; }
    void setSize(int pixels);

    EMethod method() const { return m_method; }
    void setMethod(EMethod method);

protected:
    Filter makeFilter() const override;

private:
    int m_size = 7;
    EMethod m_method = EMethod::Gaussian;
};

} // namespace Host
