// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The settings of AWorkerNodeDataModel: saved, restored, and told to code that ends the model.

#include "CWorkerModel.h"

#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

using namespace Plugin::Halvex;

namespace {

using EPolicy = AWorkerNodeDataModel::EPolicy;

} // namespace

class tst_WorkerSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savesItsSettings();
    void restoresWhatMakesSense_data();
    void restoresWhatMakesSense();
    void settingsTellChanges();
    void handlerMayEndTheModelInTheMiddleOfARestore_data();
    void handlerMayEndTheModelInTheMiddleOfARestore();
};

void tst_WorkerSettings::savesItsSettings()
{
    CWorkerModel model;
    const auto property = [&model] { return model.save().value("property").toObject(); };
    QCOMPARE(property(), (QJsonObject{{"policy", "NewestWins"}, {"most_waiting", 8}, {"parallelism", 1}}));
    model.setPolicy(EPolicy::DropNewest);
    model.setMostWaiting(3);
    model.setParallelism(4);
    QCOMPARE(property(), (QJsonObject{{"policy", "DropNewest"}, {"most_waiting", 3}, {"parallelism", 4}}));
    CWorkerModel other;
    other.restore(model.save());
    QCOMPARE(other.save(), model.save());
}

void tst_WorkerSettings::restoresWhatMakesSense_data()
{
    QTest::addColumn<QJsonObject>("property");
    QTest::newRow("nothing") << QJsonObject();
    QTest::newRow("unknown policy") << QJsonObject{{"policy", "Newest"}};
    QTest::newRow("policy of another type") << QJsonObject{{"policy", 1}};
    QTest::newRow("no room") << QJsonObject{{"most_waiting", 0}, {"parallelism", 0}};
    QTest::newRow("less than none") << QJsonObject{{"most_waiting", -1}, {"parallelism", -1}};
    QTest::newRow("texts") << QJsonObject{{"most_waiting", "2"}, {"parallelism", "2"}};
}

void tst_WorkerSettings::restoresWhatMakesSense()
{
    QFETCH(QJsonObject, property);
    CWorkerModel model;
    const QJsonObject before = model.save();
    model.restore({{"property", property}});
    QCOMPARE(model.save(), before);
}

void tst_WorkerSettings::settingsTellChanges()
{
    CWorkerModel model;
    const QSignalSpy policy(&model, &AWorkerNodeDataModel::policyChanged);
    const QSignalSpy waiting(&model, &AWorkerNodeDataModel::mostWaitingChanged);
    const QSignalSpy parallelism(&model, &AWorkerNodeDataModel::parallelismChanged);
    for (int i = 0; i < 2; ++i) {
        model.setProperty("policy", QVariant::fromValue(EPolicy::DropOldest));
        model.setProperty("mostWaiting", 2);
        model.setProperty("parallelism", 2);
    }
    QCOMPARE(policy.count() + 10 * waiting.count() + 100 * parallelism.count(), 111);
    QCOMPARE(model.policy(), EPolicy::DropOldest);
    model.setProperty("mostWaiting", 1);
    model.setProperty("parallelism", 1);
    QCOMPARE(waiting.count() + 10 * parallelism.count(), 22);
}

void tst_WorkerSettings::handlerMayEndTheModelInTheMiddleOfARestore_data()
{
    QTest::addColumn<int>("setting");
    QTest::newRow("policy") << 0;
    QTest::newRow("most waiting") << 1;
    QTest::newRow("parallelism") << 2;
}

void tst_WorkerSettings::handlerMayEndTheModelInTheMiddleOfARestore()
{
    QFETCH(const int, setting);
    auto model = std::make_unique<CWorkerModel>();
    const auto signalOf = [](int index) {
        return index == 0   ? &AWorkerNodeDataModel::policyChanged
               : index == 1 ? &AWorkerNodeDataModel::mostWaitingChanged
                            : &AWorkerNodeDataModel::parallelismChanged;
    };
    int told = 0;
    for (int index = 0; index < 3; ++index)
        connect(model.get(), signalOf(index), this, [&told] { ++told; });
    connect(model.get(), signalOf(setting), this, [&model] { model.reset(); });
    model->restore({{"property", QJsonObject{{"policy", "DropOldest"}, {"most_waiting", 3}, {"parallelism", 4}}}});
    QVERIFY(!model);
    QCOMPARE(told, setting + 1); // the others are not restored any more
}

QTEST_GUILESS_MAIN(tst_WorkerSettings)
#include "tst_WorkerSettings.moc"
