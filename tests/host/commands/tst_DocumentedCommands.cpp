// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Commands.h"

#include "TestFile.h"

#include <QFileInfo>
#include <QTest>

namespace {

const char program[] = "halvex-host";

// The words of a command line up to its end, a comment, or where a shell sends its output; without quotes.
QStringList words(const QString& line)
{
    QStringList words;
    QString word;
    QChar quote;
    const QString text = line + ' ';
    for (const QChar c : text) {
        if (!quote.isNull() && c == quote)
            quote = QChar();
        else if (quote.isNull() && (c == '\'' || c == '"'))
            quote = c;
        else if (!quote.isNull() || c != ' ')
            word += c;
        else if (!word.isEmpty()) {
            if (QStringList{"#", "|", ">", "<"}.contains(word))
                break;
            words << word;
            word.clear();
        }
    }
    return words;
}

// Every command line in the fenced blocks of a page.
QStringList commandLines(const QString& page)
{
    QStringList lines;
    bool isInBlock = false;
    const QStringList all = QString::fromUtf8(content(page)).split('\n');
    for (const QString& line : all) {
        if (line.startsWith("```"))
            isInBlock = !isInBlock;
        else if (isInBlock)
            lines << line.trimmed();
    }
    return lines;
}

QStringList pages()
{
    const QDir source(SOURCE_FOLDER);
    QStringList pages{source.filePath("README.md"), source.filePath("host/README.md")};
    for (const char* folder : {"docs", "host/docs"}) {
        const QDir place(source.filePath(folder));
        const QStringList names = place.entryList({"*.md"}, QDir::Files, QDir::Name);
        for (const QString& name : names)
            pages << place.filePath(name);
    }
    return pages;
}

} // namespace

/// What the pages tell to type is what the program takes.
class tst_DocumentedCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsOfALine();
    void commandsAreAccepted_data();
    void commandsAreAccepted();
    void scriptsAreThere();
};

void tst_DocumentedCommands::wordsOfALine()
{
    QCOMPARE(words("run 'a b' --x=\"c\"   # why"), QStringList({"run", "a b", "--x=c"}));
    QCOMPARE(words("check - < file"), QStringList({"check", "-"}));
}

void tst_DocumentedCommands::commandsAreAccepted_data()
{
    QTest::addColumn<QString>("line");
    const QStringList all = pages();
    for (const QString& page : all) {
        const QStringList lines = commandLines(page);
        for (const QString& line : lines) {
            if (line.startsWith(QString(program) + ' '))
                QTest::newRow(qPrintable(QFileInfo(page).fileName() + ": " + line)) << line;
        }
    }
}

void tst_DocumentedCommands::commandsAreAccepted()
{
    QFETCH(QString, line);
    Host::Action action;
    QCOMPARE(Host::readArguments(words(line).mid(1), &action), 0);
}

void tst_DocumentedCommands::scriptsAreThere()
{
    const QStringList all = pages();
    for (const QString& page : all) {
        const QStringList lines = commandLines(page);
        for (const QString& line : lines) {
            const QString script = line.section(' ', 0, 0);
            if (script.startsWith("scripts/"))
                QVERIFY2(QFileInfo(QDir(SOURCE_FOLDER).filePath(script)).isExecutable(), qPrintable(line));
        }
    }
}

QTEST_GUILESS_MAIN(tst_DocumentedCommands)
#include "tst_DocumentedCommands.moc"
