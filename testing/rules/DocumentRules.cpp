// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Documents: what a model saves, and what it makes of any document that it gets.

#include "testing/CWatchedModel_p.h"
#include "testing/Samples_p.h"
#include "testing/rules/ModelRules_p.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/models/ANodeDataModel.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

#include <algorithm>
#include <memory>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

constexpr QLatin1String foreignKey = DocumentKeys::makeKey("halvex_testing_foreign");

// Wrong values are tried in the first ones of an array. The others are of the same kind, and may be thousands.
constexpr int mostElements = 4;

/// A document with one value that is wrong, and where.
struct SWrongDocument
{
    QString place;
    QJsonValue value;
    QJsonValue document;
};

std::vector<QJsonValue> wrongValuesFor(const QJsonValue& value)
{
    std::vector<QJsonValue> values;
    for (const QJsonValue& wrong : {QJsonValue(QJsonValue::Null), QJsonValue(true), QJsonValue(-1), QJsonValue(1e300),
                                    QJsonValue(QString()), QJsonValue(QStringLiteral("wrong")),
                                    QJsonValue(QJsonArray{1, 2}), QJsonValue(QJsonObject{{foreignKey, 1}})}) {
        if (wrong != value)
            values.push_back(wrong);
    }
    return values;
}

/// Every document that differs from \a value in one place.
std::vector<SWrongDocument> wrongDocuments(const QJsonValue& value, const QString& place)
{
    std::vector<SWrongDocument> all;
    if (!place.isEmpty()) {
        for (const QJsonValue& wrong : wrongValuesFor(value))
            all.push_back({place, wrong, wrong});
    }
    const auto descend = [&all](const QJsonValue& child, const QString& inner, const auto& withChild) {
        for (const SWrongDocument& wrong : wrongDocuments(child, inner))
            all.push_back({wrong.place, wrong.value, withChild(wrong.document)});
    };
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it)
        descend(it.value(), place.isEmpty() ? it.key() : place + QLatin1Char('.') + it.key(),
                [&](const QJsonValue& child) {
                    QJsonObject copy = object;
                    copy.insert(it.key(), child);
                    return copy;
                });
    const QJsonArray array = value.toArray();
    for (int i = 0; i < std::min(int(array.size()), mostElements); ++i)
        descend(array.at(i), QStringLiteral("%1[%2]").arg(place).arg(i), [&](const QJsonValue& child) {
            QJsonArray copy = array;
            copy.replace(i, child);
            return copy;
        });
    return all;
}

QJsonValue withForeignKeys(const QJsonValue& value)
{
    if (value.isArray()) {
        QJsonArray copy = value.toArray();
        for (QJsonValueRef element : copy)
            element = withForeignKeys(element);
        return copy;
    }
    if (!value.isObject())
        return value;
    QJsonObject copy = value.toObject();
    for (auto it = copy.begin(); it != copy.end(); ++it)
        it.value() = withForeignKeys(it.value());
    copy.insert(foreignKey, QJsonObject{{foreignKey, QStringLiteral("of a newer version")}});
    return copy;
}

/// What documents are compared by: the name has rules of its own.
QJsonObject withoutName(QJsonObject document)
{
    document.remove(QStringLiteral("name"));
    return document;
}

QJsonObject savedBy(const CNodeDataModel& model)
{
    return withoutName(throughText(model.save()));
}

/// What a new model saves that was restored from \a document.
QJsonObject savedAfter(const SModelSubject& subject, const QJsonObject& document)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    model->restore(document);
    return savedBy(*model);
}

bool takesItsDataQuietly(const SModelSubject& subject)
{
    return thrownBy([&] {
               CWatchedModel model(subject);
               if (model.lacks().isEmpty())
                   model.feed(1);
           })
        .isEmpty();
}

/// What goes wrong with \a document; empty if nothing does.
QString faultWith(const SModelSubject& subject, const QJsonObject& document, bool takesData)
{
    CWatchedModel model(subject);
    QString thrown = thrownBy([&] { model->restore(document); });
    if (!thrown.isEmpty())
        return QStringLiteral("restore() %1").arg(thrown);
    thrown = thrownBy([&] { model->save(); });
    if (!thrown.isEmpty())
        return QStringLiteral("save() %1 then").arg(thrown);
    if (takesData && model.lacks().isEmpty())
        thrown = thrownBy([&] { model.feed(1); });
    return thrown.isEmpty() ? QString() : QStringLiteral("setInData() %1 then").arg(thrown);
}

QString shownValue(const QJsonValue& value)
{
    const QString text = shown(QJsonObject{{QStringLiteral("v"), value}}); // {"v":…}
    return text.mid(5, text.size() - 6);
}

QString shownState(const QJsonValue& value)
{
    return value.isUndefined() ? QStringLiteral("is missing") : QStringLiteral("is %1").arg(shownValue(value));
}

/// The first key, or key in an object, that two documents do not have in common; empty if there is none.
QString differenceBetween(const QJsonObject& saved, const QJsonObject& again, const QString& place)
{
    QStringList keys = saved.keys() + again.keys();
    keys.removeDuplicates();
    for (const QString& key : qAsConst(keys)) {
        const QJsonValue first = saved.value(key);
        const QJsonValue second = again.value(key);
        if (first == second)
            continue;
        if (first.isObject() && second.isObject())
            return differenceBetween(first.toObject(), second.toObject(), place + key + QLatin1Char('.'));
        return QStringLiteral("\"%1\" %2 in a saved document, and %3 in what a model restored from it saves")
            .arg(place + key, shownState(first), shownState(second));
    }
    return {};
}

/// The caption, and the content of what the model gives for the same data; and why some of it cannot be told.
QStringList behaviourOf(CWatchedModel& model, const SCheckOptions& options, QString* lacking)
{
    QStringList behaviour{QStringLiteral("the caption \"%1\"").arg(model->caption())};
    *lacking = model.lacks();
    if (!lacking->isEmpty())
        return behaviour;
    model.feed(1);
    model.settle();
    for (NodePortIndex port = 0; port < model.outPorts(); ++port) {
        const CNodeDataPtr data = model->outData(port);
        const QByteArray sum = data ? checksumOf(*data, options) : QByteArray();
        if (data && sum.isEmpty())
            *lacking = noChecksumOf(data->type());
        const QString content = QStringLiteral("data of the checksum ") + QLatin1String(sum.toHex().left(16));
        behaviour << QStringLiteral("%1 on output %2").arg(data ? content : QStringLiteral("nothing")).arg(port);
    }
    return behaviour;
}

} // namespace

SOutcome savesWhatItsBaseSaves(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    const QJsonObject saved = model->save();
    QJsonObject base{{QStringLiteral("name"), model->name()}};
    if (auto* const named = dynamic_cast<ANodeDataModel*>(model.get())) {
        base.insert(QStringLiteral("is_unique"), named->isUnique());
        if (named->hasUniqueName())
            base.insert(QStringLiteral("unique_name"), named->uniqueName());
    }
    for (auto it = base.begin(); it != base.end(); ++it) {
        if (saved.value(it.key()) != it.value())
            return broken(QStringLiteral("save() gives %1, where \"%2\" should be %3")
                              .arg(shown(saved), it.key(), shownValue(it.value())));
    }
    return kept();
}

SOutcome savesWhatItRestored(const SModelSubject& subject)
{
    for (const QJsonObject& saved : {throughText(subject.creator()->save()), changedDocument(subject)}) {
        const QString difference = differenceBetween(withoutName(saved), savedAfter(subject, saved), {});
        if (!difference.isEmpty())
            return broken(difference);
    }
    return kept();
}

SOutcome restoredBehavesAlike(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    changeSettings(*model, subject.options);
    CWatchedModel restored(subject);
    restored->restore(throughText(model->save()));
    QString lacking;
    const QStringList expected = behaviourOf(model, subject.options, &lacking);
    const QStringList seen = behaviourOf(restored, subject.options, &lacking);
    for (int i = 0; i < expected.size(); ++i) {
        const QString seenThere = seen.value(i, QStringLiteral("no such output"));
        if (seenThere != expected.at(i))
            return broken(QStringLiteral("the saved model had %1, the restored one %2").arg(expected.at(i), seenThere));
    }
    return keptUnless(lacking);
}

SOutcome restoresAnEmptyDocument(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    const QJsonObject before = savedBy(*model);
    const QString thrown = thrownBy([&] { model->restore({}); });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("restore() of an empty object %1").arg(thrown));
    const QJsonObject after = savedBy(*model);
    if (after != before)
        return broken(QStringLiteral("a new model saves %1, and %2 after restore() of an empty object")
                          .arg(shown(before), shown(after)));
    return kept();
}

SOutcome restoresOverAWorkingState(const SModelSubject& subject)
{
    const QJsonObject document = changedDocument(subject);
    const QJsonObject expected = savedAfter(subject, document);
    CWatchedModel model(subject);
    const QString lacks = model.lacks();
    if (lacks.isEmpty()) {
        model.feed(1);
        model.settle();
        model.feed(2); // now it may be computing
    } else {
        model.empty();
    }
    const QString thrown = thrownBy([&] { model->restore(document); });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("restore() of a model that has worked %1").arg(thrown));
    const QJsonObject seen = savedBy(*model);
    if (seen != expected)
        return broken(QStringLiteral("restored, a new model saves %1, and one that has worked %2")
                          .arg(shown(expected), shown(seen)));
    return keptUnless(lacks);
}

SOutcome takesForeignKeys(const SModelSubject& subject)
{
    const QJsonObject document = changedDocument(subject);
    const QJsonObject expected = savedAfter(subject, document);
    QJsonObject seen;
    const QString thrown = thrownBy([&] { seen = savedAfter(subject, withForeignKeys(document).toObject()); });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("restore() of a document with unknown keys %1").arg(thrown));
    if (seen != expected)
        return broken(QStringLiteral("a model saves %1, and %2 if unknown keys were in its document")
                          .arg(shown(expected), shown(seen)));
    return kept();
}

SOutcome takesWrongTypes(const SModelSubject& subject)
{
    const bool takesData = takesItsDataQuietly(subject);
    for (const SWrongDocument& wrong : wrongDocuments(changedDocument(subject), {})) {
        const QString fault = faultWith(subject, wrong.document.toObject(), takesData);
        if (!fault.isEmpty())
            return broken(QStringLiteral("with %1 for \"%2\" %3").arg(shownValue(wrong.value), wrong.place, fault));
    }
    return kept();
}

} // namespace Plugin::Halvex::Testing
