// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/CTextPlaces.h"
#include "host/check/SFault.h"

#include <QByteArray>
#include <QCoreApplication>
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
    Q_DECLARE_TR_FUNCTIONS(Host::CFaultList)

public:
    /// What is kept, and less if paths are very long. Nobody reads more, and a file of something else altogether has
    /// millions.
    static constexpr int mostFaults = 5000;

    explicit CFaultList(const QByteArray& text);

    /// The value, or one that is missing in it.
    void addError(EFaultRule rule, const SJsonNode& at, const QString& message);
    void addWarning(EFaultRule rule, const SJsonNode& at, const QString& message);

    /// The key of a member.
    void addKeyError(EFaultRule rule, const SJsonNode& member, const QString& message);

    /// A place in the text, whatever stands there.
    void addTextError(EFaultRule rule, int offset, const QString& message);

    STextPlace placeOf(const SJsonNode& json) const;

    /// "3:14", for messages that refer to another place.
    QString place(int offset) const;

    bool isEmpty() const { return m_faults.empty(); }

    /// Whether a value of the document could not be read: what seems to be missing may be there. Comments and commas
    /// behind the last item stand for no value.
    bool hasUnreadValues() const;

    /// Whether there are more faults than are kept.
    bool isCut() const { return !m_leftOut.message.isEmpty(); }

    /// The faults in the order of the text, but those of its syntax first. If there are more, a last one of no place
    /// says so; it is an error if one of those is.
    std::vector<SFault> sorted() const;

private:
    void add(bool isError, EFaultRule rule, int offset, const SJsonNode* at, const QString& message);

    CTextPlaces m_places;
    std::vector<std::pair<int, SFault>> m_faults; // with their offsets
    QSet<int> m_wrongOffsets;
    qint64 m_pathLetters = 0;
    SFault m_leftOut; // stands for all that are left out; without a message while there are none
};

} // namespace Host
