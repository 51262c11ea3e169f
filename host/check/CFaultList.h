// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/CTextPlaces.h"
#include "host/check/SFault.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <utility>
#include <vector>

namespace Host {

struct SJsonNode;

/**
 * Collects what is wrong with one document, and knows where that stands.
 *
 * One place has one error, the first: what follows from it would only hide it.
 */
class CFaultList
{
public:
    explicit CFaultList(const QByteArray& text);

    /// The value, or one that is missing in it.
    void addError(EFaultRule rule, const SJsonNode& at, const QString& message);
    void addWarning(EFaultRule rule, const SJsonNode& at, const QString& message);

    /// The key of a member.
    void addKeyError(EFaultRule rule, const SJsonNode& member, const QString& message);

    /// A place in the text, whatever stands there.
    void addTextError(EFaultRule rule, int offset, const QString& message);

    /// "3:14", for messages that refer to another place.
    QString place(int offset) const;

    bool isEmpty() const { return m_faults.empty(); }

    /// The faults in the order of the text.
    std::vector<SFault> sorted() const;

private:
    void add(int offset, SFault fault);

    CTextPlaces m_places;
    std::vector<std::pair<int, SFault>> m_faults; // with their offsets
    QSet<int> m_wrongOffsets;
};

} // namespace Host
