// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CChainCheck.h"

#include "SHostService.h"
#include "ThrowingModels.h"
#include "host/run/Chain.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

const QString sources = QStringLiteral("unique_sources");
const QString targets = QStringLiteral("connection");

QJsonObject element(const char* name, const char* model)
{
    return {{"name", name}, {"model", QJsonObject{{"name", model}}}};
}

QJsonObject sink(const char* name, const char* sinkName)
{
    return {{"name", name},
            {"model", QJsonObject{{"name", "PNG Sink"}, {"property", QJsonObject{{"sink_name", sinkName}}}}}};
}

QJsonObject with(QJsonObject json, const QString& key, const QJsonValue& value)
{
    json.insert(key, value);
    return json;
}

// Of both cameras an image, blurred, and two sinks.
QJsonArray sound()
{
    return {
        with(with(element("image", "To Image"), sources, QJsonArray{QJsonValue(QJsonArray{"left", "right"})}), targets,
             QJsonArray{QJsonValue(QJsonArray{"blur"})}),
        with(element("blur", "Blur"), targets,
             QJsonArray{QJsonValue(QJsonArray{"a", QJsonObject{{"name", "b"}, {"index_in", 0}, {"index _out", 0}}})}),
        sink("a", "a"), sink("b", "b")};
}

QJsonArray with(int place, const QJsonValue& json)
{
    QJsonArray elements = sound();
    if (place < elements.size())
        elements[place] = json;
    else
        elements.append(json);
    return elements;
}

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
    SHostService host;
    CChainCheck check(host.nodes, host.models, {"left", "right"});
    QCOMPARE(check.check(sound()), QString());
    QCOMPARE(check.connections(0), std::size_t(4));
    QCOMPARE(check.connections(1), std::size_t(4));
    // It only looks.
    QVERIFY(host.nodes.scenes().isEmpty());
}

void tst_CChainCheck::defaultChainIsSound()
{
    SHostService host;
    CChainCheck check(host.nodes, host.models, {"left"});
    QCOMPARE(check.check(defaultChain({"left"}).elements), QString());
    QCOMPARE(check.connections(0), std::size_t(11));
}

void tst_CChainCheck::countsPerCamera()
{
    SHostService host;
    CChainCheck check(host.nodes, host.models, {"left", "right"});
    const QJsonObject second =
        with(element("second", "To Image"), sources, QJsonArray{QJsonValue(QJsonArray{"right", "right"})});
    QCOMPARE(check.check(with(4, second)), QString());
    QCOMPARE(check.connections(0), std::size_t(4));
    QCOMPARE(check.connections(1), std::size_t(6));
}

void tst_CChainCheck::sourceThatNobodyIs()
{
    SHostService host;
    CChainCheck check(host.nodes, host.models, {"left"});
    QCOMPARE(check.check(sound()), QString());
    QCOMPARE(check.connections(0), std::size_t(4));
}

void tst_CChainCheck::labelAsSource()
{
    SHostService host;
    CChainCheck check(host.nodes, host.models, {"left"});
    QCOMPARE(check.check(with(4, with(element("edges", "Edges"), sources, QJsonArray{QJsonValue(QJsonArray{"blur"})}))),
             QString());
    QCOMPARE(check.connections(0), std::size_t(5));
}

void tst_CChainCheck::refused_data()
{
    QTest::addColumn<QJsonArray>("elements");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QJsonArray& elements, const char* error) {
        QTest::newRow(name) << elements << QString::fromLatin1(error);
    };
    const QJsonObject blur = element("blur", "Blur");
    const auto feeds = [&blur](const QJsonValue& target) {
        return with(blur, targets, QJsonArray{QJsonValue(QJsonArray{target})});
    };
    const auto fedBy = [&blur](const QJsonValue& source) {
        return with(blur, sources, QJsonArray{QJsonValue(QJsonArray{source})});
    };

    row("nothing", {}, "nothing is wired to the camera 'left'");
    row("one camera only", with(0, with(sound()[0].toObject(), sources, QJsonArray{QJsonValue(QJsonArray{"left"})})),
        "nothing is wired to the camera 'right'");
    row("element is no object", with(1, "blur"), "elements[1]: no object with a model");
    row("model is no object", with(1, QJsonObject{{"name", "blur"}, {"model", "Blur"}}),
        "elements[1]: no object with a model");
    row("no name", with(1, QJsonObject{{"model", QJsonObject{{"name", "Blur"}}}}), "elements[1]: it has no name");
    row("name twice", with(3, sink("a", "b")), "elements[3]: has the name of elements[2]");
    row("name of a camera", with(3, sink("right", "b")), "elements[3]: has the name of the camera 'right'");
    row("unregistered model", with(1, element("blur", "Sharpen")), "elements[1]: no model 'Sharpen' is registered");
    row("model that cannot be made", with(1, element("blur", "Scarce")),
        "elements[1]: making 'Scarce' throws: no more of them");
    row("model that cannot be read", with(1, element("blur", "Unreadable")),
        "elements[1]: making 'Unreadable' throws: no such setting");
    row("source of its own", with(4, element("camera", "Camera Source")),
        "elements[4]: a 'Camera Source' of its own; frames come from the cameras of the run");
    row("sink without a name", with(3, element("b", "PNG Sink")), "elements[3]: the sink's name '' makes no folder");
    row("sink elsewhere", with(3, sink("b", "../b")), "elements[3]: the sink's name '../b' makes no folder");
    row("same sink twice", with(3, sink("b", "a")), "elements[3]: a second sink 'a'");

    row("sources are no array", with(1, with(blur, sources, "left")), "elements[1]: unique_sources: no array");
    row("sources of a port are no array", with(1, with(blur, sources, QJsonArray{"left"})),
        "elements[1]: unique_sources[0]: no array");
    row("source is no name", with(1, fedBy(7)), "elements[1]: unique_sources[0][0]: no name");
    row("frames into an image port", with(1, fedBy("left")),
        "elements[1]: unique_sources[0][0]: 'Veltra Grab Result' to 'Host Image', and a chain has no converters");
    row("second output of a camera",
        with(1, with(element("blur", "Blur"), sources, QJsonArray{QJsonArray{}, QJsonArray{"left"}})),
        "elements[1]: unique_sources[1][0]: the camera 'left' has no output port 1");
    row("targets are no array", with(1, with(blur, targets, "a")), "elements[1]: connection: no array");
    row("targets are not grouped", with(1, with(blur, targets, QJsonArray{"a"})),
        "elements[1]: connection[0]: no array");
    row("unknown target", with(1, feeds("c")), "elements[1]: connection[0][0]: no element is named 'c'");
    row("target is no name", with(1, feeds(7)), "elements[1]: connection[0][0]: no element is named ''");
    row("unknown output", with(1, feeds(QJsonObject{{"name", "a"}, {"index _out", 1}})),
        "elements[1]: connection[0][0]: elements[1] has no output port 1");
    row("unknown input", with(1, feeds(QJsonObject{{"name", "a"}, {"index_in", -1}})),
        "elements[1]: connection[0][0]: elements[2] has no input port -1");
    row("into a camera", with(1, feeds("left")),
        "elements[1]: connection[0][0]: the camera 'left' has no input port 0");
    row("image into a frame port", with(1, feeds("image")),
        "elements[1]: connection[0][0]: 'Host Image' to 'Veltra Grab Result', and a chain has no converters");
    row("loop", with(1, feeds("blur")), "the connections lead from elements[1] back to it");
}

void tst_CChainCheck::refused()
{
    QFETCH(QJsonArray, elements);
    QFETCH(QString, error);
    SHostService host;
    registerThrowingModels(*host.nodes.registry(), 0);
    CChainCheck check(host.nodes, host.models, {"left", "right"});
    QCOMPARE(check.check(elements), error);
}

void tst_CChainCheck::largeChain()
{
    constexpr int blurs = 20000;
    QJsonArray elements = sound();
    for (int i = 0; i < blurs; ++i)
        elements.append(with(element(qPrintable(QString::number(i)), "Blur"), sources,
                             QJsonArray{QJsonValue(QJsonArray{"image"})}));
    SHostService host;
    CChainCheck check(host.nodes, host.models, {"left"});
    QCOMPARE(check.check(elements), QString());
    QCOMPARE(check.connections(0), std::size_t(blurs + 4));
}

QTEST_GUILESS_MAIN(tst_CChainCheck)
#include "tst_CChainCheck.moc"
