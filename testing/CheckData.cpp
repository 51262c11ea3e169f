// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/testing/CheckData.h>

#include "testing/SLeftovers_p.h"
#include "testing/SRule_p.h"
#include "testing/Samples_p.h"

#include <Halvex/testing/CForeignData.h>

#include <QThread>

#include <memory>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

struct SDataSubject
{
    const DataCreator& creator;
    const SCheckOptions& options;
};

/// What \a work throws there.
QString thrownInAnotherThread(const std::function<void()>& work)
{
    QString thrown;
    const std::unique_ptr<QThread> thread(QThread::create([&] { thrown = thrownBy(work); }));
    thread->start();
    thread->wait();
    return thrown;
}

SOutcome makesData(const SDataSubject& subject)
{
    if (!subject.creator)
        return broken(QStringLiteral("the creator is an empty function"));
    CNodeDataPtr first;
    CNodeDataPtr second;
    const QString thrown = thrownBy([&] {
        first = subject.creator(1);
        second = subject.creator(1);
    });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("the creator %1").arg(thrown));
    if (!first || !second)
        return broken(QStringLiteral("the creator gave null"));
    return first != second ? kept() : broken(QStringLiteral("the creator gave the same object twice"));
}

SOutcome typeIsComplete(const SDataSubject& subject)
{
    const SNodeDataType type = subject.creator(1)->type();
    if (type.id.isEmpty())
        return broken(QStringLiteral("the id of its type is empty"));
    return type.name.isEmpty() ? broken(QStringLiteral("the name of its type is empty")) : kept();
}

SOutcome typeStaysTheSame(const SDataSubject& subject)
{
    const QString first = subject.creator(1)->type().id;
    const QString second = subject.creator(2)->type().id;
    if (first != second)
        return broken(QStringLiteral("one object is a \"%1\", another a \"%2\"").arg(first, second));
    return kept();
}

SOutcome typeIsTheSameInEveryThread(const SDataSubject& subject)
{
    const CNodeDataPtr data = subject.creator(1);
    const QString here = data->type().id;
    QString there;
    const QString thrown = thrownInAnotherThread([&] { there = data->type().id; });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("in another thread type() %1").arg(thrown));
    if (here != there)
        return broken(QStringLiteral("its type is \"%1\", and \"%2\" in another thread").arg(here, there));
    return kept();
}

SOutcome sameTypeComparesIds(const SDataSubject& subject)
{
    const CNodeDataPtr data = subject.creator(1);
    if (!data->sameType(*subject.creator(1)))
        return broken(QStringLiteral("sameType() of two objects of the class is false"));
    return data->sameType(CForeignData()) ? broken(QStringLiteral("sameType() with data of another type is true"))
                                          : kept();
}

SOutcome contentStaysTheSame(const SDataSubject& subject)
{
    const CNodeDataPtr data = subject.creator(1);
    const QByteArray before = checksumOf(*data, subject.options);
    if (before.isEmpty())
        return leftOut(noChecksumOf(data->type()));
    const CNodeDataPtr other = subject.creator(2);
    const QByteArray after = checksumOf(*data, subject.options);
    return before == after ? kept() : broken(QStringLiteral("its content changed when another object was made"));
}

SOutcome goesInAnyThread(const SDataSubject& subject)
{
    CNodeDataPtr data = subject.creator(1);
    thrownInAnotherThread([&] { data.reset(); }); // what fails there ends the process
    const QString thrown = thrownInAnotherThread([&] { data = subject.creator(2); });
    return brokenIf(thrown.isEmpty() ? QString() : QStringLiteral("made in another thread it %1").arg(thrown));
}

SOutcome dataLeavesNothingBehind(const SDataSubject& subject)
{
    const int count = subject.options.instances;
    const QString left = leftBehindBy(count, [&] {
        std::vector<CNodeDataPtr> all;
        all.reserve(std::size_t(count));
        for (int i = 0; i < count; ++i)
            all.push_back(subject.creator(i));
    });
    return left.isEmpty() ? kept()
                          : broken(QStringLiteral("%1 objects that came and went left %2").arg(count).arg(left));
}

const std::vector<SRule<SDataSubject>>& dataRuleTable()
{
    static const std::vector<SRule<SDataSubject>> table = {
        {"makes-data", "Each output is an object of its own, which others may keep.",
         "Return a new object at each call.", &makesData, true},
        {"type-is-complete", "Converters are found by a type's id, and captions are made of its name.",
         "Return both an id and a name from type().", &typeIsComplete},
        {"type-stays-the-same", "Ports announce the type of a class, not of an object.",
         "Return a constant from type(); write another class for another type.", &typeStaysTheSame},
        {"type-is-the-same-in-every-thread", "Data is looked at in threads of cameras and of workers.",
         "Let type() depend on nothing that belongs to a thread.", &typeIsTheSameInEveryThread},
        {"same-type-compares-ids", "Two types are the same exactly when their ids are.",
         "Leave sameType() as CNodeData has it.", &sameTypeComparesIds},
        {"content-stays-the-same", "One object reaches every consumer of a port, and some keep it.",
         "Give each object memory of its own, or share it without changing it.", &contentStaysTheSame},
        {"goes-in-any-thread", "The last pointer to an object may be dropped in any thread.",
         "Let the destructor throw nothing, and free nothing that belongs to one thread.", &goesInAnyThread},
        {"data-leaves-nothing-behind", "There is an object for each frame, hundreds in a second.",
         "Free in the destructor what the constructor took.", &dataLeavesNothingBehind},
    };
    return table;
}

} // namespace

SReport checkData(const DataCreator& creator, const SCheckOptions& options)
{
    SReport report;
    tryRules(dataRuleTable(), SDataSubject{creator, options}, &report);
    thrownBy([&] {
        const CNodeDataPtr data = creator(1);
        report.subject = data ? data->type().id : QString();
    });
    if (report.subject.isEmpty())
        report.subject = QStringLiteral("Data without a type");
    return report;
}

std::vector<SRuleInfo> dataRules()
{
    return infosOf(dataRuleTable());
}

} // namespace Plugin::Halvex::Testing
