// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CDocumentCheck.h"

#include "SCheckedService.h"
#include "TestFile.h"
#include "host/check/CFaultList.h"
#include "host/check/FaultReport.h"

#include <QJsonDocument>
#include <QTest>

#include <algorithm>

using namespace Host;

namespace {

// An array of elements, one from each number.
template <typename Element>
QByteArray chainOf(int count, const Element& element)
{
    QByteArray text = "[";
    for (int i = 0; i < count; ++i)
        text += (i == 0 ? "" : ",\n") + element(QByteArray::number(i));
    return text + "]";
}

QByteArray blur(const QByteArray& label, const QByteArray& target)
{
    return R"({"name": "blur )" + label + R"(", "model": {"name": "Blur", "property": {"parallelism": 2}},
               "connection": [[")" +
           target + R"("]]})";
}

/// Throws when it is asked for its setting.
class CUnaskableModel : public CBlurModel
{
    Q_OBJECT
    Q_PROPERTY(int mood READ mood CONSTANT)

public:
    QString name() override { return QStringLiteral("Unaskable"); }
    int mood() const { throw std::runtime_error("do not ask"); }
};

QByteArray firstLine(const std::vector<SFault>& faults)
{
    return faults.empty() ? QByteArray() : faultLine("file", faults.front()).toUtf8();
}

QByteArray imageChain()
{
    return R"([{"name": "image", "model": {"name": "To Image"}, "unique_sources": [["left"]]}])";
}

} // namespace

class tst_CDocumentCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsConnectionsOfCameras();
    void asOftenAsYouLike();
    void otherKindThanAsked();
    void sourceAtLabel();
    void shippedChain();
    void savedScene();
    void settingsAreTaken();
    void settingThatThrows();
    void bytesThatAreNoText();
    void truncated();
    void whatARunCannotRead();
    void largeChain();
    void largeChainOfFaults();
    void moreFaultsThanAnyoneReads();
    void errorsBehindTooManyWarnings();
    void moreValuesThanAnyChainHas();
    void labelsAmongTooManyNames();
    void largeLoop();
    void largePort();
};

void tst_CDocumentCheck::countsConnectionsOfCameras()
{
    SCheckedService service(withCameras({"left", "right"}));
    const QByteArray chain = R"([
        {"name": "a", "model": {"name": "To Image"}, "unique_sources": [["left", "right"]], "connection": [["b"]]},
        {"name": "b", "model": {"name": "Blur"}},
        {"name": "c", "model": {"name": "To Image"}, "unique_sources": [["right"]]}])";
    QCOMPARE(firstLine(service.check.check(chain)), QByteArray());
    QCOMPARE(service.check.connections(0), std::size_t(2));
    QCOMPARE(service.check.connections(1), std::size_t(3));
    // What is connected twice counts twice; the star leaves out the camera beside it.
    service.check.check(QByteArray(chain).replace(R"([["right"]])", R"([["left", "*", "left"]])"));
    QCOMPARE(service.check.connections(0), std::size_t(4));
    QCOMPARE(service.check.connections(1), std::size_t(3));
}

void tst_CDocumentCheck::asOftenAsYouLike()
{
    SCheckedService service(withCameras({"left"}));
    QVERIFY(hasErrors(service.check.check("[")));
    QCOMPARE(service.check.connections(0), std::size_t(0));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(firstLine(service.check.check(imageChain())), QByteArray());
}

void tst_CDocumentCheck::otherKindThanAsked()
{
    SCheckOptions options;
    options.kind = EDocumentKind::Scene;
    SCheckedService scene(options);
    QCOMPARE(firstLine(scene.check.check(imageChain())),
             QByteArray("file:1:1: error: $: an array, where an object belongs: a scene"));
    options.kind = EDocumentKind::Chain;
    SCheckedService chain(options);
    QCOMPARE(firstLine(chain.check.check("{}")),
             QByteArray("file:1:1: error: $: an object, where an array belongs: the elements of a chain"));
}

// What names an element may come before it.
void tst_CDocumentCheck::sourceAtLabel()
{
    SCheckedService service(withCameras({"left"}));
    const QByteArray chain =
        R"([{"name": "b", "model": {"name": "Blur"}, "unique_sources": [["image"]]}, )" + imageChain().mid(1);
    QCOMPARE(firstLine(service.check.check(chain)), QByteArray());
    QCOMPARE(service.check.connections(0), std::size_t(2));
}

void tst_CDocumentCheck::shippedChain()
{
    SCheckedService fakes(withCameras({"fake-1", "fake-2"}));
    const QByteArray chain = content(DEMO_CHAIN);
    QCOMPARE(firstLine(fakes.check.check(chain)), QByteArray());
    QCOMPARE(fakes.check.connections(0), std::size_t(11));
    SCheckedService anyone;
    QCOMPARE(firstLine(anyone.check.check(chain)), QByteArray());
}

void tst_CDocumentCheck::savedScene()
{
    SCheckedService service;
    const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
    service.host.nodes.addNode(service.host.models.createCameraSource("fake-1"), info);
    const QByteArray chain = content(DEMO_CHAIN).replace("\"*\"", "\"fake-1\"");
    QVERIFY(service.host.nodes.importDocument(QString::fromUtf8(chain)));
    const QByteArray scene = service.host.nodes.findSceneByInfo(info)->saveToMemory();
    QCOMPARE(firstLine(service.check.check(scene)), QByteArray());
}

void tst_CDocumentCheck::settingsAreTaken()
{
    SCheckedService service(withCameras({"left"}));
    const auto checked = [&](const QByteArray& model) {
        const QByteArray tuned =
            R"(, {"name": "tuned", "model": {"name": "Tuned", )" + model + R"(}, "unique_sources": [["image"]]}])";
        return firstLine(service.check.check(imageChain().replace("}]", '}' + tuned)));
    };
    QCOMPARE(checked(R"("property": {"gain": 0.1})"), QByteArray());
    QVERIFY(checked(R"("property": {"gain": 16777217})").endsWith("it stays 16777216"));
    QCOMPARE(checked(R"("lens": {"focus": 7})"), QByteArray());
    QVERIFY(checked(R"("property": {"gain": "high"})").contains("the string 'high', where a value like 1 belongs"));
    QVERIFY(checked(R"("lens": {"focus": 7.5})")
                .endsWith("an object for 'lens' is not taken; it stays "
                          R"({"focus":1,"zoom":1})"));
    QVERIFY(checked(R"("lense": {"focus": 7})").endsWith("did you mean 'lens'?"));
}

void tst_CDocumentCheck::settingThatThrows()
{
    SCheckedService service(withCameras({"left"}));
    service.host.nodes.registry()->registerModel<CUnaskableModel>(QStringLiteral("Tests"));
    const QByteArray chain = imageChain().replace("To Image\"", "Unaskable\", \"property\": {\"mood\": 5}");
    QCOMPARE(firstLine(service.check.check(chain)),
             QByteArray("file:1:29: error: $[0].model: making 'Unaskable' throws: do not ask"));
}

void tst_CDocumentCheck::bytesThatAreNoText()
{
    SCheckedService service;
    const auto ruleOf = [&](const QByteArray& text) { return faultRuleName(service.check.check(text).at(0).rule); };
    QCOMPARE(ruleOf("[\"\xff\"]"), QString("encoding"));
    QCOMPARE(ruleOf("[] \xc3"), QString("encoding"));
    QCOMPARE(ruleOf("[1] \xed\xa0\x80"), QString("encoding")); // half of a letter of UTF-16
    QCOMPARE(ruleOf(QByteArray("[\"a\0\"]", 6)), QString("syntax"));
}

void tst_CDocumentCheck::truncated()
{
    SCheckedService service(withCameras({"left"}));
    const QByteArray image = imageChain();
    for (int size = 0; size < image.size(); ++size)
        QVERIFY2(hasErrors(service.check.check(image.left(size))), image.left(size));
}

// A run reads with another parser: whatever that one refuses must be an error here.
void tst_CDocumentCheck::whatARunCannotRead()
{
    SCheckedService service(withCameras({"left"}));
    const QByteArray image = imageChain();
    for (const char byte :
         {'"', '\\', '{', '}', '[', ']', ',', ':', '0', '-', '.', 'e', '/', '\n', '\x01', '\0', '\x80', '\xc3'}) {
        for (int i = 0; i < image.size(); ++i) {
            const QByteArray text = QByteArray(image).replace(i, 1, &byte, 1);
            const std::vector<SFault> faults = service.check.check(text);
            QJsonParseError error{};
            QJsonDocument::fromJson(text, &error);
            QVERIFY2(error.error == QJsonParseError::NoError || hasErrors(faults), text);
        }
    }
}

void tst_CDocumentCheck::largeChain()
{
    constexpr int count = 10000;
    const QByteArray blurs =
        chainOf(count, [](const QByteArray& i) { return blur(i, QByteArray::number(i.toInt() + 1).prepend("blur ")); });
    const QByteArray ends = R"([{"name": "image", "model": {"name": "To Image"}, "unique_sources": [["left"]],
                                "connection": [["blur 0"]]}, {"name": "blur 10000", "model": {"name": "Blur"}}, )";
    SCheckedService service(withCameras({"left"}));
    QCOMPARE(firstLine(service.check.check(ends + blurs.mid(1))), QByteArray());
    QCOMPARE(service.check.connections(0), std::size_t(count + 2));
}

// All on one line, each wrong in the same ways.
void tst_CDocumentCheck::largeChainOfFaults()
{
    constexpr int count = CFaultList::mostFaults / 5;
    const QByteArray chain = chainOf(count, [](const QByteArray& i) {
        return R"({"name": "a )" + i + R"(", "model": {"name": "Sharpen"}, "colour": 1, "connection": [["b"], 5]})";
    });
    SCheckedService service(withCameras({"left"}));
    const std::vector<SFault> faults = service.check.check(QByteArray(chain).replace('\n', ' '));
    for (const EFaultRule rule :
         {EFaultRule::UnknownModel, EFaultRule::UnknownKey, EFaultRule::UnknownName, EFaultRule::WrongType}) {
        const auto isMeant = [rule](const SFault& fault) { return fault.rule == rule; };
        QCOMPARE(std::count_if(faults.begin(), faults.end(), isMeant), std::ptrdiff_t(count));
    }
}

void tst_CDocumentCheck::moreFaultsThanAnyoneReads()
{
    SCheckedService service(withCameras({"left"}));
    const std::vector<SFault> faults = service.check.check(chainOf(10000, [](const QByteArray& i) { return i; }));
    QCOMPARE(faults.size(), std::size_t(CFaultList::mostFaults + 1));
    QCOMPARE(faultLine("file", faults.front()).section(' ', 0, 2), QString("file:1:2: error: $[0]:"));
    QCOMPARE(faultLine("file", faults.back()), QString("file: error: there are more faults than these 5000"));
}

void tst_CDocumentCheck::errorsBehindTooManyWarnings()
{
    SCheckedService service(withCameras({"left"}));
    const QByteArray chain =
        imageChain().replace("[\"left\"]", '[' + QByteArray("\"left\", ").repeated(10000) + "\"left\"]");
    QVERIFY(!hasErrors(service.check.check(chain)));
    const QByteArray alone = R"(, {"name": "alone", "model": {"name": "Blur"}}])";
    QVERIFY(hasErrors(service.check.check(QByteArray(chain).replace("}]", '}' + alone))));
}

void tst_CDocumentCheck::moreValuesThanAnyChainHas()
{
    SCheckedService service(withCameras({"left"}));
    const std::vector<SFault> faults = service.check.check('[' + QByteArray("[],").repeated(500000) + "1]");
    QCOMPARE(faults.size(), std::size_t(1));
    QCOMPARE(faultLine("file", faults.front()), QString("file:1:1499999: error: more than 500000 values"));
}

// Names of cameras are compared with all labels, until that takes too long. No mistyped label may pass for a camera
// then.
void tst_CDocumentCheck::labelsAmongTooManyNames()
{
    const QByteArray blurs = chainOf(5000, [](const QByteArray& i) { return blur(i, "last"); });
    QByteArray cameras;
    for (int i = 0; i < 200; ++i)
        cameras += QByteArray::number(i).rightJustified(8, 'x') + "\", \"";
    const QByteArray ends = R"([{"name": "image", "model": {"name": "To Image"}, "unique_sources": [[")" + cameras +
                            R"(camera"]], "connection": [["last"]]},
                               {"name": "last", "model": {"name": "Blur"}, "unique_sources": [["imaeg"]]}, )";
    SCheckedService service;
    const std::vector<SFault> faults = service.check.check(ends + blurs.mid(1));
    const bool isTold = std::any_of(faults.begin(), faults.end(), [](const SFault& fault) {
        return fault.rule == EFaultRule::Source &&
               fault.message.startsWith("no element is named 'imaeg', so that it is taken for a camera; ");
    });
    QVERIFY(isTold);
}

void tst_CDocumentCheck::largeLoop()
{
    constexpr int count = 10000;
    const QByteArray chain = chainOf(
        count, [](const QByteArray& i) { return blur(i, "blur " + QByteArray::number((i.toInt() + 1) % count)); });
    SCheckedService service(withCameras({"left"}));
    const std::vector<SFault> faults = service.check.check(chain);
    const auto loop =
        std::find_if(faults.begin(), faults.end(), [](const SFault& fault) { return fault.rule == EFaultRule::Loop; });
    QVERIFY(loop != faults.end());
    QVERIFY2(loop->message.contains("'blur 18' -> 'blur 19' -> 9980 more -> 'blur 0'"), qPrintable(loop->message));
}

void tst_CDocumentCheck::largePort()
{
    SCheckedService service(withCameras({"left", "right"}));
    const QByteArray stars = QByteArray("\"*\", ").repeated(50000);
    service.check.check(imageChain().replace("[\"left\"]", '[' + stars + "\"left\"]"));
    QCOMPARE(service.check.connections(0), std::size_t(1));
    QCOMPARE(service.check.connections(1), std::size_t(50000));
}

QTEST_GUILESS_MAIN(tst_CDocumentCheck)
#include "tst_CDocumentCheck.moc"
