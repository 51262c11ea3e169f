// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeatureEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Host;

namespace {

SFeature feature(const char* type, const char* value)
{
    SFeature result;
    result.name = "Feature";
    result.type = QString(type);
    result.value = result.plainValue = QString(value);
    result.isWritable = true;
    return result;
}

SFeature number(const char* type, const char* value)
{
    SFeature result = feature(type, value);
    result.least = 10;
    result.most = 1000;
    result.unit = "us";
    return result;
}

template <typename Widget>
Widget* find(const CFeatureEditor& editor)
{
    auto* const widget = editor.findChild<Widget*>();
    if (!widget)
        qFatal("no such widget");
    return widget;
}

} // namespace

class tst_CFeatureEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integerWithRangeAndStep();
    void floatWithUnit();
    void unboundedNumber();
    void longWholeNumberIsExact();
    void choice();
    void boolean();
    void text();
    void command();
    void readOnly();
    void newValueIsShownAndNotSent();
    void whatIsTypedStays();
    void refusedTextIsSentOnce();
    void wheelWithoutFocusChangesNothing();
};

void tst_CFeatureEditor::integerWithRangeAndStep()
{
    SFeature width = number("integer", "64");
    width.step = 16;
    CFeatureEditor editor(width);
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const box = find<QDoubleSpinBox>(editor);
    QCOMPARE(box->minimum(), 10.0);
    QCOMPARE(box->maximum(), 1000.0);
    QCOMPARE(box->accessibleName(), QString("Feature"));
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("80"));
    box->selectAll();
    QTest::keyClicks(box, "512");
    QVERIFY(edited.isEmpty()); // not before it is complete
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("512"));
}

void tst_CFeatureEditor::floatWithUnit()
{
    CFeatureEditor editor(number("float", "10.25"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const box = find<QDoubleSpinBox>(editor);
    QCOMPARE(box->text(), QString("10.25 us"));
    box->selectAll();
    QTest::keyClicks(box, "99.5");
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("99.5"));
}

void tst_CFeatureEditor::unboundedNumber()
{
    CFeatureEditor editor(feature("integer", "-123456789012"));
    QCOMPARE(find<QDoubleSpinBox>(editor)->text(), QString("-123456789012"));
}

void tst_CFeatureEditor::longWholeNumberIsExact()
{
    CFeatureEditor grown(feature("integer", "1"));
    grown.show(feature("integer", "1234567890123456"));
    QCOMPARE(find<QDoubleSpinBox>(grown)->text(), QString("1234567890123456"));

    CFeatureEditor editor(feature("integer", "1234567890123456"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const line = find<QLineEdit>(editor);
    QCOMPARE(line->text(), QString("1234567890123456"));
    QTest::keyClick(line, Qt::Key_End);
    QTest::keyClick(line, Qt::Key_Backspace);
    QTest::keyClicks(line, "7");
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("1234567890123457"));
}

void tst_CFeatureEditor::choice()
{
    SFeature mode = feature("one of", "Off");
    mode.choices = QStringList{"Off", "On"};
    CFeatureEditor editor(mode);
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const box = find<QComboBox>(editor);
    QCOMPARE(box->count(), 2);
    QCOMPARE(box->currentText(), QString("Off"));
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("On"));
}

void tst_CFeatureEditor::boolean()
{
    CFeatureEditor editor(feature("boolean", "true"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const box = find<QCheckBox>(editor);
    QVERIFY(box->isChecked());
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("false"));
}

void tst_CFeatureEditor::text()
{
    CFeatureEditor editor(feature("text", "left"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const line = find<QLineEdit>(editor);
    QTest::keyClick(line, Qt::Key_Return);
    QVERIFY(edited.isEmpty());
    line->selectAll();
    QTest::keyClicks(line, "right");
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("right"));
}

void tst_CFeatureEditor::command()
{
    CFeatureEditor editor(feature("command", ""));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    QTest::mouseClick(find<QPushButton>(editor), Qt::LeftButton);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString());
}

void tst_CFeatureEditor::readOnly()
{
    SFeature serial = feature("text", "1234");
    serial.isWritable = false;
    CFeatureEditor editor(serial);
    QVERIFY(!find<QLineEdit>(editor)->isEnabled());
    serial.isWritable = true;
    editor.show(serial);
    QVERIFY(find<QLineEdit>(editor)->isEnabled());
}

void tst_CFeatureEditor::newValueIsShownAndNotSent()
{
    CFeatureEditor editor(number("integer", "64"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    editor.show(number("integer", "128"));
    QCOMPARE(find<QDoubleSpinBox>(editor)->value(), 128.0);
    QVERIFY(edited.isEmpty());
}

void tst_CFeatureEditor::whatIsTypedStays()
{
    CFeatureEditor editor(number("integer", "64"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    editor.resize(200, 40);
    editor.QWidget::show();
    editor.activateWindow();
    auto* const box = find<QDoubleSpinBox>(editor);
    box->setFocus();
    QTRY_VERIFY(box->hasFocus());
    box->selectAll();
    QTest::keyClicks(box, "25");
    editor.show(number("integer", "128"));
    QTest::keyClicks(box, "6");
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.takeFirst().constFirst().toString(), QString("256"));
    editor.show(number("integer", "250")); // what the camera made of it
    QCOMPARE(box->value(), 250.0);
    QVERIFY(edited.isEmpty());
    // What comes to what was there before is no change, and gives way to the newer value.
    box->selectAll();
    QTest::keyClicks(box, "57");
    QTest::keyClick(box, Qt::Key_Return);
    editor.show(number("integer", "57"));
    edited.clear();
    box->selectAll();
    QTest::keyClicks(box, "25");
    SFeature wider = number("integer", "1059");
    wider.most = 2000;
    editor.show(wider);
    box->selectAll();
    QTest::keyClicks(box, "57");
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(box->value(), 1059.0);
    QVERIFY(edited.isEmpty());
}

void tst_CFeatureEditor::refusedTextIsSentOnce()
{
    CFeatureEditor editor(feature("text", "left"));
    QSignalSpy edited(&editor, &CFeatureEditor::edited);
    auto* const line = find<QLineEdit>(editor);
    line->selectAll();
    QTest::keyClicks(line, "right");
    editor.show(feature("text", "middle"));
    QCOMPARE(line->text(), QString("right"));
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(edited.count(), 1);
    QTest::keyClick(line, Qt::Key_Return); // as the end of the focus; the camera has not answered yet
    QCOMPARE(edited.count(), 1);
    editor.show(feature("text", "middle"));
    QCOMPARE(line->text(), QString("middle"));
}

void tst_CFeatureEditor::wheelWithoutFocusChangesNothing()
{
    CFeatureEditor editor(number("integer", "64"));
    auto* const box = find<QDoubleSpinBox>(editor);
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(box, &wheel);
    QCOMPARE(box->value(), 64.0);
    QVERIFY(!wheel.isAccepted());
}

QTEST_MAIN(tst_CFeatureEditor)
#include "tst_CFeatureEditor.moc"
