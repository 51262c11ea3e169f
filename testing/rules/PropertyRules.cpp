// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Properties: a model's settings, as hosts see them.

#include "testing/CSignalHook_p.h"
#include "testing/CWatchedModel_p.h"
#include "testing/PropertyValues_p.h"
#include "testing/rules/ModelRules_p.h"

#include <QStringList>

#include <memory>

namespace Plugin::Halvex::Testing {

namespace {

SOutcome keptUnlessUntried(const QStringList& properties)
{
    return properties.isEmpty() ? kept()
                                : leftOut(QStringLiteral("no other value is known for \"%1\"")
                                              .arg(properties.join(QStringLiteral("\", \""))));
}

} // namespace

SOutcome propertiesSurviveSaving(const SModelSubject& subject)
{
    QStringList untried;
    for (const QMetaProperty& property : settingsOf(*subject.creator())) {
        const QString name = QString::fromLatin1(property.name());
        const std::unique_ptr<CNodeDataModel> model = subject.creator();
        if (!changeProperty(*model, property)) {
            untried << name;
            continue;
        }
        const std::unique_ptr<CNodeDataModel> restored = subject.creator();
        restored->restore(throughText(model->save()));
        const QVariant expected = property.read(model.get());
        const QVariant seen = property.read(restored.get());
        if (seen != expected)
            return broken(QStringLiteral("the property \"%1\" was saved as \"%2\" and restored as \"%3\"")
                              .arg(name, shownValue(property, expected), shownValue(property, seen)));
    }
    return keptUnlessUntried(untried);
}

SOutcome propertiesTellOfChanges(const SModelSubject& subject)
{
    QStringList untried;
    for (const QMetaProperty& property : settingsOf(*subject.creator())) {
        if (!property.hasNotifySignal())
            continue;
        const QString name = QString::fromLatin1(property.name());
        const std::unique_ptr<CNodeDataModel> model = subject.creator();
        int count = 0;
        const CSignalHook hook(*model, property.notifySignal(), [&count] { ++count; });
        if (!changeProperty(*model, property)) {
            untried << name;
            continue;
        }
        const QString signal = QString::fromLatin1(property.notifySignal().name());
        if (count == 0)
            return broken(QStringLiteral("the property \"%1\" was changed, and %2() did not come").arg(name, signal));
        count = 0;
        property.write(model.get(), property.read(model.get()));
        if (count > 0)
            return broken(
                QStringLiteral("the property \"%1\" was set to the value it had, and %2() came").arg(name, signal));
    }
    return keptUnlessUntried(untried);
}

} // namespace Plugin::Halvex::Testing
