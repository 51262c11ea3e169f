// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/ModelNames.h"

#include "SHostService.h"
#include "host/models/CBlurModel.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_ModelNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sortedByCategory();
    void textsAreCopies();
};

void tst_ModelNames::sortedByCategory()
{
    CNodeService service(nullptr);
    CNodeDataModelRegistry& registry = *service.registry();
    registerHostModels(service);
    const auto names = modelNames(registry);
    QCOMPARE(names.size(), registry.registeredModelsCategoryAssociation().size());
    QVERIFY(std::is_sorted(names.begin(), names.end()));
    const auto isBlur = [](const auto& each) { return each.second == QLatin1String("Blur"); };
    const auto blur = std::find_if(names.begin(), names.end(), isBlur);
    QVERIFY(blur != names.end());
    QCOMPARE(blur->first, registry.registeredModelsCategoryAssociation().at(QStringLiteral("Blur")));
}

// A text of a plugin may lie in its code, which goes with it.
void tst_ModelNames::textsAreCopies()
{
    CNodeService service(nullptr);
    CNodeDataModelRegistry& registry = *service.registry();
    registry.registerModel<CBlurModel>(QStringLiteral("Tests"));
    const auto& kept = *registry.registeredModelsCategoryAssociation().begin();
    const auto names = modelNames(registry);
    QCOMPARE(names.size(), std::size_t(1));
    QCOMPARE(names[0].first, QStringLiteral("Tests"));
    QVERIFY(names[0].first.constData() != kept.second.constData());
    QVERIFY(names[0].second.constData() != kept.first.constData());
}

QTEST_GUILESS_MAIN(tst_ModelNames)
#include "tst_ModelNames.moc"
