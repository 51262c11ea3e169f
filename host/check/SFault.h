// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// What a fault offends. faultRuleName() and faultRuleText() say it to people and editors.
enum class EFaultRule
{
    Unreadable,
    Encoding,
    Syntax,
    WrongType,
    WrongValue,
    UnknownKey,
    DoubleKey,
    MissingKey,
    UnknownModel,
    UnusableModel,
    Setting,
    UnknownName,
    DoubleName,
    Port,
    DataType,
    Source,
    Camera,
    Unreached,
    Loop,
    DoubleConnection,
    Sink
};

constexpr int faultRules = int(EFaultRule::Sink) + 1;

/// Short, for programs: "unknown-key". Frozen: editors and scripts compare it.
QString faultRuleName(EFaultRule rule);

/// One sentence in the user's language: what is asked for.
QString faultRuleText(EFaultRule rule);

/// One thing that is wrong with a document. A plain value.
struct SFault
{
    bool isError = true; ///< Otherwise a warning: a run does as the document says, but may not do what was meant.
    EFaultRule rule = EFaultRule::Syntax;
    int line = 0;    ///< From 1; 0 when it is the file as a whole.
    int column = 0;  ///< From 1, in UTF-16 units, as editors count.
    QString path;    ///< JSONPath of the value; empty when there is none.
    QString message; ///< One line, in the language in which the check was made.
};

} // namespace Host
