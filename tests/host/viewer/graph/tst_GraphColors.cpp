// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/GraphColors.h"

#include "host/base/NodeKind.h"

#include <QTest>

#include <algorithm>
#include <cmath>

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

double channel(double value)
{
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) + 0.0722 * channel(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double left = luminance(one) + 0.05;
    const double right = luminance(other) + 0.05;
    return std::max(left, right) / std::min(left, right);
}

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
    QTest::newRow("light") << paletteOf(Qt::white, Qt::black);
    QTest::newRow("dark") << paletteOf(QColor(30, 30, 32), QColor(230, 230, 230));
    QTest::newRow("darker") << paletteOf(Qt::black, Qt::white);
}

void tst_GraphColors::textCanBeRead()
{
    QFETCH(const QPalette, palette);
    const SGraphColors colors = graphColors(palette);
    for (const QColor& text : {colors.text, colors.dimText, colors.warning, colors.error, colors.busy})
        QVERIFY2(contrast(text, colors.node) >= 4.5, qPrintable(text.name()));
    QVERIFY(contrast(colors.dimText, colors.canvas) >= 4.5); // of connections
    for (const ENodeKind kind : {ENodeKind::Source, ENodeKind::Filter, ENodeKind::Decoupler, ENodeKind::Sink})
        QVERIFY2(contrast(kindColor(kind, palette), colors.node) >= 3, qPrintable(kindName(kind)));
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
