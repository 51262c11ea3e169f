// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The checks as functions: of data, converters and plugins, of the library's families of models, and their options.

#include "CNumberModel.h"
#include "RulesIn.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>
#include <Halvex/testing/CheckConverter.h>
#include <Halvex/testing/CheckData.h>
#include <Halvex/testing/CheckModel.h>
#include <Halvex/testing/CheckPlugin.h>
#include <Halvex/testing/SRuleInfo.h>

#include <QFile>
#include <QRegularExpression>
#include <QSize>
#include <QTimer>
#include <QtTest>

#include <stdexcept>
#include <thread>

using namespace Plugin::Halvex;
using namespace Plugin::Halvex::Testing;

Q_DECLARE_METATYPE(ModelCreator)
Q_DECLARE_METATYPE(DataCreator)
Q_DECLARE_METATYPE(NodeDataConverter)

namespace {

/// What the models below have in common: one port on each side that they have.
template <typename Base, bool hasInput, bool hasOutput>
class CNumberPorts : public Base
{
public:
    using Base::Base;
    QString name() override { return QStringLiteral("Number"); }
    QString caption() override { return QStringLiteral("Number"); }
    unsigned int nPorts(ENodePortType side) const override
    {
        return (side == ENodePortType::In && hasInput) || (side == ENodePortType::Out && hasOutput) ? 1 : 0;
    }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber::dataType(); }
    bool isUnique() override { return this->hasUniqueName(); }
};

class CSource : public CNumberPorts<ASourceNodeDataModel, false, true>
{
public:
    using CNumberPorts::CNumberPorts;
    void setInData(CNodeDataPtr, NodePortIndex) override {}
};

class CSink : public CNumberPorts<ASinkNodeDataModel, true, false>
{
public:
    void setInData(CNodeDataPtr data, NodePortIndex) override { getDataFlowProxy()->setData(data); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
};

class CDoublingWorker : public CNumberPorts<AWorkerNodeDataModel, true, true>
{
protected:
    Work makeWork() const override
    {
        return [](const Inputs& inputs) {
            const auto number = inputs.front().dynamicCast<CNumber>();
            return number ? makeNumber(2 * number->value()) : CNodeDataPtr();
        };
    }
};

/// Doubles the very number that it is given.
class CSpoilingWorker : public CDoublingWorker
{
protected:
    Work makeWork() const override
    {
        return [](const Inputs& inputs) {
            if (const auto number = inputs.front().dynamicCast<CNumber>())
                number->setValue(2 * number->value());
            return inputs.front();
        };
    }
};

/// Changes the very number that comes in.
class CSpoilingSource : public CSource
{
public:
    CSpoilingSource()
    {
        connect(getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this, [](const CNodeDataPtr& data) {
            const auto number = data.dynamicCast<CNumber>();
            number->setValue(number->value() + 1);
        });
    }
};

/// Keeps what comes in for ever.
class CHoardingSource : public CSource
{
public:
    CHoardingSource()
    {
        static std::vector<CNodeDataPtr> hoard;
        connect(getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this,
                [](const CNodeDataPtr& data) { hoard.push_back(data); });
    }
};

class CSourceWithoutProxy : public CSource
{
public:
    CSourceWithoutProxy() { delete getDataFlowProxy(); }
};

/// Hands on what comes in as it is, and announces it in a thread of its own, also while it goes.
class CAnnouncingElsewhere : public CNumberPorts<ANodeDataModel, true, true>
{
public:
    ~CAnnouncingElsewhere() override { endThread(); }
    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        if (index != 0)
            return;
        endThread();
        m_output = data.dynamicCast<CNumber>();
        m_thread = std::thread([this] {
            for (int round = 0; round < 10; ++round)
                Q_EMIT dataUpdated(0);
        });
    }
    CNodeDataPtr outData(NodePortIndex index) override { return index == 0 ? m_output : CNodeDataPtr(); }

private:
    void endThread()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

    CNodeDataPtr m_output;
    std::thread m_thread;
};

/// Has a setting of a type that the kit knows no values of.
class CSizedModel : public CNumberModel
{
    Q_OBJECT
    Q_PROPERTY(QSize size READ size WRITE setSize NOTIFY sizeChanged)

public:
    QSize size() const { return m_size; }
    void setSize(const QSize& size)
    {
        if (size == m_size)
            return;
        m_size = size;
        Q_EMIT sizeChanged();
    }

Q_SIGNALS:
    void sizeChanged();

private:
    QSize m_size;
};

QStringList namesOf(const std::vector<SRuleInfo>& rules)
{
    QStringList names;
    for (const SRuleInfo& rule : rules)
        names << rule.name;
    return names;
}

/// A number with something wrong.
template <typename Misbehaviour>
class CWrongNumber : public CNumber
{
public:
    using CNumber::CNumber;
    SNodeDataType type() const override { return Misbehaviour::type(*this); }
};

struct SNoId
{
    static SNodeDataType type(const CNumber&) { return {QString(), QStringLiteral("Number")}; }
};
struct SNoName
{
    static SNodeDataType type(const CNumber&) { return {QStringLiteral("Test number"), QString()}; }
};
struct STypeOfTheValue
{
    static SNodeDataType type(const CNumber& number) { return {QString::number(number.value()), QStringLiteral("N")}; }
};
bool isInMainThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

struct STypeOfTheThread
{
    static SNodeDataType type(const CNumber&)
    {
        return {isInMainThread() ? QStringLiteral("main") : QStringLiteral("other"), QStringLiteral("N")};
    }
};
struct SNoTypeElsewhere
{
    static SNodeDataType type(const CNumber&)
    {
        if (!isInMainThread())
            throw std::runtime_error("wrong thread");
        return CNumber::dataType();
    }
};

class CSameAsAll : public CNumber
{
public:
    using CNumber::CNumber;
    bool sameType(const CNodeData&) const override { return true; }
};

#ifdef COUNTS_MEMORY
class CLeakingNumber : public CNumber
{
public:
    explicit CLeakingNumber(int value)
        : CNumber(value)
        , m_memory(new QByteArray(100, 'x'))
    {
    }

private:
    QByteArray* const m_memory;
};
#endif

template <typename Data>
DataCreator makes()
{
    return [](int number) { return CNodeDataPtr(new Data(number)); };
}

} // namespace

class tst_Checks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundFamilies_data();
    void soundFamilies();
    void wrongFamilies_data();
    void wrongFamilies();
    void fewerOutputsWhenRestored();
    void oneOf100CallsMayBeSlow();
    void creationIsTimedAlone();
    void rulesAreToldBeforeTheyAreTried();
    void skippedRulesAreNotTried();
    void whatNeedsASkippedRuleIsNotTried();
    void whatCannotBeTriedIsTold();
    void settingThatCannotBeChangedIsTold();
    void exceptionsAreKnownByTheirTexts_data();
    void exceptionsAreKnownByTheirTexts();
    void data_data();
    void data();
    void converters_data();
    void converters();
    void plugin();
    void everyRuleIsInTheManual();
    void text();
};

void tst_Checks::soundFamilies_data()
{
    QTest::addColumn<ModelCreator>("creator");
    QTest::newRow("source") << ModelCreator([] { return std::make_unique<CSource>(); });
    QTest::newRow("unique source") << ModelCreator([] { return std::make_unique<CSource>(QStringLiteral("cam-1")); });
    QTest::newRow("sink") << ModelCreator([] { return std::make_unique<CSink>(); });
    QTest::newRow("worker") << ModelCreator([] { return std::make_unique<CDoublingWorker>(); });
    QTest::newRow("announces in its own thread")
        << ModelCreator([] { return std::make_unique<CAnnouncingElsewhere>(); });
    SMisbehaviour misbehaviour;
    misbehaviour.setInData = [](CNumberModel& model, const CNodeDataPtr& data, int index) {
        model.output = index == 0 ? data : CNodeDataPtr();
        Q_EMIT model.dataUpdated(0);
    };
    QTest::newRow("passes its input on") << ModelCreator(
        [misbehaviour] { return std::make_unique<CNumberModel>(misbehaviour); });
    misbehaviour.setInData = [](CNumberModel& model, const CNodeDataPtr& data, int) {
        QTimer::singleShot(20, &model, [&model, data] {
            model.output = data;
            Q_EMIT model.dataUpdated(0);
        });
    };
    QTest::newRow("stores and announces later")
        << ModelCreator([misbehaviour] { return std::make_unique<CNumberModel>(misbehaviour); });
    misbehaviour.setInData = [](CNumberModel&, const CNodeDataPtr&, int) {};
    misbehaviour.outData = [](CNumberModel&, int index) { return index == 0 ? makeNumber(7) : CNodeDataPtr(); };
    QTest::newRow("makes the same anew for each question")
        << ModelCreator([misbehaviour] { return std::make_unique<CNumberModel>(misbehaviour); });
    QTest::newRow("decoupler") << ModelCreator(
        [] { return std::make_unique<CGenericNodeDecouplerDataModel<CNumber>>(); });
    QTest::newRow("decoupler of grab results")
        << ModelCreator([] { return std::make_unique<CGenericNodeDecouplerDataModel<CVeltraGrabResultData>>(); });
}

void tst_Checks::soundFamilies()
{
    QFETCH(ModelCreator, creator);
    SCheckOptions options = numberOptions();
    options.makeData = [](const SNodeDataType& type, int number) {
        return type.id == CNumber::dataType().id ? makeNumber(number) : CNodeDataPtr();
    };
    const SReport report = checkModel(creator, options);
    QVERIFY2(report.findings.empty() && report.leftOut.empty(), qPrintable(toText(report)));
}

void tst_Checks::wrongFamilies_data()
{
    QTest::addColumn<ModelCreator>("creator");
    QTest::addColumn<QString>("rule");
    QTest::newRow("spoiling worker") << ModelCreator([] { return std::make_unique<CSpoilingWorker>(); })
                                     << "leaves-its-input-alone";
    QTest::newRow("spoiling source") << ModelCreator([] { return std::make_unique<CSpoilingSource>(); })
                                     << "leaves-its-input-alone";
    QTest::newRow("hoarding source") << ModelCreator([] { return std::make_unique<CHoardingSource>(); })
                                     << "lets-go-of-its-data";
    QTest::newRow("source without a proxy") << ModelCreator([] { return std::make_unique<CSourceWithoutProxy>(); })
                                            << "source-announces-in-the-graphs-thread";
}

void tst_Checks::wrongFamilies()
{
    QFETCH(ModelCreator, creator);
    QFETCH(QString, rule);
    SCheckOptions options = numberOptions();
    options.longestDestruction = std::chrono::milliseconds(500);
    const SReport report = checkModel(creator, options);
    QVERIFY2(rulesIn(report) == QStringList{rule}, qPrintable(toText(report)));
}

// Every other model has two outputs. In one of two checks that is the saved one.
void tst_Checks::fewerOutputsWhenRestored()
{
    QString seen;
    for (unsigned int made : {0U, 1U}) {
        const ModelCreator creator = [&made] {
            SMisbehaviour misbehaviour;
            misbehaviour.nPorts = [outputs = 1 + made++ % 2](const CNumberModel&, ENodePortType side) {
                return side == ENodePortType::None ? 0 : side == ENodePortType::Out ? outputs : 1;
            };
            return std::make_unique<CNumberModel>(misbehaviour);
        };
        const SReport report = checkModel(creator, numberOptions());
        QVERIFY2(rulesIn(report).contains("ports-stay-the-same"), qPrintable(toText(report)));
        seen += toText(report);
    }
    QVERIFY2(seen.contains("the saved model had nothing on output 1, the restored one no such output"),
             qPrintable(seen));
}

void tst_Checks::oneOf100CallsMayBeSlow()
{
    SMisbehaviour misbehaviour;
    misbehaviour.setInData = [](CNumberModel& model, const CNodeDataPtr& data, int index) {
        if (++model.count % 100 == 0)
            QThread::msleep(200);
        model.multiply(data, index);
    };
    SCheckOptions options = numberOptions();
    options.longestCall = std::chrono::milliseconds(100);
    const SReport report = checkModel([&] { return std::make_unique<CNumberModel>(misbehaviour); }, options);
    QVERIFY2(report.findings.empty(), qPrintable(toText(report)));
}

void tst_Checks::creationIsTimedAlone()
{
    SMisbehaviour misbehaviour;
    misbehaviour.destroy = [](CNumberModel&) { QThread::msleep(2); };
    SCheckOptions options = numberOptions();
    options.skip = namesOf(modelRules());
    for (const char* rule : {"makes-a-model", "answers-questions", "answers-in-time"})
        options.skip.removeAll(rule);
    const SReport report = checkModel([&] { return std::make_unique<CNumberModel>(misbehaviour); }, options);
    QCOMPARE(report.times.front().call, QString("create"));
    QVERIFY2(report.times.front().median < 2000000, qPrintable(toText(report)));
}

void tst_Checks::rulesAreToldBeforeTheyAreTried()
{
    QStringList told;
    SCheckOptions options = numberOptions();
    options.beforeRule = [&told](const QString& rule) { told << rule; };
    checkModel([] { return std::make_unique<CNumberModel>(); }, options);
    QCOMPARE(told, namesOf(modelRules()));

    told.clear();
    checkModel(ModelCreator(), options);
    QCOMPARE(told, QStringList{"makes-a-model"});
}

void tst_Checks::skippedRulesAreNotTried()
{
    SMisbehaviour misbehaviour;
    misbehaviour.caption = [](const CNumberModel&) { return QString(); };
    SCheckOptions options = numberOptions();
    options.skip = QStringList{"has-a-caption"};
    options.beforeRule = [](const QString& rule) { QVERIFY(rule != "has-a-caption"); };
    const SReport report = checkModel([&] { return std::make_unique<CNumberModel>(misbehaviour); }, options);
    QVERIFY2(report.findings.empty(), qPrintable(toText(report)));
    QCOMPARE(std::size_t(report.kept), modelRules().size() - 1);
}

void tst_Checks::whatNeedsASkippedRuleIsNotTried()
{
    SCheckOptions options = numberOptions();
    options.skip = QStringList{"makes-a-model", "makes-data", "converter-is-there", "loads"};
    options.beforeRule = [](const QString& rule) { QCOMPARE(rule, QString("has-metadata")); };
    const auto isCutShort = [](const SReport& report, const QString& basic) {
        return report.findings.empty() && report.leftOut.size() == 1 &&
               report.leftOut.front().rule == QLatin1String("all rules behind it") &&
               report.leftOut.front().reason == "they need " + basic;
    };
    QVERIFY(isCutShort(checkModel([] { return std::unique_ptr<CNodeDataModel>(); }, options), "makes-a-model"));
    QVERIFY(isCutShort(checkData([](int) { return CNodeDataPtr(); }, options), "makes-data"));
    QVERIFY(isCutShort(checkConverter({}, {CNumber::dataType(), CNumber::dataType()}, options), "converter-is-there"));
    QVERIFY(isCutShort(checkPlugin(HALVEX_PLUGIN, {}, options), "loads"));
}

void tst_Checks::whatCannotBeTriedIsTold()
{
    SCheckOptions options = numberOptions();
    options.makeData = {};
    options.checksum = {};
    const SReport report = checkModel([] { return std::make_unique<CNumberModel>(); }, options);
    QVERIFY2(report.findings.empty(), qPrintable(toText(report)));
    QStringList left;
    for (const SLeftOut& one : report.leftOut)
        left << one.rule;
    QCOMPARE(left,
             QStringList({"takes-its-data", "takes-empty-data-later", "gives-the-announced-type",
                          "leaves-its-input-alone", "leaves-its-output-alone", "restored-behaves-alike",
                          "restores-over-a-working-state", "stores-before-it-announces", "announces-what-it-stores",
                          "ends-what-it-begins", "goes-while-it-computes", "lets-go-of-its-data"}));
}

void tst_Checks::settingThatCannotBeChangedIsTold()
{
    const SReport report = checkModel([] { return std::make_unique<CSizedModel>(); }, numberOptions());
    QVERIFY2(report.findings.empty(), qPrintable(toText(report)));
    QCOMPARE(report.leftOut.size(), std::size_t(2));
    QCOMPARE(report.leftOut[0].rule, QString("properties-survive-saving"));
    QCOMPARE(report.leftOut[1].rule, QString("properties-tell-of-changes"));
    for (const SLeftOut& left : report.leftOut)
        QCOMPARE(left.reason, QString("no other value is known for \"size\""));
}

void tst_Checks::exceptionsAreKnownByTheirTexts_data()
{
    QTest::addColumn<bool>("hasText");
    QTest::addColumn<QStringList>("rules");
    QTest::newRow("one text is told once") << true << QStringList{"properties-survive-saving"};
    QTest::newRow("without a text each is told")
        << false << QStringList{"properties-survive-saving", "properties-tell-of-changes", "goes-in-its-own-signals"};
}

void tst_Checks::exceptionsAreKnownByTheirTexts()
{
    QFETCH(bool, hasText);
    QFETCH(QStringList, rules);
    SMisbehaviour misbehaviour;
    misbehaviour.setLabel = [hasText](CNumberModel& model, const QString& label) {
        if (!label.endsWith('x'))
            return model.changeLabel(label);
        if (hasText)
            throw std::invalid_argument("no such label");
        throw 1;
    };
    const SReport report = checkModel([&] { return std::make_unique<CNumberModel>(misbehaviour); }, numberOptions());
    QVERIFY2(rulesIn(report) == rules, qPrintable(toText(report)));
}

void tst_Checks::data_data()
{
    QTest::addColumn<DataCreator>("creator");
    QTest::addColumn<QString>("rule");
    const auto row = [](const char* name, const DataCreator& creator, const QString& rule) {
        QTest::newRow(name) << creator << rule;
    };
    row("sound", makes<CNumber>(), {});
    row("no creator", {}, "makes-data");
    row(
        "nothing", [](int) { return CNodeDataPtr(); }, "makes-data");
    row(
        "throws", [](int) -> CNodeDataPtr { throw std::runtime_error("no memory"); }, "makes-data");
    row(
        "one for all", [one = makeNumber(1)](int) { return one; }, "makes-data");
    row("no id", makes<CWrongNumber<SNoId>>(), "type-is-complete");
    row("no name", makes<CWrongNumber<SNoName>>(), "type-is-complete");
    row("type of the value", makes<CWrongNumber<STypeOfTheValue>>(), "type-stays-the-same");
    row("type of the thread", makes<CWrongNumber<STypeOfTheThread>>(), "type-is-the-same-in-every-thread");
    row("no type elsewhere", makes<CWrongNumber<SNoTypeElsewhere>>(), "type-is-the-same-in-every-thread");
    row("same as all", makes<CSameAsAll>(), "same-type-compares-ids");
#ifdef COUNTS_MEMORY
    row("leaks", makes<CLeakingNumber>(), "data-leaves-nothing-behind");
#endif
    const auto changesTheLast = [last = std::make_shared<QSharedPointer<CNumber>>()](int number) {
        if (*last)
            (*last)->setValue(number + 1);
        *last = QSharedPointer<CNumber>::create(number);
        return CNodeDataPtr(*last);
    };
    row("changes the last one", changesTheLast, "content-stays-the-same");
    const auto onlyHere = [](int number) {
        if (!isInMainThread())
            throw std::runtime_error("wrong thread");
        return makeNumber(number);
    };
    row("only here", onlyHere, "goes-in-any-thread");
}

void tst_Checks::data()
{
    QFETCH(DataCreator, creator);
    QFETCH(QString, rule);
    const SReport report = checkData(creator, numberOptions());
    QVERIFY2(rulesIn(report) == (rule.isEmpty() ? QStringList() : QStringList{rule}), qPrintable(toText(report)));
}

void tst_Checks::converters_data()
{
    QTest::addColumn<NodeDataConverter>("converter");
    QTest::addColumn<QString>("rule");
    const auto row = [](const char* name, const NodeDataConverter& converter, const QString& rule) {
        QTest::newRow(name) << converter << rule;
    };
    const auto negated = [](const CNodeDataPtr& data) {
        const auto number = data.dynamicCast<CNumber>();
        return number ? makeNumber(-number->value()) : CNodeDataPtr();
    };
    row("sound", negated, {});
    row("empty", {}, "converter-is-there");
    row(
        "no empty data",
        [=](const CNodeDataPtr& data) {
            if (!data)
                throw std::logic_error("nothing to convert");
            return negated(data);
        },
        "converts-empty-data");
    row(
        "passes on what is foreign",
        [=](const CNodeDataPtr& data) {
            const CNodeDataPtr converted = negated(data);
            return converted ? converted : data;
        },
        "converts-foreign-data");
    row(
        "another type",
        [=](const CNodeDataPtr& data) {
            return negated(data) ? CNodeDataPtr(new CVeltraGrabResultData) : CNodeDataPtr();
        },
        "converts-its-data");
    row(
        "counts",
        [=, count = 0](const CNodeDataPtr& data) mutable {
            return negated(data) ? makeNumber(++count) : CNodeDataPtr();
        },
        "converts-alike");
    row(
        "every other",
        [=, isOdd = false](const CNodeDataPtr& data) mutable {
            isOdd = negated(data) ? !isOdd : isOdd;
            return isOdd ? negated(data) : CNodeDataPtr();
        },
        "converts-alike");
    row(
        "in place",
        [](const CNodeDataPtr& data) {
            const auto number = data.dynamicCast<CNumber>();
            if (number)
                number->setValue(-number->value());
            return CNodeDataPtr(number);
        },
        "leaves-what-it-converts-alone");
}

void tst_Checks::converters()
{
    QFETCH(NodeDataConverter, converter);
    QFETCH(QString, rule);
    const SReport report = checkConverter(converter, {CNumber::dataType(), CNumber::dataType()}, numberOptions());
    QVERIFY2(rulesIn(report) == (rule.isEmpty() ? QStringList() : QStringList{rule}), qPrintable(toText(report)));
}

void tst_Checks::plugin()
{
    const SReport sound = checkPlugin(HALVEX_PLUGIN);
    QVERIFY2(sound.findings.empty(), qPrintable(toText(sound)));

    const SReport missing = checkPlugin("nowhere.so");
    QCOMPARE(rulesIn(missing), QStringList{"has-metadata"});
}

// The manual has each page where the page's source is in the project, and is installed in the folder of documentation.
void tst_Checks::everyRuleIsInTheManual()
{
    QString page = checkModel(ModelCreator()).findings.front().page.section('#', 0, 0);
    const QString manual = "share/doc/halvex/manual/";
    QVERIFY2(page.startsWith(manual), qPrintable(page));
    QFile file(page.replace(manual, PAGES_OF_MANUAL).replace(".html", ".md"));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    const QString text = QString::fromUtf8(file.readAll());
    QStringList headings;
    static const QRegularExpression heading("^### (.*)$", QRegularExpression::MultilineOption);
    QRegularExpressionMatchIterator found = heading.globalMatch(text);
    while (found.hasNext())
        headings << found.next().captured(1);
    QCOMPARE(headings,
             namesOf(modelRules()) + namesOf(dataRules()) + namesOf(converterRules()) + namesOf(pluginRules()));
}

void tst_Checks::text()
{
    SReport report;
    report.subject = "Blur";
    report.kept = 1;
    QCOMPARE(toText(report), QString("Blur keeps 1 rule.\n"));

    report.findings.push_back({"a-rule", "that", "since", "so", "there"});
    report.leftOut = {{"b-rule", "no data"}, {"c-rule", "no time"}, {"d-rule", "no data"}};
    report.times.push_back({"save", 1500, 20000, 1234567});
    QCOMPARE(toText(report), QString("Blur breaks 1 rule:\n"
                                     "\n"
                                     "a-rule\n"
                                     "  seen  that\n"
                                     "  why   since\n"
                                     "  mend  so\n"
                                     "  page  there\n"
                                     "\n"
                                     "The pages are in the manual (package halvex-doc), below the folder where "
                                     "Halvex is installed.\n"
                                     "\n"
                                     "Not tried, since no data:\n"
                                     "  b-rule\n"
                                     "  d-rule\n"
                                     "\n"
                                     "Not tried, since no time:\n"
                                     "  c-rule\n"
                                     "\n"
                                     "Microseconds      median      99 %   longest\n"
                                     "  save               1.5      20.0    1234.6\n"));
}

QTEST_GUILESS_MAIN(tst_Checks)
#include "CNumberModel.moc"
#include "tst_Checks.moc"
