// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/DocumentFile.h"

#include "SReadDocuments.h"
#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;

namespace {

const char sound[] = R"([{"name": "a", "model": {"name": "To Image"}, "unique_sources": [["left"]]}])";

} // namespace

class tst_DocumentFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void graphAndText();
    void fileThatIsNotThere();
    void documentThatIsNoGraph();
    void whatARunRefusesMayBeLookedAt();
    void warningsAreNoReason();

private:
    SDocumentFile read();

    SReadDocuments m_documents;
    CDocumentCheck m_check{m_documents.host.nodes, m_documents.host.models};
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath("a.json");
    QString m_error;
};

void tst_DocumentFile::graphAndText()
{
    QVERIFY(write(m_file, sound));
    const SDocumentFile document = read();
    QCOMPARE(m_error, QString());
    QCOMPARE(document.name, m_file);
    QCOMPARE(document.text, QByteArray(sound));
    QCOMPARE(document.graph.nodes.size(), std::size_t(2));
    QVERIFY(document.faults.empty());
    QCOMPARE(unreadableText(document), QString());
}

void tst_DocumentFile::fileThatIsNotThere()
{
    const QString missing = m_folder.filePath("missing.json");
    readDocumentFile(missing, m_check, &m_error);
    QCOMPARE(m_error, QStringLiteral("cannot read '%1': No such file or directory").arg(missing));
}

void tst_DocumentFile::documentThatIsNoGraph()
{
    QVERIFY(write(m_file, "[{\"name\": 1},\n {\"name\": \"b\"}]"));
    const QStringList lines = unreadableText(read()).split('\n');
    QCOMPARE(m_error, QString());
    QCOMPARE(lines.value(0), QStringLiteral("cannot read '%1': it has %2 errors:").arg(m_file).arg(lines.size() - 1));
    const QStringList errors = lines.mid(1);
    for (const QString& line : errors)
        QVERIFY2(line.startsWith(m_file + ":"), qPrintable(line));
}

void tst_DocumentFile::whatARunRefusesMayBeLookedAt()
{
    QVERIFY(write(m_file, QByteArray(sound).replace("To Image", "To Imge")));
    const SDocumentFile document = read();
    QCOMPARE(unreadableText(document), QString());
    const QString text = faultsText(QStringLiteral("cannot convert '%1'"), document.name, document.faults);
    QVERIFY2(text.startsWith(QStringLiteral("cannot convert '%1': it has 1 error:\n%1:1:").arg(m_file)),
             qPrintable(text));
    QVERIFY2(text.contains("To Imge"), qPrintable(text));
}

void tst_DocumentFile::warningsAreNoReason()
{
    SFault warning{};
    warning.isError = false;
    QCOMPARE(faultsText(QStringLiteral("cannot convert '%1'"), m_file, {warning}), QString());
}

SDocumentFile tst_DocumentFile::read()
{
    m_error.clear();
    return readDocumentFile(m_file, m_check, &m_error);
}

QTEST_GUILESS_MAIN(tst_DocumentFile)
#include "tst_DocumentFile.moc"
