// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CLineReader.h"

#include <QSignalSpy>
#include <QTest>

#include <array>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

using namespace Host;

namespace {

// A stream, and the other end of it.
class CPipe
{
public:
    CPipe()
    {
        if (pipe2(m_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
            qFatal("no pipe");
        m_stream = fdopen(m_ends[0], "r");
    }
    ~CPipe()
    {
        std::fclose(m_stream);
        closeInput();
    }
    Q_DISABLE_COPY(CPipe)

    std::FILE* stream() const { return m_stream; }
    bool write(const QByteArray& bytes) const
    {
        return ::write(m_ends[1], bytes.constData(), std::size_t(bytes.size())) == bytes.size();
    }
    void closeInput()
    {
        if (m_ends[1] >= 0)
            close(m_ends[1]);
        m_ends[1] = -1;
    }

private:
    std::array<int, 2> m_ends{-1, -1};
    std::FILE* m_stream = nullptr;
};

// A reader and what it tells.
struct SReader
{
    explicit SReader(const CPipe& pipe)
        : reader(pipe.stream())
    {
    }

    QStringList lines() const
    {
        QStringList texts;
        for (const QList<QVariant>& line : qAsConst(read))
            texts << line.at(0).toString();
        return texts;
    }

    CLineReader reader;
    QSignalSpy read{&reader, &CLineReader::lineRead};
    QSignalSpy leftOut{&reader, &CLineReader::lineLeftOut};
};

} // namespace

class tst_CLineReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines();
    void lastLineNeedNotEnd();
    void nothingToReadIsNoEnd();
    void longLineIsLeftOut();
    void lineMayBeAsLongAsTheLimit();
};

void tst_CLineReader::lines()
{
    const CPipe pipe;
    const SReader reader(pipe);
    QVERIFY(pipe.write("  one \r\n\n \ntw"));
    QTRY_COMPARE(reader.lines(), QStringList("one"));
    QVERIFY(pipe.write("o\nthree\n"));
    QTRY_COMPARE(reader.lines(), QStringList({"one", "two", "three"}));
    QCOMPARE(reader.leftOut.count(), 0);
}

void tst_CLineReader::lastLineNeedNotEnd()
{
    CPipe pipe;
    const SReader reader(pipe);
    QVERIFY(pipe.write("one\nlast"));
    pipe.closeInput();
    QTRY_COMPARE(reader.lines(), QStringList({"one", "last"}));
}

void tst_CLineReader::nothingToReadIsNoEnd()
{
    const CPipe pipe;
    // Both are told of what is there; it is gone when the second one reads.
    auto first = std::make_unique<SReader>(pipe);
    const SReader second(pipe);
    QVERIFY(pipe.write("one\n"));
    QTRY_COMPARE(first->lines() + second.lines(), QStringList("one"));
    QCoreApplication::processEvents();
    first.reset();
    QVERIFY(pipe.write("two\n"));
    QTRY_VERIFY(second.lines().contains("two"));
}

void tst_CLineReader::longLineIsLeftOut()
{
    const CPipe pipe;
    const SReader reader(pipe);
    const QByteArray part = QByteArray("long").repeated(1000);
    for (int bytes = 0; bytes <= 3 * CLineReader::mostBytes; bytes += part.size()) {
        QVERIFY(pipe.write(part));
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE(reader.leftOut.count(), 1);
    QVERIFY(reader.leftOut.at(0).at(0).toString().startsWith("longlong"));
    QVERIFY(pipe.write("the rest of it\nnext\n"));
    QTRY_COMPARE(reader.lines(), QStringList("next"));
    QCOMPARE(reader.leftOut.count(), 1);
}

void tst_CLineReader::lineMayBeAsLongAsTheLimit()
{
    const CPipe pipe;
    const SReader reader(pipe);
    for (const int more : {0, 1}) {
        const QByteArray line(CLineReader::mostBytes + more, 'x');
        for (int from = 0; from < line.size(); from += 1000) {
            QVERIFY(pipe.write(line.mid(from, 1000)));
            QCoreApplication::processEvents();
        }
        QVERIFY(pipe.write("\n"));
        QTRY_COMPARE(reader.read.count() + reader.leftOut.count(), more + 1);
    }
    QCOMPARE(reader.read.count(), 1);
    QCOMPARE(reader.lines().at(0).size(), CLineReader::mostBytes);
}

QTEST_GUILESS_MAIN(tst_CLineReader)
#include "tst_CLineReader.moc"
