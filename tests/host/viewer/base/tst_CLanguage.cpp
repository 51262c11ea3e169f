// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CLanguage.h"

#include "host/check/CShapeCheck.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QTest>
#include <QWidget>

using namespace Host;

namespace {

class CListener : public QWidget
{
public:
    int changes = 0;

protected:
    void changeEvent(QEvent* event) override { changes += event->type() == QEvent::LanguageChange ? 1 : 0; }
};

} // namespace

class tst_CLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void systemLanguageIsOneOfOurs();
    void everyLanguageHasTexts();
    void titlesOfSchemasAreTranslated();
    void widgetsHearOfAChange();
    void unknownLanguageIsIgnored();
    void textsGoWithTheObject();
    void lettersAreOfFontsThatAreThere();
};

namespace {

QString runText()
{
    return QCoreApplication::translate("Host::CCameraPanel", "Disconnect");
}

// Of everything that a schema describes.
QStringList titlesIn(const QJsonValue& schema)
{
    QStringList titles;
    if (schema.toObject().value(QLatin1String("title")).isString())
        titles << schema.toObject().value(QLatin1String("title")).toString();
    const QVariantList members =
        schema.isArray() ? schema.toArray().toVariantList() : schema.toObject().toVariantMap().values();
    for (const QVariant& member : members)
        titles << titlesIn(QJsonValue::fromVariant(member));
    return titles;
}

} // namespace

void tst_CLanguage::systemLanguageIsOneOfOurs()
{
    QVERIFY(CLanguage::codes().contains(CLanguage::systemCode()));
}

void tst_CLanguage::everyLanguageHasTexts()
{
    CLanguage language;
    QSet<QString> texts;
    const auto allCodes = CLanguage::codes();
    for (const QString& code : allCodes) {
        language.install(code);
        QCOMPARE(language.code(), code);
        texts.insert(runText());
        QVERIFY(!CLanguage::nativeName(code).isEmpty());
    }
    QCOMPARE(texts.size(), CLanguage::codes().size());
}

void tst_CLanguage::titlesOfSchemasAreTranslated()
{
    CLanguage language;
    language.install(QStringLiteral("ja"));
    const QStringList titles =
        titlesIn(shippedSchema(QStringLiteral("chain"))) + titlesIn(shippedSchema(QStringLiteral("scene")));
    QVERIFY(titles.size() > 10);
    for (const QString& title : titles)
        QVERIFY2(QCoreApplication::translate("Host::SchemaTitle", title.toUtf8().constData()) != title,
                 qPrintable(title));
}

void tst_CLanguage::widgetsHearOfAChange()
{
    CLanguage language;
    language.install("en");
    CListener listener;
    listener.show();
    QCoreApplication::sendPostedEvents();
    listener.changes = 0;
    language.install("ko");
    QTRY_VERIFY(listener.changes > 0);
    listener.changes = 0;
    language.install("ko");
    QCoreApplication::sendPostedEvents();
    QCOMPARE(listener.changes, 0);
}

void tst_CLanguage::unknownLanguageIsIgnored()
{
    CLanguage language;
    language.install("ja");
    const QString text = runText();
    language.install("xx");
    QCOMPARE(language.code(), QString("ja"));
    QCOMPARE(runText(), text);
}

void tst_CLanguage::textsGoWithTheObject()
{
    {
        CLanguage language;
        language.install("zh");
        QVERIFY(runText() != "Disconnect");
    }
    QCOMPARE(runText(), QString("Disconnect"));
}

void tst_CLanguage::lettersAreOfFontsThatAreThere()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    const QString desktops = QFontInfo(QApplication::font()).family();
    const QStringList installed = QFontDatabase().families();
    CLanguage language;
    const auto codes = CLanguage::codes();
    for (const QString& code : codes) {
        language.install(code);
        QCOMPARE(QFontInfo(QApplication::font()).family(), desktops);
        const QStringList families = QApplication::font().families().mid(1);
        QVERIFY(code != "en" || families.isEmpty());
        for (const QString& family : families)
            QVERIFY2(installed.contains(family), qPrintable(family));
        const QString forChinese = QStringLiteral("Droid Sans Fallback");
        QCOMPARE(families.contains(forChinese), (code == "ja" || code == "zh") && installed.contains(forChinese));
    }
#else
    QSKIP("A font has one family.");
#endif
}

QTEST_MAIN(tst_CLanguage)
#include "tst_CLanguage.moc"
