// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/ModelText.h"

#include "SHostService.h"
#include "TestTable.h"
#include "host/models/CBlurModel.h"
#include "host/models/ModelSettings.h"
#include "host/sinks/CPngSinkModel.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/edit/CSettingField.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/images/ViewModels.h"

#include <QTest>
#include <QTranslator>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QStringList textsOf(const QObject& model)
{
    QStringList texts;
    for (const SModelSetting& setting : settingsOf(model)) {
        texts << wordsOf(setting.name) << setting.help;
        const QStringList choices = setting.type == "one of" ? setting.range.split(", ") : QStringList();
        for (const QString& choice : choices)
            texts << wordsOf(choice);
    }
    return texts;
}

} // namespace

class tst_ModelText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextOfAModelIsKnown_data();
    void everyTextOfAModelIsKnown();
    void textsInTheLanguage();
    void writesNamesAsWords();
    void messageByItselfHasACapital();
    void toolTipShowsTagsAsTheyStand();
    void captionsInTheLanguage();
    void namesOfAPersonStay();
};

void tst_ModelText::everyTextOfAModelIsKnown_data()
{
    addColumns<QString>({"text"});
    SHostService service;
    registerViewModels(service.nodes, service.models);
    const auto registry = service.nodes.registry();
    QStringList texts;
    for (const auto& entry : registry->registeredModelCreators()) {
        const auto model = registry->create(entry.first);
        texts << entry.first << registry->registeredModelsCategoryAssociation().at(entry.first) << textsOf(*model);
        const bool isTranslated = qobject_cast<CNodeDecouplerDataModelBase*>(model.get()) || // by its own library
                                  qobject_cast<CViewModel*>(model.get());
        if (!isTranslated)
            texts << model->caption();
    }
    texts.removeAll({});
    texts.removeDuplicates();
    QVERIFY(texts.contains("Gaussian"));
    for (const QString& text : qAsConst(texts))
        addRow(qPrintable(text), text);
}

// The texts stand in the models and once more for the translators.
void tst_ModelText::everyTextOfAModelIsKnown()
{
    QFETCH(QString, text);
    const CLanguage language; // has the translations
    QTranslator japanese;
    QVERIFY(japanese.load("HalvexViewer_ja", ":/translation"));
    QVERIFY(!japanese.translate("Host::ModelText", text.toUtf8().constData()).isNull());
}

void tst_ModelText::textsInTheLanguage()
{
    CLanguage language;
    language.install("ja");
    QVERIFY(modelText("Blur") != "Blur");
    QVERIFY(modelText("PNG files: edges").endsWith(": edges"));
    QVERIFY(!modelText("PNG files: edges").startsWith("PNG files"));
    QCOMPARE(modelText("Of somebody else"), QString("Of somebody else"));
    QCOMPARE(modelText("a: b: c"), QString("a: b: c"));
    QCOMPARE(modelText({}), QString());
    language.install("en");
    QCOMPARE(modelText("PNG files: edges"), QString("PNG files: edges"));
}

void tst_ModelText::captionsInTheLanguage()
{
    CLanguage language;
    language.install("ja");
    CBlurModel blur;
    QCOMPARE(captionText(blur), modelText("Blur"));
    CPngSinkModel sink;
    QCOMPARE(captionText(sink), modelText("PNG files"));
    CViewModel view;
    QCOMPARE(captionText(view), view.caption());
}

void tst_ModelText::namesOfAPersonStay()
{
    CLanguage language;
    language.install("ja");
    CViewModel view;
    for (const char* const name : {"Edges", "Camera", "PNG files: edges"}) {
        view.setViewName(name);
        QCOMPARE(captionText(view), QString(name));
    }
}

void tst_ModelText::writesNamesAsWords()
{
    QCOMPARE(wordsOf(QStringLiteral("framesPerSecond")), QStringLiteral("Frames per second"));
    QCOMPARE(wordsOf(QStringLiteral("NewestWins")), QStringLiteral("Newest wins"));
    QCOMPARE(wordsOf(QString()), QString());
}

void tst_ModelText::messageByItselfHasACapital()
{
    QCOMPARE(asSentence("cannot import"), QString("Cannot import"));
    QCOMPARE(asSentence(QString()), QString());
}

void tst_ModelText::toolTipShowsTagsAsTheyStand()
{
    QCOMPARE(asToolTip("a < b\nc"), QString("a < b\nc"));
    QVERIFY(asToolTip("<b>name</b>").contains("&lt;b&gt;name"));
}

QTEST_MAIN(tst_ModelText)
#include "tst_ModelText.moc"
