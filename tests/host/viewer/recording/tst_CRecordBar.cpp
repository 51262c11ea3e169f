// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/CRecordBar.h"

#include "host/viewer/base/Theme.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/recording/CRecorder.h"
#include "viewer/TestView.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Host;

namespace {

struct SBar
{
    QTemporaryDir parent;
    CViewModel view;
    CRecorder recorder{view};
    CRecordBar bar{recorder};
};

} // namespace

class tst_CRecordBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hiddenBeforeTheFirstRecording();
    void countsAreTold();
    void errorIsTold();
    void colorFollowsThePalette();
};

void tst_CRecordBar::hiddenBeforeTheFirstRecording()
{
    const SBar shown;
    QVERIFY(shown.bar.isHidden());
}

void tst_CRecordBar::countsAreTold()
{
    SBar shown;
    QVERIFY(shown.recorder.start(CRecorder::EKind::Png, shown.parent.path(), 30.0));
    QVERIFY(!shown.bar.isHidden());
    QCOMPARE(shown.bar.stateMessage(), QStringLiteral("Recording"));
    QCOMPARE(shown.bar.detailText(), shown.recorder.folder());
    for (int i = 0; i < 3; ++i)
        shown.view.setInData(viewImage(rampImage()), 0);
    QTRY_COMPARE(shown.bar.countsText(), QStringLiteral("3 received · 3 written · 0 dropped"));
    shown.recorder.stop();
    QTRY_COMPARE(shown.bar.stateMessage(), QStringLiteral("Recorded"));
    QCOMPARE(shown.bar.countsText(), QStringLiteral("3 received · 3 written · 0 dropped"));
    QTRY_VERIFY(!shown.bar.findChild<QTimer*>()->isActive());
    auto* const close = shown.bar.findChild<QToolButton*>();
    QVERIFY(!close->isHidden());
    close->click();
    QVERIFY(shown.bar.isHidden());
}

void tst_CRecordBar::errorIsTold()
{
    SBar shown;
    QVERIFY(!shown.recorder.start(CRecorder::EKind::Png, {}, 30.0));
    QVERIFY(!shown.bar.isHidden());
    QCOMPARE(shown.bar.detailText(), shown.recorder.error());
    QVERIFY(!shown.bar.detailText().isEmpty());
}

void tst_CRecordBar::colorFollowsThePalette()
{
    SBar shown;
    const auto* const dot = shown.bar.findChild<QLabel*>(QStringLiteral("recordingDot"));
    QVERIFY(dot);
    for (const QPalette& palette : {darkPalette(), lightPalette()}) {
        shown.bar.setPalette(palette);
        QCOMPARE(dot->palette().color(QPalette::WindowText), recordColor(palette));
    }
}

QTEST_MAIN(tst_CRecordBar)
#include "tst_CRecordBar.moc"
