// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageStatus.h"

#include "host/viewer/images/CElidedLabel.h"
#include "viewer/TestView.h"

#include <QTest>
#include <QTimer>

#include <algorithm>
#include <optional>

using namespace Host;

namespace {

CElidedLabel& lineCalled(const CImageStatus& status, const char* accessibleName)
{
    const auto lines = status.findChildren<CElidedLabel*>();
    const auto found = std::find_if(lines.begin(), lines.end(), [accessibleName](const CElidedLabel* line) {
        return line->accessibleName() == QLatin1String(accessibleName);
    });
    Q_ASSERT(found != lines.end());
    return **found;
}

} // namespace

class tst_CImageStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueUnderTheCursor();
    void ratesRiseAndFallToZero();
    void textThatGrowsIsNotCut();
    void ratesHaveTheLineWhileThereIsNoValue();
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
    SRenderedImage image;
    image.data = viewImage(cv::Mat(4, 4, CV_8UC1));
    status.setProbe(image, QPoint(2, 3));
    status.resize(900, 60);
    status.show();
    for (const char* const name : {"Value under the cursor", "Rates"}) {
        CElidedLabel& line = lineCalled(status, name);
        line.setLine(QStringLiteral("9.4 of 25 frames/s shown, and 12 more"));
        // Before the next layout, which comes when the window has shown it.
        QVERIFY(line.contentsRect().width() >= line.fontMetrics().horizontalAdvance(line.text()));
    }
}

void tst_CImageStatus::ratesHaveTheLineWhileThereIsNoValue()
{
    CImageStatus status;
    status.resize(240, 60);
    status.show();
    SRenderedImage image;
    image.data = viewImage(cv::Mat(4, 4, CV_8UC1));
    const CElidedLabel& rates = lineCalled(status, "Rates");
    for (const bool hasValue : {false, true, false}) {
        status.setProbe(image, hasValue ? std::optional<QPoint>(QPoint(2, 3)) : std::nullopt);
        QTRY_COMPARE(rates.width() > status.width() / 2, !hasValue);
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
