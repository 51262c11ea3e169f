// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageStatus.h"

#include "host/viewer/images/CElidedLabel.h"
#include "viewer/TestView.h"

#include <QGridLayout>
#include <QTest>
#include <QTimer>

using namespace Host;

class tst_CImageStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueUnderTheCursor();
    void ratesRiseAndFallToZero();
    void textThatGrowsIsNotCut();
    void messageStaysUntilTheNext();
};

void tst_CImageStatus::valueUnderTheCursor()
{
    CImageStatus status;
    SRenderedImage image;
    image.data = viewImage(cv::Mat(4, 4, CV_16UC1, cv::Scalar(3071 * 16)), 12);
    status.setProbe(image, QPoint(2, 3));
    QCOMPARE(status.probeText(), QStringLiteral("x 2  y 3: 3071"));
    // Red comes first, as people say it.
    image.data = viewImage(cv::Mat(4, 4, CV_8UC3, cv::Scalar(10, 20, 30)));
    status.setProbe(image, QPoint(2, 3));
    QCOMPARE(status.probeText(), QStringLiteral("x 2  y 3: 30 / 20 / 10"));
    status.setProbe(image, {});
    QCOMPARE(status.probeText(), QString());
    status.setProbe({}, QPoint(2, 3));
    QCOMPARE(status.probeText(), QString());
}

void tst_CImageStatus::ratesRiseAndFallToZero()
{
    CImageStatus status;
    QCOMPARE(status.ratesText(), QStringLiteral("0 of 0 frames/s shown"));
    quint64 delivered = 0;
    QTRY_VERIFY_WITH_TIMEOUT(
        (status.setCounts(delivered / 2, delivered + 4), delivered += 4, status.deliveredRate() > 1.0), 5000);
    QVERIFY(status.ratesText() != QStringLiteral("0 of 0 frames/s shown"));
    QTRY_COMPARE(status.ratesText(), QStringLiteral("0 of 0 frames/s shown"));
    QTRY_VERIFY(status.deliveredRate() == 0.0);
}

void tst_CImageStatus::textThatGrowsIsNotCut()
{
    CImageStatus status;
    status.resize(900, 60);
    status.show();
    const auto* const layout = qobject_cast<QGridLayout*>(status.layout());
    for (const int column : {0, 1}) {
        auto* const line = qobject_cast<CElidedLabel*>(layout->itemAtPosition(0, column)->widget());
        line->setLine(QStringLiteral("9.4 of 25 frames/s shown, and 12 more"));
        // Before the next layout, which comes when the window has shown it.
        QVERIFY(line->contentsRect().width() >= line->fontMetrics().horizontalAdvance(line->text()));
    }
}

void tst_CImageStatus::messageStaysUntilTheNext()
{
    CImageStatus status;
    status.setMessage(QStringLiteral("Saved /a/b.png"));
    QCOMPARE(status.messageText(), QStringLiteral("Saved /a/b.png"));
    status.setMessage({});
    QCOMPARE(status.messageText(), QString());
}

QTEST_MAIN(tst_CImageStatus)
#include "tst_CImageStatus.moc"
