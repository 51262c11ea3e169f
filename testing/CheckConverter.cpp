// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/testing/CheckConverter.h>

#include "testing/SRule_p.h"
#include "testing/Samples_p.h"

#include <Halvex/testing/CForeignData.h>

namespace Plugin::Halvex::Testing {

namespace {

struct SConverterSubject
{
    const NodeDataConverter& converter;
    const SNodeDataType& from;
    const SNodeDataType& to;
    const SCheckOptions& options;

    CNodeDataPtr makeData(int number) const { return makeSample(from, number, options); }
};

QString lacks(const SConverterSubject& subject)
{
    return subject.makeData(1) ? QString() : noDataOf(subject.from);
}

/// Whether data that the converter gives for \a what is of the type that it is registered for.
SOutcome convertsTo(const SConverterSubject& subject, const CNodeDataPtr& data, const QString& what)
{
    CNodeDataPtr converted;
    const QString thrown = thrownBy([&] { converted = subject.converter(data); });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("given %1 it %2").arg(what, thrown));
    if (converted && converted->type().id != subject.to.id)
        return broken(
            QStringLiteral("given %1 it made a \"%2\", not a \"%3\"").arg(what, converted->type().id, subject.to.id));
    return kept();
}

SOutcome isThere(const SConverterSubject& subject)
{
    return subject.converter ? kept() : broken(QStringLiteral("it is an empty function"));
}

SOutcome convertsEmptyData(const SConverterSubject& subject)
{
    return convertsTo(subject, {}, QStringLiteral("empty data"));
}

SOutcome convertsForeignData(const SConverterSubject& subject)
{
    return convertsTo(subject, CNodeDataPtr(new CForeignData), QStringLiteral("data of another type"));
}

SOutcome convertsItsData(const SConverterSubject& subject)
{
    const QString lacking = lacks(subject);
    if (!lacking.isEmpty())
        return leftOut(lacking);
    for (int number = 1; number <= sampleCount; ++number) {
        const CNodeDataPtr data = subject.makeData(number);
        const SOutcome outcome = convertsTo(subject, data, shownSample(data));
        if (outcome.kind != SOutcome::EKind::Kept)
            return outcome;
    }
    return kept();
}

QString differenceBetween(const CNodeDataPtr& first, const CNodeDataPtr& second, const SCheckOptions& options)
{
    if (first.isNull() != second.isNull())
        return QStringLiteral("something and to nothing");
    const bool isSame = !first || checksumOf(*first, options) == checksumOf(*second, options);
    return isSame ? QString() : QStringLiteral("different contents");
}

SOutcome convertsAlike(const SConverterSubject& subject)
{
    const QString lacking = lacks(subject);
    if (!lacking.isEmpty())
        return leftOut(lacking);
    const CNodeDataPtr first = subject.converter(subject.makeData(1));
    subject.converter(subject.makeData(2));
    for (int round = 0; round < 2; ++round) {
        const QString difference = differenceBetween(first, subject.converter(subject.makeData(1)), subject.options);
        if (!difference.isEmpty())
            return broken(QStringLiteral("the same data was converted twice, to %1").arg(difference));
    }
    const bool isComparable = !first || !checksumOf(*first, subject.options).isEmpty();
    return isComparable ? kept() : leftOut(noChecksumOf(subject.to));
}

SOutcome leavesWhatItConvertsAlone(const SConverterSubject& subject)
{
    const QString lacking = lacks(subject);
    if (!lacking.isEmpty())
        return leftOut(lacking);
    for (int number = 1; number <= sampleCount; ++number) {
        const CNodeDataPtr data = subject.makeData(number);
        const QByteArray before = data ? checksumOf(*data, subject.options) : QByteArray();
        if (before.isEmpty())
            return leftOut(noChecksumOf(subject.from));
        subject.converter(data);
        if (checksumOf(*data, subject.options) != before)
            return broken(QStringLiteral("what it was given has another content now"));
    }
    return kept();
}

const std::vector<SRule<SConverterSubject>>& converterRuleTable()
{
    static const std::vector<SRule<SConverterSubject>> table = {
        {"converter-is-there", "A connection with an empty function carries data unconverted.", "Register a function.",
         &isThere, true},
        {"converts-empty-data", "A connection that goes sends empty data through its converter.",
         "Return null for null.", &convertsEmptyData},
        {"converts-foreign-data", "Nobody checks types when ports are connected: data of any type may arrive.",
         "Use dynamicCast, and return null for data of another type.", &convertsForeignData},
        {"converts-its-data", "Whoever is connected relies on the type that the converter is registered for.",
         "Make data of that type, or return null.", &convertsItsData},
        {"converts-alike", "A converter serves every connection between two types, in any order.",
         "Keep no state in it; what is converted depends on the data alone.", &convertsAlike},
        {"leaves-what-it-converts-alone", "One data object reaches every consumer of a port.",
         "Copy the content before you change it.", &leavesWhatItConvertsAlone},
    };
    return table;
}

} // namespace

SReport checkConverter(const NodeDataConverter& converter, const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                       const SCheckOptions& options)
{
    SReport report;
    report.subject = QStringLiteral("The converter from \"%1\" to \"%2\"").arg(fromTo.first.id, fromTo.second.id);
    tryRules(converterRuleTable(), SConverterSubject{converter, fromTo.first, fromTo.second, options}, &report);
    return report;
}

std::vector<SRuleInfo> converterRules()
{
    return infosOf(converterRuleTable());
}

} // namespace Plugin::Halvex::Testing
