// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/Theme.h"

#include <QTest>

using namespace Host;

Q_DECLARE_METATYPE(QPalette)

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contrastOfKnownColors();
    void accentsCanBeRead_data();
    void accentsCanBeRead();
    void textsCanBeRead();
    void darkness();
};

void tst_Theme::contrastOfKnownColors()
{
    QCOMPARE(contrast(Qt::black, Qt::black), 1.0);
    QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
    // The grey that is known to be just readable on white.
    QVERIFY(qAbs(contrast(QColor(0x76, 0x76, 0x76), Qt::white) - 4.54) < 0.01);
}

void tst_Theme::accentsCanBeRead_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << lightPalette();
    QTest::newRow("dark") << darkPalette();
    QTest::newRow("white on black") << QPalette(Qt::white, Qt::black, Qt::gray, Qt::darkGray, Qt::gray, Qt::white,
                                                Qt::white, Qt::black, Qt::black);
}

void tst_Theme::accentsCanBeRead()
{
    QFETCH(QPalette, palette);
    QVERIFY(contrast(recordColor(palette), palette.color(QPalette::Window)) >= leastContrast);
    for (const EAccent accent : {EAccent::Good, EAccent::Warning, EAccent::Error, EAccent::Active}) {
        const QColor color = accentColor(accent, palette);
        QVERIFY(contrast(color, palette.color(QPalette::Window)) >= leastContrast);
        QVERIFY(contrast(color, palette.color(QPalette::Base)) >= leastContrast);
    }
}

void tst_Theme::textsCanBeRead()
{
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const auto pair = [&palette](QPalette::ColorRole text, QPalette::ColorRole ground) {
            return contrast(palette.color(text), palette.color(ground));
        };
        QVERIFY(pair(QPalette::WindowText, QPalette::Window) >= leastContrast);
        QVERIFY(pair(QPalette::Text, QPalette::Base) >= leastContrast);
        QVERIFY(pair(QPalette::ButtonText, QPalette::Button) >= leastContrast);
        QVERIFY(pair(QPalette::HighlightedText, QPalette::Highlight) >= leastContrast);
        QVERIFY(pair(QPalette::Link, QPalette::Base) >= leastContrast);
        QVERIFY(pair(QPalette::Text, QPalette::AlternateBase) >= leastContrast);
        QVERIFY(pair(QPalette::ToolTipText, QPalette::ToolTipBase) >= leastContrast);
        QVERIFY(pair(QPalette::PlaceholderText, QPalette::Base) >= leastContrast);
        // Of what cannot be changed, the value is to be read all the same.
        const QColor disabled = palette.color(QPalette::Disabled, QPalette::Text);
        QVERIFY(contrast(disabled, palette.color(QPalette::Base)) >= leastContrast);
        QVERIFY(contrast(disabled, palette.color(QPalette::Window)) >= leastContrast);
    }
}

void tst_Theme::darkness()
{
    QVERIFY(isDark(darkPalette()));
    QVERIFY(!isDark(lightPalette()));
}

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
