// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/GraphColors.h"

#include "host/base/NodeKind.h"
#include "host/viewer/base/Theme.h"

#include <QTest>

using namespace Host;

class tst_GraphColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textCanBeRead_data();
    void textCanBeRead();
    void aTypeHasOneColour();
};

namespace {

QPalette paletteOf(const QColor& base, const QColor& text)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

} // namespace

void tst_GraphColors::textCanBeRead_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("the program's light") << lightPalette();
    QTest::newRow("the program's dark") << darkPalette();
    QTest::newRow("light") << paletteOf(Qt::white, Qt::black);
    QTest::newRow("dark") << paletteOf(QColor(30, 30, 32), QColor(230, 230, 230));
    QTest::newRow("darker") << paletteOf(Qt::black, Qt::white);
}

void tst_GraphColors::textCanBeRead()
{
    QFETCH(const QPalette, palette);
    const SGraphColors colors = graphColors(palette);
    for (const QColor& text : {colors.text, colors.dimText, colors.warning, colors.error, colors.busy})
        QVERIFY2(contrast(text, colors.node) >= leastContrast, qPrintable(text.name()));
    QVERIFY(contrast(colors.dimText, colors.canvas) >= leastContrast); // of connections
    for (const ENodeKind kind : {ENodeKind::Source, ENodeKind::Filter, ENodeKind::Decoupler, ENodeKind::Sink})
        QVERIFY2(contrast(kindColor(kind, palette), colors.node) >= 3, qPrintable(kindName(kind)));
    for (const ENodeKind kind : {ENodeKind::Source, ENodeKind::Filter, ENodeKind::Decoupler, ENodeKind::Sink}) {
        for (const QColor& text : {colors.text, colors.dimText})
            QVERIFY2(contrast(text, headColor(kind, palette)) >= leastContrast, qPrintable(kindName(kind)));
    }
}

void tst_GraphColors::aTypeHasOneColour()
{
    const QPalette palette;
    QCOMPARE(typeColor(QStringLiteral("Veltra Grab Result"), palette),
             typeColor(QStringLiteral("Veltra Grab Result"), palette));
    QVERIFY(typeColor(QString(), palette).isValid());
}

QTEST_GUILESS_MAIN(tst_GraphColors)
#include "tst_GraphColors.moc"
