// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/SNodeDataType.h>

#include <QString>

namespace Plugin::Halvex::Testing {

/// What became of a rule that was tried.
struct SOutcome
{
    enum class EKind
    {
        Kept,
        Broken,
        LeftOut
    };
    EKind kind = EKind::Kept;
    QString text; ///< What was seen, or why the rule was left out.
};

inline SOutcome kept()
{
    return {};
}

inline SOutcome broken(const QString& seen)
{
    return {SOutcome::EKind::Broken, seen};
}

inline SOutcome leftOut(const QString& reason)
{
    return {SOutcome::EKind::LeftOut, reason};
}

inline QString noChecksumOf(const SNodeDataType& type)
{
    return QStringLiteral("contents of the type \"%1\" cannot be compared: SCheckOptions::checksum does that, "
                          "for halvex-check an ITestData")
        .arg(type.id);
}

inline QString noDataOf(const SNodeDataType& type)
{
    return QStringLiteral("there is no data of the type \"%1\": SCheckOptions::makeData makes it, for halvex-check an "
                          "ITestData")
        .arg(type.id);
}

/// Left out if something is lacking. What can be tried without it was tried, and is kept.
inline SOutcome keptUnless(const QString& lacking)
{
    return lacking.isEmpty() ? kept() : leftOut(lacking);
}

/// Broken if there is something to tell.
inline SOutcome brokenIf(const QString& seen)
{
    return seen.isEmpty() ? kept() : broken(seen);
}

} // namespace Plugin::Halvex::Testing
