// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CElidedLabel.h"

#include <QTest>

using namespace Host;

class tst_CElidedLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksForNoWidth();
    void whatDoesNotFitIsCut();
};

void tst_CElidedLabel::asksForNoWidth()
{
    CElidedLabel label;
    label.setLine(QString(200, QLatin1Char('x')));
    QCOMPARE(label.minimumSizeHint().width(), 0);
    QVERIFY(label.sizeHint().width() > 200);
    QCOMPARE(label.toolTip(), label.text());
}

void tst_CElidedLabel::whatDoesNotFitIsCut()
{
    CElidedLabel label;
    label.setLine(QStringLiteral("mmmmmmmmmmmmmmmmmmmm"));
    label.resize(60, 20);
    const QImage cut = label.grab().toImage();
    label.setLine(QStringLiteral("mmmmmmmmmmmmmmmmmmmmmmm"));
    QCOMPARE(label.grab().toImage(), cut);
}

QTEST_MAIN(tst_CElidedLabel)
#include "tst_CElidedLabel.moc"
