// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CLanguage.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QLocale>

#include <algorithm>
#include <iterator>

// Outside of any namespace, as Qt wants it: the resource is in a static library, which is asked for it by name.
static void initTranslations()
{
    Q_INIT_RESOURCE(HalvexHostViewer_translations);
}

namespace Host {

namespace {

#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
// The best first. The desktop's own choice is for the desktop's language, and may take every letter of a word from
// another font.
QStringList fontsOf(const QString& code)
{
    if (code == QLatin1String("ja"))
        return {QStringLiteral("Noto Sans CJK JP"), QStringLiteral("IPAexGothic"), QStringLiteral("VL Gothic"),
                QStringLiteral("Droid Sans Fallback")};
    if (code == QLatin1String("ko"))
        return {QStringLiteral("Noto Sans CJK KR"), QStringLiteral("NanumGothic"), QStringLiteral("UnDotum")};
    if (code == QLatin1String("zh"))
        return {QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei"),
                QStringLiteral("WenQuanYi Zen Hei"), QStringLiteral("Droid Sans Fallback")};
    return {};
}

// The desktop's font, and for letters that it has not the language's.
void installFonts(const QString& code)
{
    static const QFont desktops = QApplication::font();
    const QStringList wanted = fontsOf(code);
    const QStringList installed = wanted.isEmpty() ? QStringList() : QFontDatabase().families();
    // By its real name: of several families Qt takes the first that has the very name.
    QStringList families{QFontInfo(desktops).family()};
    std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(families),
                 [&installed](const QString& family) { return installed.contains(family); });
    QFont font = desktops;
    if (families.size() > 1)
        font.setFamilies(families);
    if (font != QApplication::font())
        QApplication::setFont(font);
}
#else
void installFonts(const QString&) {} // a font has one family
#endif

} // namespace

CLanguage::CLanguage()
{
    initTranslations();
}

CLanguage::~CLanguage() = default;

QStringList CLanguage::codes()
{
    return {QStringLiteral("en"), QStringLiteral("ja"), QStringLiteral("ko"), QStringLiteral("zh")};
}

QString CLanguage::nativeName(const QString& code)
{
    if (code == QLatin1String("ja"))
        return QStringLiteral("日本語");
    if (code == QLatin1String("ko"))
        return QStringLiteral("한국어");
    if (code == QLatin1String("zh"))
        return QStringLiteral("中文");
    return QStringLiteral("English");
}

QString CLanguage::systemCode()
{
    const QStringList asked = QLocale::system().uiLanguages();
    for (const QString& language : asked) {
        const QString code = language.left(2);
        if (codes().contains(code))
            return code;
    }
    return QStringLiteral("en");
}

void CLanguage::install(const QString& code)
{
    if (code == m_code || !codes().contains(code))
        return;
    m_code = code;
    // Taken out first: a translator that is installed and loads anew tells nobody of it.
    QCoreApplication::removeTranslator(&m_qtTexts);
    QCoreApplication::removeTranslator(&m_texts);
    const QString qtFolder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    const QString qtCode = code == QLatin1String("zh") ? QStringLiteral("zh_CN") : code;
    // Without Qt's own texts the buttons of its dialogs stay English.
    if (m_qtTexts.load(QStringLiteral("qtbase_%1").arg(qtCode), qtFolder))
        QCoreApplication::installTranslator(&m_qtTexts);
    if (m_texts.load(QStringLiteral("HalvexViewer_%1").arg(code), QStringLiteral(":/translation")))
        QCoreApplication::installTranslator(&m_texts);
    installFonts(code);
}

} // namespace Host
