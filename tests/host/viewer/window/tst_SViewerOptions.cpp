// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/SViewerOptions.h"

#include "TestTable.h"

#include <QCommandLineParser>

using namespace Host;
using namespace std::chrono_literals;

namespace {

SViewerOptions read(const QStringList& arguments, QString* error)
{
    QCommandLineParser parser;
    SViewerOptions::declare(&parser);
    if (!parser.parse(QStringList{"halvex-viewer"} + arguments)) {
        *error = parser.errorText();
        return {};
    }
    return SViewerOptions::read(parser, error);
}

} // namespace

class tst_SViewerOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void allOfThem();
    void refusals_data();
    void refusals();
};

void tst_SViewerOptions::defaults()
{
    QString error;
    const SViewerOptions options = read({}, &error);
    QCOMPARE(error, QString());
    QVERIFY(options.cameras.isEmpty());
    QVERIFY(options.chains.isEmpty());
    QVERIFY(options.screenshot.isEmpty());
    QCOMPARE(options.duration, 0ms);
    QVERIFY(options.remembers);
}

void tst_SViewerOptions::allOfThem()
{
    QString error;
    const SViewerOptions options =
        read({"--camera",     "fake-1", "--camera", "fake-2",     "--chain",  "a.json",    "--chain",
              "b.json",       "--load", "s.json",   "--language", "ja",       "--colors",  "dark",
              "--screenshot", "x.png",  "--for",    "2.5",        "--forget", "--plugins", "here"},
             &error);
    QCOMPARE(error, QString());
    QCOMPARE(options.cameras, (QStringList{"fake-1", "fake-2"}));
    QCOMPARE(options.chains, (QStringList{"a.json", "b.json"}));
    QCOMPARE(options.scene, QString("s.json"));
    QCOMPARE(options.language, QString("ja"));
    QCOMPARE(options.colors, QString("dark"));
    QCOMPARE(options.screenshot, QString("x.png"));
    QCOMPARE(options.duration, 2500ms);
    QVERIFY(!options.remembers);
    QCOMPARE(options.plugins, QString("here"));
}

void tst_SViewerOptions::refusals_data()
{
    addColumns<QStringList, QString>({"arguments", "word"});
    addRow("language", QStringList{"--language", "xx"}, QString("'xx'"));
    addRow("colours", QStringList{"--colors", "pink"}, QString("'pink'"));
    addRow("time", QStringList{"--for", "soon"}, QString("'soon'"));
    addRow("no number", QStringList{"--for", "nan"}, QString("'nan'"));
    addRow("time before now", QStringList{"--for", "-1"}, QString("'-1'"));
    addRow("camera twice", QStringList{"--camera", "fake", "--camera", "fake"}, QString("twice"));
    addRow("chain without a camera", QStringList{"--chain", "a.json"}, QString("--camera fake"));
    addRow("argument", QStringList{"chain.json"}, QString("'chain.json'"));
}

void tst_SViewerOptions::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, word);
    QString error;
    read(arguments, &error);
    QVERIFY2(error.contains(word), qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_SViewerOptions)
#include "tst_SViewerOptions.moc"
