// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// White edges on black, where the grey value, of 256, changes enough. Of 16 bits the 8 highest count.
class CEdgesModel : public AImageFilterModel
{
    Q_OBJECT
    Q_PROPERTY(EMethod method READ method WRITE setMethod NOTIFY settingChanged)
    Q_PROPERTY(int level READ level WRITE setLevel NOTIFY settingChanged)
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY settingChanged)
    Q_CLASSINFO("method.help",
                "Canny draws thin lines, and follows an edge down to a third of 'level'; Sobel draws all of it.")
    Q_CLASSINFO("level.range", "1..1000")
    Q_CLASSINFO("level.help", "How much the grey value must change.")
    Q_CLASSINFO("size.range", "3..7, odd")
    Q_CLASSINFO("size.help", "Pixels along each side of the square in which the change is looked for.")

public:
    enum class EMethod
    {
        Canny,
        Sobel
    };
    Q_ENUM(EMethod)

    static QString modelName();

    QString caption() override { return QStringLiteral("Edges"); }
    QString name() override { return modelName(); }

    EMethod method() const { return m_method; }
    void setMethod(EMethod method);

    int level() const { return m_level; }
    void setLevel(int level);

    int size() const { return m_size; }
    void setSize(int pixels);

protected:
    Filter makeFilter() const override;

private:
    EMethod m_method = EMethod::Canny;
    int m_level = 150;
    int m_size = 3;
};

} // namespace Host
