// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>
#include <QTranslator>

namespace Host {

/**
 * The language of the viewer's texts, of those that Qt brings, and of its letters: Chinese, Japanese and Korean share
 * many, each with forms of its own.
 *
 * \code
 * CLanguage language;
 * language.install(CLanguage::systemCode());
 * language.install(QStringLiteral("ja")); // every widget gets a QEvent::LanguageChange
 * \endcode
 *
 * Texts of the plugins follow CPluginHost::setLanguage(). Threads: the main thread; the QApplication exists.
 */
class CLanguage
{
public:
    CLanguage();
    ~CLanguage();
    Q_DISABLE_COPY(CLanguage)

    /// "en", "ja", "ko", "zh".
    static QStringList codes();

    /// What a language is called by those who read it: "日本語".
    static QString nativeName(const QString& code);

    /// The one of codes() that the desktop's settings ask for, English if they ask for none of these.
    static QString systemCode();

    /// One of codes(). Another one is ignored.
    void install(const QString& code);

    /// The last one that was installed; empty before.
    QString code() const { return m_code; }

private:
    QString m_code;
    QTranslator m_qtTexts;
    QTranslator m_texts; // takes itself out of the application
};

} // namespace Host
