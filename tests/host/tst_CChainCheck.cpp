// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CChainCheck.h"

#include "SHostService.h"
#include "TestJson.h"
#include "TestTable.h"
#include "ThrowingModels.h"
#include "host/run/Chain.h"

using namespace Host;
using namespace Plugin::Halvex;

namespace {

// An element with that name and model, and with \a keys besides.
QJsonObject element(const char* name, const char* model, const char* keys = "")
{
    QJsonObject element = json(QByteArray("{") + keys + '}').toObject();
    element.insert("name", name);
    element.insert("model", QJsonObject{{"name", model}});
    return element;
}

QJsonObject blur(const char* keys)
{
    return element("blur", "Blur", keys);
}

QJsonObject sink(const char* name, const char* sinkName)
{
    const QJsonObject model{{"name", "PNG Sink"}, {"property", QJsonObject{{"sink_name", sinkName}}}};
    return {{"name", name}, {"model", model}};
}

// Of both cameras an image, blurred, and two sinks.
QJsonArray sound()
{
    return {element("image", "To Image", "'unique_sources': [['left', 'right']], 'connection': [['blur']]"),
            blur("'connection': [['a', {'name': 'b', 'index_in': 0, 'index _out': 0}]]"), sink("a", "a"),
            sink("b", "b")};
}

// The check of a chain for some cameras.
struct SCheck
{
    explicit SCheck(const QStringList& cameras)
        : check(host.nodes, host.models, cameras)
    {
    }

    SHostService host;
    CChainCheck check;
};

} // namespace

class tst_CChainCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundChain();
    void defaultChainIsSound();
    void countsPerCamera();
    void sourceThatNobodyIs();
    void labelAsSource();
    void refused_data();
    void refused();
    void largeChain();
};

void tst_CChainCheck::soundChain()
{
    SCheck both({"left", "right"});
    QCOMPARE(both.check.check(sound()), QString());
    QCOMPARE(both.check.connections(0), std::size_t(4));
    QCOMPARE(both.check.connections(1), std::size_t(4));
    // It only looks.
    QVERIFY(both.host.nodes.scenes().isEmpty());
}

void tst_CChainCheck::defaultChainIsSound()
{
    SCheck left({"left"});
    QCOMPARE(left.check.check(defaultChain({"left"}).elements), QString());
    QCOMPARE(left.check.connections(0), std::size_t(11));
}

void tst_CChainCheck::countsPerCamera()
{
    SCheck both({"left", "right"});
    const QJsonObject second = element("second", "To Image", "'unique_sources': [['right', 'right']]");
    QCOMPARE(both.check.check(replaced(sound(), 4, second)), QString());
    QCOMPARE(both.check.connections(0), std::size_t(4));
    QCOMPARE(both.check.connections(1), std::size_t(6));
}

void tst_CChainCheck::sourceThatNobodyIs()
{
    SCheck left({"left"});
    QCOMPARE(left.check.check(sound()), QString());
    QCOMPARE(left.check.connections(0), std::size_t(4));
}

void tst_CChainCheck::labelAsSource()
{
    SCheck left({"left"});
    const QJsonObject edges = element("edges", "Edges", "'unique_sources': [['blur']]");
    QCOMPARE(left.check.check(replaced(sound(), 4, edges)), QString());
    QCOMPARE(left.check.connections(0), std::size_t(5));
}

void tst_CChainCheck::refused_data()
{
    addColumns<QJsonArray, QString>({"elements", "error"});
    addRow("nothing", QJsonArray(), "nothing is wired to the camera 'left'");
    const auto row = [](const char* name, int place, const QJsonValue& element, const char* error) {
        addRow(name, replaced(sound(), place, element), error);
    };
    row("one camera only", 0, element("image", "To Image", "'unique_sources': [['left']], 'connection': [['blur']]"),
        "nothing is wired to the camera 'right'");
    row("element is no object", 1, "blur", "elements[1]: no object with a model");
    row("model is no object", 1, json("{'name': 'blur', 'model': 'Blur'}"), "elements[1]: no object with a model");
    row("no name", 1, json("{'model': {'name': 'Blur'}}"), "elements[1]: it has no name");
    row("name twice", 3, sink("a", "b"), "elements[3]: has the name of elements[2]");
    row("name of a camera", 3, sink("right", "b"), "elements[3]: has the name of the camera 'right'");
    row("unregistered model", 1, element("blur", "Sharpen"), "elements[1]: no model 'Sharpen' is registered");
    row("cannot be made", 1, element("blur", "Scarce"), "elements[1]: making 'Scarce' throws: no more of them");
    row("cannot be read", 1, element("blur", "Unreadable"), "elements[1]: making 'Unreadable' throws: no such setting");
    row("source of its own", 4, element("camera", "Camera Source"),
        "elements[4]: a 'Camera Source' of its own; frames come from the cameras of the run");
    row("sink without a name", 3, element("b", "PNG Sink"), "elements[3]: the sink's name '' makes no folder");
    row("sink elsewhere", 3, sink("b", "../b"), "elements[3]: the sink's name '../b' makes no folder");
    row("same sink twice", 3, sink("b", "a"), "elements[3]: a second sink 'a'");

    row("sources are no array", 1, blur("'unique_sources': 'left'"), "elements[1]: unique_sources: no array");
    row("no array of a port", 1, blur("'unique_sources': ['left']"), "elements[1]: unique_sources[0]: no array");
    row("source is no name", 1, blur("'unique_sources': [[7]]"), "elements[1]: unique_sources[0][0]: no name");
    row("frames into an image port", 1, blur("'unique_sources': [['left']]"),
        "elements[1]: unique_sources[0][0]: 'Veltra Grab Result' to 'Host Image', and a chain has no converters");
    row("second output of a camera", 1, blur("'unique_sources': [[], ['left']]"),
        "elements[1]: unique_sources[1][0]: the camera 'left' has no output port 1");
    row("targets are no array", 1, blur("'connection': 'a'"), "elements[1]: connection: no array");
    row("targets are not grouped", 1, blur("'connection': ['a']"), "elements[1]: connection[0]: no array");
    const auto feeds = [row](const char* name, const char* target, const char* error) {
        const QString all = QStringLiteral("elements[1]: connection[0][0]: %1").arg(error);
        row(name, 1, blur(QString::asprintf("'connection': [[%s]]", target).toUtf8()), all.toUtf8());
    };
    feeds("unknown target", "'c'", "no element is named 'c'");
    feeds("target is no name", "7", "no element is named ''");
    feeds("unknown output", "{'name': 'a', 'index _out': 1}", "elements[1] has no output port 1");
    feeds("unknown input", "{'name': 'a', 'index_in': -1}", "elements[2] has no input port -1");
    feeds("into a camera", "'left'", "the camera 'left' has no input port 0");
    feeds("image into a frame port", "'image'", "'Host Image' to 'Veltra Grab Result', and a chain has no converters");
    row("loop", 1, blur("'connection': [['blur']]"), "the connections lead from elements[1] back to it");
}

void tst_CChainCheck::refused()
{
    QFETCH(QJsonArray, elements);
    QFETCH(QString, error);
    SCheck both({"left", "right"});
    registerThrowingModels(*both.host.nodes.registry(), 0);
    QCOMPARE(both.check.check(elements), error);
}

void tst_CChainCheck::largeChain()
{
    constexpr int blurs = 20000;
    QJsonArray elements = sound();
    for (int i = 0; i < blurs; ++i)
        elements.append(element(QByteArray::number(i), "Blur", "'unique_sources': [['image']]"));
    SCheck left({"left"});
    QCOMPARE(left.check.check(elements), QString());
    QCOMPARE(left.check.connections(0), std::size_t(blurs + 4));
}

QTEST_GUILESS_MAIN(tst_CChainCheck)
#include "tst_CChainCheck.moc"
