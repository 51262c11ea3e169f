// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/AGraphStep.h"

#include "edit/SEditedScene.h"
#include "host/viewer/base/CLanguage.h"

#include <QTest>

using namespace Host;

namespace {

/// What a step of each kind is called once \a laterLanguage is chosen.
QStringList stepsIn(const QString& laterLanguage)
{
    const SEditedScene edited;
    CGraphEditor& editor = *edited.editor;
    const Core::CId blur = edited.add("Blur");
    edited.connectNodes(edited.camera, blur);
    editor.setSetting(blur, QStringLiteral("method"), QStringLiteral("Median"));
    editor.moveNodes({{blur.toString(), {400, 40}}});
    editor.duplicate({blur}, {0, 80});
    editor.remove({blur}, {});
    CLanguage language;
    language.install(laterLanguage);
    editor.retranslateSteps();
    QStringList texts;
    for (int i = 0; i < edited.stack().count(); ++i)
        texts << edited.stack().text(i);
    return texts;
}

} // namespace

class tst_AGraphStep : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isCalledByItsNameInTheLanguageOfTheMoment();
};

void tst_AGraphStep::isCalledByItsNameInTheLanguageOfTheMoment()
{
    const QStringList english = stepsIn(QStringLiteral("en"));
    const QStringList changed = stepsIn(QStringLiteral("ja"));
    CLanguage language;
    language.install(QStringLiteral("ja"));
    QCOMPARE(changed, stepsIn(QStringLiteral("ja")));
    QCOMPARE(changed.size(), 6);
    for (int i = 0; i < changed.size(); ++i)
        QVERIFY2(changed[i] != english[i] && !changed[i].contains(QLatin1String("Blur")), qPrintable(changed[i]));
}

QTEST_MAIN(tst_AGraphStep)
#include "tst_AGraphStep.moc"
