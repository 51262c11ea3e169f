// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CTextPlaces.h"

#include "TestTable.h"

using namespace Host;

class tst_CTextPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void place_data();
    void place();
    void everyPlaceOfALongText();
};

void tst_CTextPlaces::place_data()
{
    addColumns<QByteArray, int, int, int>({"text", "offset", "line", "column"});
    const auto row = [](const char* name, const char* text, int offset, int line, int column) {
        addRow(name, QByteArray(text), offset, line, column);
    };
    row("empty text", "", 0, 1, 1);
    row("first", "ab", 0, 1, 1);
    row("behind the last", "ab", 2, 1, 3);
    row("end of a line", "a\nb", 1, 1, 2);
    row("second line", "a\nb", 2, 2, 1);
    row("end of a DOS line", "a\r\nb", 3, 2, 1);
    row("last line is empty", "a\n", 2, 2, 1);
    row("behind an umlaut", "\xc3\xb6x", 2, 1, 2);
    row("behind an emoji, two units", "\xf0\x9f\x98\x80x", 4, 1, 3);
}

void tst_CTextPlaces::place()
{
    QFETCH(QByteArray, text);
    QFETCH(int, offset);
    const STextPlace place = CTextPlaces(text).at(offset);
    QTEST(place.line, "line");
    QTEST(place.column, "column");
}

void tst_CTextPlaces::everyPlaceOfALongText()
{
    const QByteArray text = QByteArray("\xc3\xb6").repeated(1500) + '\n' + QByteArray("x").repeated(1096);
    const CTextPlaces places(text);
    for (int i = 0; i <= text.size(); ++i) {
        const int column = i <= 3000 ? QString::fromUtf8(text.left(i - i % 2)).size() + i % 2 + 1 : i - 3000;
        QCOMPARE(places.at(i).line, i <= 3000 ? 1 : 2);
        QCOMPARE(places.at(i).column, column);
    }
}

QTEST_GUILESS_MAIN(tst_CTextPlaces)
#include "tst_CTextPlaces.moc"
