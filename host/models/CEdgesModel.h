// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// White edges on black, where the grey value changes by 50 to 150 (Canny).
class CEdgesModel : public AImageFilterModel
{
    Q_OBJECT

public:
    static QString modelName();

    QString caption() override { return QStringLiteral("Edges"); }
    QString name() override { return modelName(); }

protected:
    Filter makeFilter() const override;
};

} // namespace Host
