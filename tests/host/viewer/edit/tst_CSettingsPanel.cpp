// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CSettingsPanel.h"

#include "edit/SEditedScene.h"
#include "host/models/CBlurModel.h"
#include "host/viewer/edit/CSettingField.h"
#include "support/CTestModel.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

/// A model that tells of a change of its setting until the end.
class CTalkativeModel : public CTestModel
{
    Q_OBJECT
    Q_PROPERTY(double gain READ gain WRITE setGain NOTIFY gainChanged)

public:
    ~CTalkativeModel() override { Q_EMIT gainChanged(); }

    double gain() const { return m_gain; }
    void setGain(double gain)
    {
        m_gain = gain;
        Q_EMIT gainChanged();
    }

Q_SIGNALS:
    void gainChanged();

private:
    double m_gain = 0.0004;
};

/// It has one more setting, which is gone when its base class tells for the last time.
class CDyingModel : public CTalkativeModel
{
    Q_OBJECT
    Q_PROPERTY(int offset MEMBER m_offset)

private:
    int m_offset = 1;
};

} // namespace

class tst_CSettingsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyWithoutANode();
    void hasAFieldForEachSetting();
    void aTypedValueIsOneStep();
    void aKeyHeldDownIsOneStep();
    void chooseAWord();
    void bringsTheDefaultBack();
    void showsWhatIsChangedElsewhere();
    void tellsWhyAValueIsNotTaken();
    void isEmptyWhenTheNodeGoes();
    void survivesAChangeToldByADyingModel();
    void whatIsTypedStays();
    void smallNumbersAreShown();
    void noDigitOfANumberIsLost();
};

void tst_CSettingsPanel::isEmptyWithoutANode()
{
    const SEditedScene edited;
    CSettingsPanel panel;
    QVERIFY(panel.findChildren<CSettingField*>().isEmpty());
    panel.show(edited.editor.get(), Core::CId::createId());
    QVERIFY(panel.findChildren<CSettingField*>().isEmpty());
    panel.show(nullptr, {});
    QVERIFY(panel.findChildren<CSettingField*>().isEmpty());
}

void tst_CSettingsPanel::hasAFieldForEachSetting()
{
    const SEditedScene edited;
    CSettingsPanel panel;
    panel.show(edited.editor.get(), edited.add("Blur"));
    const auto* const size = panel.findChild<QSpinBox*>(QStringLiteral("size"));
    QVERIFY(size);
    QCOMPARE(size->minimum(), 1);
    QCOMPARE(size->maximum(), 99);
    QCOMPARE(size->singleStep(), 2);
    QCOMPARE(size->value(), 7);
    QCOMPARE(size->accessibleName(), QStringLiteral("Size"));
    const auto* const policy = panel.findChild<QComboBox*>(QStringLiteral("policy"));
    QVERIFY(policy);
    QCOMPARE(policy->currentText(), QStringLiteral("Drop oldest"));
    panel.show(edited.editor.get(), edited.add("DecouplerVGR"));
    QCOMPARE(panel.findChild<QDoubleSpinBox*>(QStringLiteral("framesPerSecond"))->value(), 25.0);
}

void tst_CSettingsPanel::aTypedValueIsOneStep()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    panel.show();
    auto* const size = panel.findChild<QSpinBox*>(QStringLiteral("size"));
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("33"));
    QCOMPARE(edited.stack().count(), 1);
    QTest::keyClick(size, Qt::Key_Return);
    QCOMPARE(edited.stack().count(), 2);
    QCOMPARE(qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel())->size(), 33);
    edited.stack().undo();
    QCOMPARE(size->value(), 7);
}

void tst_CSettingsPanel::aKeyHeldDownIsOneStep()
{
    const SEditedScene edited;
    CSettingsPanel panel;
    panel.show(edited.editor.get(), edited.add("Blur"));
    auto* const size = panel.findChild<QSpinBox*>(QStringLiteral("size"));
    QTest::keyPress(size, Qt::Key_Up);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(size, &repeated);
    }
    QVERIFY(size->value() > 9);
    QCOMPARE(edited.stack().count(), 2);
    QTest::keyPress(size, Qt::Key_Up);
    QCOMPARE(edited.stack().count(), 3);
}

void tst_CSettingsPanel::chooseAWord()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    auto* const method = panel.findChild<QComboBox*>(QStringLiteral("method"));
    QTest::keyClick(method, Qt::Key_Down);
    QCOMPARE(qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel())->method(), CBlurModel::EMethod::Box);
}

void tst_CSettingsPanel::bringsTheDefaultBack()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    panel.show();
    auto* const reset = panel.findChild<QToolButton*>(QStringLiteral("reset size"));
    QVERIFY(!reset->isEnabled());
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("33")));
    QVERIFY(reset->isEnabled());
    QTest::mouseClick(reset, Qt::LeftButton);
    QCOMPARE(qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel())->size(), 7);
    QVERIFY(!reset->isEnabled());
}

void tst_CSettingsPanel::showsWhatIsChangedElsewhere()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel())->setSize(55);
    QCOMPARE(panel.findChild<QSpinBox*>(QStringLiteral("size"))->value(), 55);
    QCOMPARE(edited.stack().count(), 1);
}

void tst_CSettingsPanel::tellsWhyAValueIsNotTaken()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    panel.show();
    auto* const size = panel.findChild<QSpinBox*>(QStringLiteral("size"));
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("34"));
    QTest::keyClick(size, Qt::Key_Return);
    QCOMPARE(size->value(), 7);
    QCOMPARE(edited.stack().count(), 1);
    const auto labels = panel.findChildren<QLabel*>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
        return label->isVisible() && label->text() == QLatin1String("'size' takes int, 1 to 99, odd, not '34'");
    }));
}

void tst_CSettingsPanel::isEmptyWhenTheNodeGoes()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    edited.scene->removeNode(*edited.editor->node(blur));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(panel.findChildren<CSettingField*>().isEmpty());
}

void tst_CSettingsPanel::survivesAChangeToldByADyingModel()
{
    const SEditedScene edited;
    CNodeBase& node = edited.scene->createNode(std::make_unique<CDyingModel>());
    CSettingsPanel panel;
    panel.show(edited.editor.get(), node.id());
    QVERIFY(panel.findChild<QSpinBox*>(QStringLiteral("offset")));
    edited.scene->removeNode(node);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(panel.findChildren<CSettingField*>().isEmpty());
}

void tst_CSettingsPanel::whatIsTypedStays()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    auto* const model = qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel());
    CSettingsPanel panel;
    panel.show(edited.editor.get(), blur);
    panel.show();
    auto* const size = panel.findChild<QSpinBox*>(QStringLiteral("size"));
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("3"));
    model->setSize(55);
    QCOMPARE(size->text(), QStringLiteral("3"));
    QTest::keyClicks(size, QStringLiteral("1"));
    QTest::keyClick(size, Qt::Key_Return);
    QCOMPARE(model->size(), 31);
    model->setSize(57);
    QCOMPARE(size->value(), 57);
    // What comes to what was there before is no change, and gives way to the newer value.
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("57"));
    model->setSize(59);
    QTest::keyClick(size, Qt::Key_Return);
    QCOMPARE(size->value(), 59);
    QCOMPARE(model->size(), 59);
}

void tst_CSettingsPanel::smallNumbersAreShown()
{
    const SEditedScene edited;
    CNodeBase& node = edited.scene->createNode(std::make_unique<CTalkativeModel>());
    auto* const model = qobject_cast<CTalkativeModel*>(node.nodeDataModel());
    CSettingsPanel panel;
    panel.show(edited.editor.get(), node.id());
    auto* const gain = panel.findChild<QDoubleSpinBox*>(QStringLiteral("gain"));
    QCOMPARE(gain->text(), QLocale().toString(0.0004, 'f', 4));
    model->setGain(1234567.5);
    QCOMPARE(gain->value(), 1234567.5);
    model->setGain(25);
    QCOMPARE(gain->text(), QStringLiteral("25"));
    gain->selectAll();
    QTest::keyClicks(gain, QLocale().toString(0.00025, 'f', 5));
    QTest::keyClick(gain, Qt::Key_Return);
    QCOMPARE(model->gain(), 0.00025);
}

void tst_CSettingsPanel::noDigitOfANumberIsLost()
{
    const SEditedScene edited;
    CNodeBase& node = edited.scene->createNode(std::make_unique<CTalkativeModel>());
    auto* const model = qobject_cast<CTalkativeModel*>(node.nodeDataModel());
    CSettingsPanel panel;
    panel.show(edited.editor.get(), node.id());
    auto* const gain = panel.findChild<QDoubleSpinBox*>(QStringLiteral("gain"));
    gain->selectAll();
    QTest::keyClicks(gain, QLocale().toString(12345678.123456, 'f', 6).remove(QLocale().groupSeparator()));
    QTest::keyClick(gain, Qt::Key_Return);
    QCOMPARE(model->gain(), 12345678.123456);
    QVERIFY(gain->text().endsWith(QStringLiteral("123456")));
    edited.stack().undo();
    edited.stack().redo();
    QVERIFY(std::abs(model->gain() - 12345678.123456) < 1e-9);
}

QTEST_MAIN(tst_CSettingsPanel)
#include "tst_CSettingsPanel.moc"
