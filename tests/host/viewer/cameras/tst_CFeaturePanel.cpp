// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeaturePanel.h"

#include "SHostService.h"
#include "TestCameras.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CFeatureEditor.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace Host;

namespace {

struct SPanel
{
    SPanel()
    {
        panel.setSession(&session);
        session.open();
    }

    bool isFilled() const { return panel.editor("Width") != nullptr; }

    QStringList shownFeatures() const
    {
        const QAbstractItemModel& model = *panel.view().model();
        QStringList names;
        for (int i = 0; i < model.rowCount(); ++i) {
            const QModelIndex category = model.index(i, 0);
            for (int j = 0; j < model.rowCount(category); ++j)
                names << model.index(j, 0, category).data().toString();
        }
        return names;
    }

    QDoubleSpinBox* number(const QString& feature) const { return panel.editor(feature)->findChild<QDoubleSpinBox*>(); }

    SHostService service;
    CCameraSession session{camera("fake-1"), service.nodes, service.models};
    CFeaturePanel panel;
};

} // namespace

class tst_CFeaturePanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutACamera();
    void categoriesAndWidgets();
    void changeComesBackFromTheCamera();
    void refusalIsTold();
    void search();
    void widgetsStayWhenFeaturesAreReadAgain();
    void halfTypedValueIsSentToNoCamera();
    void featuresAreReadOnceHoweverOftenChosen();
    void sessionThatGoes();
};

void tst_CFeaturePanel::withoutACamera()
{
    CFeaturePanel panel;
    QCOMPARE(panel.view().model()->rowCount(), 0);
    QVERIFY(!panel.view().isEnabled());
    QVERIFY(!panel.findChild<QLabel*>()->text().isEmpty());
}

void tst_CFeaturePanel::categoriesAndWidgets()
{
    SPanel test;
    QTRY_VERIFY(test.isFilled());
    QVERIFY(test.panel.view().isEnabled());
    QVERIFY(test.shownFeatures().contains("Width"));
    QVERIFY(test.number("Width"));
    QVERIFY(test.panel.editor("PixelFormat")->findChild<QComboBox*>());
    QVERIFY(!test.panel.editor("DeviceModelName")->findChild<QLineEdit*>()->isEnabled());
}

void tst_CFeaturePanel::changeComesBackFromTheCamera()
{
    SPanel test;
    QTRY_VERIFY(test.isFilled());
    auto* const width = test.number("Width");
    QCOMPARE(width->value(), 512.0);
    width->selectAll();
    QTest::keyClicks(width, "256");
    QTest::keyClick(width, Qt::Key_Return);
    // What is worked out of the width follows.
    QTRY_COMPARE(test.number("PayloadSize")->value(), 256.0 * 512.0);
    QCOMPARE(test.number("Width")->value(), 256.0);
}

void tst_CFeaturePanel::refusalIsTold()
{
    SPanel test;
    QTRY_VERIFY(test.isFilled());
    test.session.setFeature("Width", "100000");
    QTRY_VERIFY(test.panel.findChild<QLabel*>()->text().contains("Width"));
}

void tst_CFeaturePanel::search()
{
    SPanel test;
    QTRY_VERIFY(test.isFilled());
    const QStringList all = test.shownFeatures();
    auto* const line = test.panel.findChild<QLineEdit*>("featureSearch");
    QTest::keyClicks(line, "gain");
    const QStringList found = test.shownFeatures();
    QVERIFY(found.contains("GainRaw"));
    QCOMPARE(found, all.filter("gain", Qt::CaseInsensitive));
    QVERIFY(test.panel.editor("GainRaw"));
    QVERIFY(!test.panel.editor("Width"));

    line->clear();
    QCOMPARE(test.shownFeatures(), all);
    QCOMPARE(test.number("Width")->value(), 512.0);
}

void tst_CFeaturePanel::widgetsStayWhenFeaturesAreReadAgain()
{
    SPanel test;
    QTRY_VERIFY(test.isFilled());
    const CFeatureEditor* const before = test.panel.editor("GainRaw");
    test.session.setFeature("GainRaw", "3");
    QTRY_COMPARE(test.number("GainRaw")->value(), 3.0);
    QCOMPARE(test.panel.editor("GainRaw"), before);
}

void tst_CFeaturePanel::halfTypedValueIsSentToNoCamera()
{
    SPanel test;
    CCameraSession other(camera("fake-2"), test.service.nodes, test.service.models);
    other.open();
    QTRY_VERIFY(test.isFilled());
    QTRY_VERIFY(other.isOpen());
    test.panel.show();
    test.panel.activateWindow();
    auto* const width = test.number("Width");
    width->setFocus();
    QTRY_VERIFY(width->hasFocus());
    width->selectAll();
    QTest::keyClicks(width, "256");

    for (CCameraSession* const session : {&other, &test.session}) {
        test.panel.setSession(session);
        QTRY_VERIFY(test.isFilled());
        // What would have been sent would have been so before.
        session->setFeature("GainRaw", "3");
        QTRY_COMPARE(test.number("GainRaw")->value(), 3.0);
        QCOMPARE(test.number("Width")->value(), 512.0);
    }
}

void tst_CFeaturePanel::featuresAreReadOnceHoweverOftenChosen()
{
    SHostService service;
    CCameraSession session(camera("fake-1"), service.nodes, service.models);
    CFeaturePanel panel;
    for (int i = 0; i < 3; ++i) {
        panel.setSession(nullptr);
        panel.setSession(&session);
    }
    QSignalSpy reads(&session, &CCameraSession::featuresRead);
    int readsBeforeError = -1;
    connect(&session, &CCameraSession::changed, this, [&] {
        if (readsBeforeError < 0 && !session.error().isEmpty())
            readsBeforeError = reads.count();
    });
    session.open();
    QTRY_VERIFY(session.isOpen());
    session.setFeature("Width", "100000"); // refused after all that was asked for before
    QTRY_COMPARE(readsBeforeError, 1);
}

void tst_CFeaturePanel::sessionThatGoes()
{
    SHostService service;
    CFeaturePanel panel;
    auto session = std::make_unique<CCameraSession>(camera("fake-1"), service.nodes, service.models);
    panel.setSession(session.get());
    session->open();
    QTRY_VERIFY(panel.editor("Width"));
    session.reset();
    panel.setSession(nullptr);
    QVERIFY(!panel.editor("Width"));
}

QTEST_MAIN(tst_CFeaturePanel)
#include "tst_CFeaturePanel.moc"
