// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CMessageLabel.h"

#include <QTest>

using namespace Host;

class tst_CMessageLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hiddenWhileItIsEmpty();
    void longNamesAreBroken();
};

void tst_CMessageLabel::hiddenWhileItIsEmpty()
{
    CMessageLabel label;
    QVERIFY(label.isHidden());
    label.setMessage(QStringLiteral("a"));
    QVERIFY(!label.isHidden());
    QCOMPARE(label.message(), QStringLiteral("a"));
    label.setMessage({});
    QVERIFY(label.isHidden());
}

void tst_CMessageLabel::longNamesAreBroken()
{
    CMessageLabel label;
    label.setMessage(QStringLiteral("Saved /some/folder/with/a/name/that/is/longer/than/a/line/image-000012.png"));
    QVERIFY(label.heightForWidth(120) > 3 * label.fontMetrics().height());
}

QTEST_MAIN(tst_CMessageLabel)
#include "tst_CMessageLabel.moc"
