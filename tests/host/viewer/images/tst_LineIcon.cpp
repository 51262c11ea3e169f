// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/LineIcon.h"

#include <QPixmap>
#include <QTest>

using namespace Host;

class tst_LineIcon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyShapeIsDrawnInItsOwnWay();
    void disabledLooksOtherwise();
};

void tst_LineIcon::everyShapeIsDrawnInItsOwnWay()
{
    std::vector<QImage> seen;
    for (int shape = 0; shape <= int(ELineIcon::Stop); ++shape) {
        const QImage image = lineIcon(ELineIcon(shape)).pixmap(32, 32).toImage();
        QCOMPARE(image.size(), QSize(32, 32));
        for (const QImage& other : seen)
            QVERIFY(image != other);
        seen.push_back(image);
    }
}

void tst_LineIcon::disabledLooksOtherwise()
{
    const QIcon icon = lineIcon(ELineIcon::Fit);
    QVERIFY(icon.pixmap(32, 32, QIcon::Disabled).toImage() != icon.pixmap(32, 32).toImage());
}

QTEST_MAIN(tst_LineIcon)
#include "tst_LineIcon.moc"
