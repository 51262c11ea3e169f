// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "WrongModels.h"

#include "CNumberModel.h"

#include <Halvex/models/ASourceNodeDataModel.h>

#include <QFile>
#include <QJsonArray>
#include <QSemaphore>
#include <QThread>
#include <QTimer>

#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>

#include <fcntl.h>

using namespace Plugin::Halvex;
using namespace Plugin::Halvex::Testing;

namespace {

using Model = CNumberModel;

ModelCreator numberModel(const SMisbehaviour& misbehaviour)
{
    return [misbehaviour] { return std::make_unique<CNumberModel>(misbehaviour); };
}

SWrongModel wrong(const char* name, const char* rule, ModelCreator creator)
{
    return {name, rule, std::move(creator), numberOptions()};
}

/// A model with one thing wrong: \a member of SMisbehaviour is \a function.
template <typename Member, typename Function>
SWrongModel wrong(const char* name, const char* rule, Member member, Function function)
{
    SMisbehaviour misbehaviour;
    misbehaviour.*member = std::move(function);
    return wrong(name, rule, numberModel(misbehaviour));
}

SNodeDataType otherType()
{
    return {QStringLiteral("Test text"), QStringLiteral("Text")};
}

class CText : public CNodeData
{
public:
    SNodeDataType type() const override { return otherType(); }
};

bool isNumber(const CNodeDataPtr& data)
{
    return !data.dynamicCast<CNumber>().isNull();
}

/// Throws unless the number is that of a port.
void requirePort(int index)
{
    if (index != 0)
        throw std::out_of_range("no such port");
}

QJsonObject settingsIn(const QJsonObject& document)
{
    return document.value(QStringLiteral("property")).toObject();
}

QJsonObject withSetting(QJsonObject document, const QString& key, const QJsonValue& value)
{
    QJsonObject settings = settingsIn(document);
    settings.insert(key, value);
    document.insert(QStringLiteral("property"), settings);
    return document;
}

std::vector<SWrongModel> wrongInWhoTheyAre()
{
    static bool isSecond = false;
    static QObject parent;
    static QThread otherThread;
    return {
        wrong("no-creator", "makes-a-model", ModelCreator()),
        wrong("makes-nothing", "makes-a-model", [] { return std::unique_ptr<CNodeDataModel>(); }),
        wrong("creator-throws", "makes-a-model",
              []() -> std::unique_ptr<CNodeDataModel> { throw std::runtime_error("no licence"); }),
        wrong("name-throws", "answers-questions", &SMisbehaviour::name,
              [](const Model&) -> QString { throw std::runtime_error("not now"); }),
        wrong("save-throws", "answers-questions", &SMisbehaviour::save,
              [](const Model&, const QJsonObject&) -> QJsonObject { throw 1; }),
        wrong("no-name", "has-a-name", &SMisbehaviour::name, [](const Model&) { return QString(); }),
        wrong("name-of-the-moment", "name-stays-the-same", &SMisbehaviour::name,
              [](const Model& model) {
                  return model.hadNumber ? QStringLiteral("Used number") : QStringLiteral("Number");
              }),
        wrong("name-that-counts", "registers-under-one-name",
              [] {
                  SMisbehaviour misbehaviour;
                  isSecond = !isSecond;
                  misbehaviour.name = [suffix = isSecond ? 2 : 1](const Model&) {
                      return QStringLiteral("Number %1").arg(suffix);
                  };
                  return std::make_unique<CNumberModel>(misbehaviour);
              }),
        wrong("no-caption", "has-a-caption", &SMisbehaviour::caption, [](const Model&) { return QString(); }),
        wrong("parent", "has-no-parent", &SMisbehaviour::construct, [](Model& model) { model.setParent(&parent); }),
        wrong("moved-to-a-thread", "lives-in-the-graphs-thread", &SMisbehaviour::construct,
              [](Model& model) { model.moveToThread(&otherThread); }),
    };
}

/// Lacks Q_OBJECT: whoever looks for a CNumberModel finds this.
class CTripleModel : public CNumberModel
{
public:
    QString name() override { return QStringLiteral("Triple"); }
};

/// Lacks Q_OBJECT, and with it a property for its setting.
class CHiddenSettingModel : public CNodeDataModel
{
public:
    QString name() override { return QStringLiteral("Hidden setting"); }
    QString caption() override { return name(); }
    unsigned int nPorts(ENodePortType) const override { return 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    QJsonObject save() const override { return withSetting(CNodeDataModel::save(), QStringLiteral("depth"), m_depth); }
    void restore(const QJsonObject& json) override
    {
        m_depth = settingsIn(json).value(QStringLiteral("depth")).toInt(m_depth);
    }

private:
    int m_depth = 3;
};

std::vector<SWrongModel> wrongInTheirClass()
{
    return {
        wrong("no-meta-object-of-its-own", "has-its-meta-object", [] { return std::make_unique<CTripleModel>(); }),
        wrong("settings-without-meta-object", "has-its-meta-object",
              [] { return std::make_unique<CHiddenSettingModel>(); }),
    };
}

/// A model that cannot answer one of the questions about a port.
SWrongModel withoutAnswer(const char* name, const QString& call)
{
    return wrong(name, "answers-questions", &SMisbehaviour::beforePortIsAsked, [call](const QString& asked) {
        if (asked == call)
            throw std::logic_error("not known yet");
    });
}

std::vector<SWrongModel> wrongInTheirPorts()
{
    static unsigned int made = 0;
    return {
        wrong("port-for-more", "ports-stay-the-same", &SMisbehaviour::nPorts,
              [](const Model& model, ENodePortType side) -> unsigned int {
                  return side == ENodePortType::None ? 0 : side == ENodePortType::In && model.hadNumber ? 2 : 1;
              }),
        wrong("ports-by-turns", "ports-stay-the-same",
              [] {
                  SMisbehaviour misbehaviour;
                  misbehaviour.nPorts = [count = 1 + made++ % 2](const Model&, ENodePortType side) {
                      return side == ENodePortType::None ? 0 : side == ENodePortType::In ? count : 1;
                  };
                  return std::make_unique<CNumberModel>(misbehaviour);
              }),
        wrong("ports-from-a-document", "ports-stay-the-same", &SMisbehaviour::nPorts,
              [](const Model& model, ENodePortType side) -> unsigned int {
                  return side == ENodePortType::None ? 0 : side == ENodePortType::Out ? unsigned(model.gain()) : 1;
              }),
        wrong("ports-on-no-side", "no-side-has-no-ports", &SMisbehaviour::nPorts,
              [](const Model&, ENodePortType) { return 1; }),
        wrong("port-without-a-type", "ports-have-types", &SMisbehaviour::dataType,
              [](const Model&, ENodePortType side, int) {
                  return side == ENodePortType::In ? SNodeDataType() : CNumber::dataType();
              }),
        wrong("type-of-the-moment", "types-stay-the-same", &SMisbehaviour::dataType,
              [](const Model& model, ENodePortType side, int) {
                  return side == ENodePortType::In && model.hadNumber ? otherType() : CNumber::dataType();
              }),
        wrong("type-that-throws", "answers-questions", &SMisbehaviour::dataType,
              [](const Model&, ENodePortType, int index) -> SNodeDataType {
                  if (index == 0)
                      throw std::logic_error("not known yet");
                  return CNumber::dataType();
              }),
        withoutAnswer("port-caption-throws", QStringLiteral("caption")),
        withoutAnswer("port-visibility-throws", QStringLiteral("visibility")),
        withoutAnswer("port-policy-throws", QStringLiteral("policy")),
        wrong("type-of-a-missing-port", "takes-missing-ports", &SMisbehaviour::dataType,
              [](const Model&, ENodePortType, int index) {
                  requirePort(index);
                  return CNumber::dataType();
              }),
        wrong("data-for-a-missing-port", "takes-missing-ports", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  requirePort(index);
                  model.multiply(data, index);
              }),
        wrong("data-of-a-missing-port", "takes-missing-ports", &SMisbehaviour::outData,
              [](Model& model, int index) {
                  requirePort(index);
                  return model.output;
              }),
    };
}

std::vector<SWrongModel> wrongWithData()
{
    return {
        wrong("nothing-to-give-yet", "answers-before-data", &SMisbehaviour::outData,
              [](Model& model, int index) {
                  if (index == 0 && !model.hadNumber)
                      throw std::logic_error("no data yet");
                  return model.output;
              }),
        wrong("empty-data-first", "takes-empty-data-first", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (index == 0 && !data && !model.hadNumber)
                      throw std::logic_error("nothing to forget");
                  model.multiply(data, index);
              }),
        wrong("refuses-numbers", "takes-its-data", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (isNumber(data))
                      throw std::runtime_error("no GPU");
                  model.multiply(data, index);
              }),
        wrong("empty-data-later", "takes-empty-data-later", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (index == 0 && !data && model.hadNumber)
                      throw std::logic_error("the stream has ended");
                  model.multiply(data, index);
              }),
        wrong("data-after-empty-data", "takes-empty-data-later", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (isNumber(data) && model.hadNumber && !model.output)
                      throw std::logic_error("the stream has ended");
                  model.multiply(data, index);
              }),
        wrong("output-that-throws", "takes-its-data", &SMisbehaviour::outData,
              [](Model& model, int) {
                  if (model.output)
                      throw std::runtime_error("the buffer is gone");
                  return model.output;
              }),
        wrong("foreign-data", "takes-foreign-data", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (index == 0 && data && !isNumber(data))
                      throw std::bad_cast();
                  model.multiply(data, index);
              }),
        wrong("another-type", "gives-the-announced-type", &SMisbehaviour::outData,
              [](Model& model, int) { return model.output ? CNodeDataPtr(new CText) : CNodeDataPtr(); }),
        wrong("changes-its-input", "leaves-its-input-alone", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  model.multiply(data, index);
                  if (const auto number = data.dynamicCast<CNumber>())
                      number->setValue(number->value() + 1);
              }),
        wrong("one-output-object", "leaves-its-output-alone", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  const auto output = model.output.dynamicCast<CNumber>();
                  if (!output || !isNumber(data))
                      return model.multiply(data, index);
                  output->setValue(data.staticCast<CNumber>()->value() * model.gain());
                  Q_EMIT model.dataUpdated(0);
              }),
        wrong("error-without-words", "says-what-is-wrong", &SMisbehaviour::validationMessage,
              [](const Model&) { return QString(); }),
    };
}

/// Announces its number in a thread of its own, and stores it some time later.
void announceElsewhere(Model& model, const CNodeDataPtr& data, int index)
{
    if (index != 0 || !isNumber(data))
        return;
    std::thread([&model] { Q_EMIT model.dataUpdated(0); }).join();
    QTimer::singleShot(10, &model, [&model, data] { model.output = data; });
}

/// Hands on what comes in at once, in whichever thread that is.
class CHastySource : public ASourceNodeDataModel
{
    Q_OBJECT

public:
    CHastySource()
    {
        connect(
            getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this, [this] { Q_EMIT dataUpdated(0); },
            Qt::DirectConnection);
    }
    QString name() override { return QStringLiteral("Hasty source"); }
    QString caption() override { return name(); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CNumber::dataType(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    bool isUnique() override { return false; }
};

std::vector<SWrongModel> wrongInWhatTheySay()
{
    return {
        wrong("announces-a-missing-port", "announces-ports-that-exist", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  model.multiply(data, index);
                  Q_EMIT model.dataUpdated(1);
              }),
        wrong("invalidates-no-port", "announces-ports-that-exist", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  model.multiply(data, index);
                  Q_EMIT model.dataInvalidated(-1);
              }),
        wrong("announces-first", "stores-before-it-announces", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (index != 0 || !isNumber(data))
                      return;
                  Q_EMIT model.dataUpdated(0);
                  model.output = data;
              }),
        wrong("announces-first-elsewhere", "stores-before-it-announces", &SMisbehaviour::setInData, &announceElsewhere),
        wrong("stores-in-silence", "announces-what-it-stores", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (index == 0)
                      model.output = data.dynamicCast<CNumber>();
              }),
        wrong("announces-the-first-alone", "announces-what-it-stores", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (!isNumber(data) || !model.hadNumber)
                      return model.multiply(data, index);
                  model.output = data;
              }),
        wrong("makes-its-output-in-silence", "announces-what-it-stores",
              [] {
                  SMisbehaviour misbehaviour;
                  misbehaviour.setInData = [](Model& model, const CNodeDataPtr& data, int index) {
                      const auto number = data.dynamicCast<CNumber>();
                      if (index == 0 && number)
                          model.count = number->value();
                  };
                  misbehaviour.outData = [](Model& model, int index) {
                      return index == 0 ? makeNumber(model.count) : CNodeDataPtr();
                  };
                  return std::make_unique<CNumberModel>(misbehaviour);
              }),
        wrong("hasty-source", "source-announces-in-the-graphs-thread", [] { return std::make_unique<CHastySource>(); }),
        wrong("announces-when-asked", "asking-announces-nothing", &SMisbehaviour::outData,
              [](Model& model, int) {
                  Q_EMIT model.dataUpdated(0);
                  return model.output;
              }),
        wrong("invalidates-when-saved", "asking-announces-nothing", &SMisbehaviour::save,
              [](const Model& model, const QJsonObject& saved) {
                  Q_EMIT const_cast<Model&>(model).dataInvalidated(0);
                  return saved;
              }),
        wrong("tells-when-saved", "asking-announces-nothing", &SMisbehaviour::save,
              [](const Model& model, const QJsonObject& saved) {
                  Q_EMIT const_cast<Model&>(model).labelChanged();
                  return saved;
              }),
        wrong("never-finishes", "ends-what-it-begins", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (isNumber(data))
                      Q_EMIT model.computingStarted();
                  model.multiply(data, index);
              }),
        // Nothing but the way to this rule has a seventh number.
        wrong("seventh-output-that-throws", "ends-what-it-begins", &SMisbehaviour::outData,
              [](Model& model, int) {
                  const auto number = model.output.dynamicCast<CNumber>();
                  if (number && number->value() == 7)
                      throw std::runtime_error("the buffer is gone");
                  return model.output;
              }),
        wrong("finishes-unasked", "ends-what-it-begins", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  model.multiply(data, index);
                  if (isNumber(data))
                      Q_EMIT model.computingFinished();
              }),
    };
}

SWrongModel withHiddenSetting()
{
    SWrongModel model = wrong("setting-that-is-not-saved", "restored-behaves-alike", numberModel({}));
    model.options.changeSettings = [](CNodeDataModel& changed) { static_cast<Model&>(changed).offset = 100; };
    return model;
}

/// Saves a setting that has no bearing on its output, and that restore() passes over.
SWrongModel restoresNothing()
{
    SWrongModel model = wrong("restores-nothing", "saves-what-it-restored", &SMisbehaviour::save,
                              [](const Model& saving, const QJsonObject& saved) {
                                  return withSetting(saved, QStringLiteral("count"), saving.count);
                              });
    model.options.changeSettings = [](CNodeDataModel& changed) { static_cast<Model&>(changed).count = 3; };
    return model;
}

/// Saves a key that is missing after a restore().
SWrongModel dropsAKey()
{
    SMisbehaviour misbehaviour;
    misbehaviour.save = [](const Model& model, const QJsonObject& saved) {
        return model.count > 0 ? saved : withSetting(saved, QStringLiteral("once"), QJsonArray{1, 2});
    };
    misbehaviour.restore = [](Model& model, const QJsonObject& json) {
        model.readSettings(json);
        model.count += settingsIn(json).contains(QStringLiteral("once")) ? 1 : 0;
    };
    return wrong("drops-a-key", "saves-what-it-restored", numberModel(misbehaviour));
}

/// A model that saves an array of objects beside its settings.
SWrongModel withPoints(const char* name, const char* rule, std::function<void(Model&, const QJsonObject&)> restore)
{
    SMisbehaviour misbehaviour;
    misbehaviour.save = [](const Model&, const QJsonObject& saved) {
        const QJsonObject point{{QStringLiteral("x"), 1}};
        return withSetting(saved, QStringLiteral("points"), QJsonArray{point, point});
    };
    misbehaviour.restore = std::move(restore);
    return wrong(name, rule, numberModel(misbehaviour));
}

std::vector<SWrongModel> wrongInDocuments()
{
    return {
        wrong("saves-no-name", "saves-what-its-base-saves", &SMisbehaviour::save,
              [](const Model&, QJsonObject saved) {
                  saved.remove(QStringLiteral("name"));
                  return saved;
              }),
        wrong("counts-its-rounds", "saves-what-it-restored",
              [] {
                  SMisbehaviour misbehaviour;
                  misbehaviour.save = [](const Model& model, const QJsonObject& saved) {
                      return withSetting(saved, QStringLiteral("round"), model.count);
                  };
                  misbehaviour.restore = [](Model& model, const QJsonObject& json) {
                      model.readSettings(json);
                      const QJsonValue round = settingsIn(json).value(QStringLiteral("round"));
                      model.count = round.isUndefined() ? model.count : round.toInt() + 1;
                  };
                  return std::make_unique<CNumberModel>(misbehaviour);
              }),
        wrong("saves-what-is-no-number", "saves-what-it-restored",
              [] {
                  SMisbehaviour misbehaviour;
                  misbehaviour.save = [](const Model& model, const QJsonObject& saved) {
                      const double level = model.count == 0 ? std::numeric_limits<double>::quiet_NaN() : 0.5;
                      return withSetting(saved, QStringLiteral("level"), level);
                  };
                  misbehaviour.restore = [](Model& model, const QJsonObject& json) {
                      model.readSettings(json);
                      model.count += settingsIn(json).contains(QStringLiteral("level")) ? 1 : 0;
                  };
                  return std::make_unique<CNumberModel>(misbehaviour);
              }),
        restoresNothing(),
        dropsAKey(),
        withHiddenSetting(),
        wrong("needs-its-keys", "restores-an-empty-document", &SMisbehaviour::restore,
              [](Model& model, const QJsonObject& json) {
                  if (!json.contains(QStringLiteral("property")))
                      throw std::runtime_error("no settings");
                  model.readSettings(json);
              }),
        wrong("other-without-keys", "restores-an-empty-document", &SMisbehaviour::restore,
              [](Model& model, const QJsonObject& json) {
                  if (json.contains(QStringLiteral("property")))
                      model.readSettings(json);
                  else
                      model.setGain(5);
              }),
        wrong("too-busy-to-restore", "restores-over-a-working-state", &SMisbehaviour::restore,
              [](Model& model, const QJsonObject& json) {
                  if (!model.hadNumber)
                      model.readSettings(json);
              }),
        wrong("refuses-unknown-keys", "takes-foreign-keys", &SMisbehaviour::restore,
              [](Model& model, const QJsonObject& json) {
                  const QStringList keys = json.keys();
                  for (const QString& key : keys) {
                      if (key != QLatin1String("name") && key != QLatin1String("property"))
                          throw std::runtime_error("unknown key");
                  }
                  model.readSettings(json);
              }),
        withPoints("unknown-key-in-an-array", "takes-foreign-keys",
                   [](Model& model, const QJsonObject& json) {
                       const QJsonArray points = settingsIn(json).value(QStringLiteral("points")).toArray();
                       for (const QJsonValue& point : points) {
                           if (point.toObject().size() > 1)
                               throw std::runtime_error("unknown key");
                       }
                       model.readSettings(json);
                   }),
        wrong("saves-all-keys", "takes-foreign-keys",
              [] {
                  SMisbehaviour misbehaviour;
                  const auto kept = std::make_shared<QJsonObject>();
                  misbehaviour.restore = [kept](Model& model, const QJsonObject& json) {
                      *kept = json;
                      model.readSettings(json);
                  };
                  misbehaviour.save = [kept](const Model&, QJsonObject saved) {
                      for (auto it = kept->begin(); it != kept->end(); ++it) {
                          if (!saved.contains(it.key()))
                              saved.insert(it.key(), it.value());
                      }
                      return saved;
                  };
                  return std::make_unique<CNumberModel>(misbehaviour);
              }),
        wrong("refuses-wrong-types", "takes-wrong-types", &SMisbehaviour::restore,
              [](Model& model, const QJsonObject& json) {
                  const QJsonValue gain = settingsIn(json).value(QStringLiteral("gain"));
                  if (!gain.isUndefined() && !gain.isDouble())
                      throw std::runtime_error("gain is no number");
                  model.readSettings(json);
              }),
        wrong("refuses-an-unknown-text", "takes-wrong-types", &SMisbehaviour::restore,
              [](Model& model, const QJsonObject& json) {
                  const QJsonValue label = settingsIn(json).value(QStringLiteral("label"));
                  if (label.isString() && !label.toString().startsWith(QLatin1String("none")))
                      throw std::runtime_error("unknown label");
                  model.readSettings(json);
              }),
        withPoints("refuses-a-wrong-element", "takes-wrong-types",
                   [](Model& model, const QJsonObject& json) {
                       const QJsonArray points = settingsIn(json).value(QStringLiteral("points")).toArray();
                       for (const QJsonValue& point : points) {
                           if (point.isString())
                               throw std::runtime_error("a point is no object");
                       }
                       model.readSettings(json);
                   }),
        wrong("breaks-by-a-wrong-value", "takes-wrong-types", &SMisbehaviour::setInData,
              [](Model& model, const CNodeDataPtr& data, int index) {
                  if (model.gain() < 0)
                      throw std::domain_error("root of a negative number");
                  model.multiply(data, index);
              }),
        wrong("label-is-not-saved", "properties-survive-saving", &SMisbehaviour::save,
              [](const Model&, const QJsonObject& saved) {
                  return withSetting(saved, QStringLiteral("label"), QStringLiteral("none"));
              }),
        wrong("setting-that-throws", "properties-survive-saving", &SMisbehaviour::setLabel,
              [](Model& model, const QString& label) {
                  if (label.endsWith(QLatin1Char('x')))
                      throw std::invalid_argument("no such label");
                  model.changeLabel(label);
              }),
        wrong("silent-property", "properties-tell-of-changes", &SMisbehaviour::setLabel,
              [](Model& model, const QString& label) { model.storeLabel(label); }),
        wrong("talkative-property", "properties-tell-of-changes", &SMisbehaviour::setLabel,
              [](Model& model, const QString& label) {
                  model.storeLabel(label);
                  Q_EMIT model.labelChanged();
              }),
    };
}

SWrongModel slowToGo()
{
    SMisbehaviour misbehaviour;
    misbehaviour.setInData = [](Model& model, const CNodeDataPtr& data, int index) {
        model.multiply(data, index);
        if (!isNumber(data))
            return;
        ++model.count;
        QTimer::singleShot(0, &model, [&model] { --model.count; });
    };
    misbehaviour.destroy = [](Model& model) {
        if (model.count > 0)
            QThread::msleep(40);
    };
    SWrongModel model = wrong("slow-to-go", "goes-while-it-computes", numberModel(misbehaviour));
    model.options.longestDestruction = std::chrono::milliseconds(20);
    return model;
}

SWrongModel hoardsData()
{
    static std::vector<CNodeDataPtr> hoard;
    SWrongModel model = wrong("hoards-data", "lets-go-of-its-data", &SMisbehaviour::setInData,
                              [](Model& hoarding, const CNodeDataPtr& data, int index) {
                                  hoard.push_back(data);
                                  hoarding.multiply(data, index);
                              });
    model.options.longestDestruction = std::chrono::milliseconds(200);
    return model;
}

SWrongModel slowToAnswer()
{
    SWrongModel model = wrong("slow-to-answer", "answers-in-time", &SMisbehaviour::setInData,
                              [](Model& slow, const CNodeDataPtr& data, int index) {
                                  if (++slow.count % 20 == 0)
                                      QThread::msleep(40);
                                  slow.multiply(data, index);
                              });
    model.options.longestCall = std::chrono::milliseconds(20);
    return model;
}

SWrongModel leavesThreads()
{
    // Opened when the last model of this row is gone: threads that wait for good are no good neighbours.
    struct SGate
    {
        ~SGate() { opened->release(10000); }
        std::shared_ptr<QSemaphore> opened = std::make_shared<QSemaphore>();
    };
    const auto gate = std::make_shared<SGate>();
    SWrongModel model = wrong("leaves-threads", "leaves-nothing-behind", &SMisbehaviour::construct,
                              [gate](Model&) { std::thread([opened = gate->opened] { opened->acquire(); }).detach(); });
    model.options.instances = 10;
    return model;
}

std::vector<SWrongModel> wrongInTheirEnd()
{
    SWrongModel leavesFiles = wrong("leaves-files", "leaves-nothing-behind", &SMisbehaviour::construct,
                                    [](Model&) { static_cast<void>(::open("/dev/null", O_RDONLY)); });
    leavesFiles.options.instances = 10;
    return {
        slowToGo(),
        hoardsData(),
#ifdef COUNTS_MEMORY
        wrong("leaves-memory", "leaves-nothing-behind", &SMisbehaviour::construct,
              [](Model&) {
                  void* volatile leaked = std::malloc(100); // volatile, or the compiler would leave it out
                  static_cast<void>(leaked);
              }),
#endif
        leavesFiles,
        leavesThreads(),
        slowToAnswer(),
    };
}

} // namespace

std::vector<SWrongModel> wrongModels()
{
    std::vector<SWrongModel> all;
    for (auto* const group : {&wrongInWhoTheyAre, &wrongInTheirClass, &wrongInTheirPorts, &wrongWithData,
                              &wrongInWhatTheySay, &wrongInDocuments, &wrongInTheirEnd}) {
        for (SWrongModel& model : group())
            all.push_back(std::move(model));
    }
    return all;
}

#include "CNumberModel.moc"
#include "WrongModels.moc"
