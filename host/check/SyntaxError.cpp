// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SyntaxError.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"

#include <QCoreApplication>

#include <cctype>

namespace Host {

namespace {

class CSyntaxTexts
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSyntaxTexts)
};

// Of a word, also of one that is not English.
bool isLetter(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 || std::isalnum(byte) || c == '_';
}

// The word around that place; the parser may report any letter of it.
QString wordAt(const QByteArray& text, int offset)
{
    int begin = offset;
    int end = offset;
    while (begin > 0 && isLetter(text.at(begin - 1)))
        --begin;
    while (end < text.size() && isLetter(text.at(end)))
        ++end;
    return QString::fromUtf8(text.mid(begin, end - begin));
}

// What editors and web pages put in place of a quote or a blank looks right and is not; empty if it is something else.
QString lookalikeText(const QByteArray& text, int offset)
{
    constexpr int maxBytes = 4; // of a letter
    const QString found = QString::fromUtf8(text.mid(offset, maxBytes));
    if (found.isEmpty() || found.front().unicode() < 0x80)
        return {};
    const QChar letter = found.front();
    if (QStringLiteral("\u2018\u2019\u201a\u201c\u201d\u201e\u00ab\u00bb\uff02").contains(letter))
        return CSyntaxTexts::tr("%1 is no quote of JSON, which has straight ones: \"").arg(shown(QString(letter)));
    if (letter.isSpace() || letter == QChar(0xfeff) || letter == QChar(0x200b))
        return CSyntaxTexts::tr("U+%1 looks like a blank, and is none of JSON")
            .arg(int(letter.unicode()), 4, 16, QLatin1Char('0'));
    return {};
}

QString unclosedText(const SJsonNode& open, const CFaultList& faults)
{
    const QString text = open.isArray() ? CSyntaxTexts::tr("the document ends within the array that begins at %1")
                                        : CSyntaxTexts::tr("the document ends within the object that begins at %1");
    return text.arg(faults.place(open.begin));
}

QString wrongBracketText(const SJsonNode& open, const CFaultList& faults)
{
    const QString text = open.isArray() ? CSyntaxTexts::tr("']' belongs here, to close the array that begins at %1")
                                        : CSyntaxTexts::tr("'}' belongs here, to close the object that begins at %1");
    return text.arg(faults.place(open.begin));
}

QString valueText(const QByteArray& text, int offset)
{
    const char found = offset < text.size() ? text.at(offset) : '\0';
    if (found == '\'')
        return CSyntaxTexts::tr("JSON has strings in double quotes only");
    if (found == '#')
        return CSyntaxTexts::tr("JSON has no comments");
    const QString word = wordAt(text, offset);
    if (word.isEmpty())
        return CSyntaxTexts::tr("a value is missing before %1").arg(shown(QString(QLatin1Char(found))));
    if (word.front().isDigit())
        return CSyntaxTexts::tr("%1 is no number").arg(shown(word));
    const QString meant =
        CWordFinder().closest(word, {QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("null")});
    return withHint(CSyntaxTexts::tr("%1 is no value").arg(shown(word)),
                    meant.isNull() ? CSyntaxTexts::tr("strings stand in double quotes")
                                   : didYouMean(QStringList(meant)));
}

QString keyText(const QByteArray& text, int offset)
{
    const char found = text.at(offset);
    const QString word = wordAt(text, offset);
    if (found == '\'' || !word.isEmpty())
        return CSyntaxTexts::tr("a key stands in double quotes");
    return CSyntaxTexts::tr("a key is missing before %1").arg(shown(QString(QLatin1Char(found))));
}

QString behindValueText(const QByteArray& text, int offset, const SJsonNode& open, const CFaultList& faults)
{
    const char found = text.at(offset);
    if (found == ']' || found == '}')
        return wrongBracketText(open, faults);
    if (offset > 0 && text.at(offset - 1) == '0' && std::isdigit(static_cast<unsigned char>(found)))
        return CSyntaxTexts::tr("a number does not begin with 0");
    return open.isArray() ? CSyntaxTexts::tr("',' or ']' is missing before this")
                          : CSyntaxTexts::tr("',' or '}' is missing before this");
}

QString stringText(const QByteArray& text, int offset, rapidjson::ParseErrorCode code)
{
    const char found = offset < text.size() ? text.at(offset) : '\0';
    if (found == '\n' || found == '\r')
        return CSyntaxTexts::tr("a string ends on the line where it begins; a line break in it is written \\n");
    if (static_cast<unsigned char>(found) < 0x20)
        return CSyntaxTexts::tr("a control character in a string is written \\u%1")
            .arg(int(found), 4, 16, QLatin1Char('0'));
    switch (code) {
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
        return CSyntaxTexts::tr("four digits belong behind \\u, each from 0 to 9 or a to f");
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
        return CSyntaxTexts::tr("half a letter; \\ud800 to \\udfff stand in pairs");
    default:
        return CSyntaxTexts::tr("no such escape; a backslash itself is written \\\\");
    }
}

} // namespace

QString syntaxErrorText(const QByteArray& text, rapidjson::ParseErrorCode code, int offset, const SJsonNode* open,
                        const CFaultList& faults)
{
    using namespace rapidjson;
    if (code == kParseErrorDocumentEmpty)
        return CSyntaxTexts::tr("the document is empty");
    if (code == kParseErrorUnspecificSyntaxError)
        return offset < text.size() ? CSyntaxTexts::tr("'/' is nothing that JSON has")
                                    : CSyntaxTexts::tr("JSON has no comments, and this one has no end");
    if (code == kParseErrorStringMissQuotationMark)
        return CSyntaxTexts::tr("the document ends within a string");
    if (offset >= text.size() && open)
        return unclosedText(*open, faults);

    const QString lookalike = lookalikeText(text, offset);
    if (!lookalike.isEmpty())
        return lookalike;

    switch (code) {
    case kParseErrorDocumentRootNotSingular:
        return CSyntaxTexts::tr("something stands behind the end of the document");
    case kParseErrorValueInvalid:
        return valueText(text, offset);
    case kParseErrorObjectMissName:
        return keyText(text, offset);
    case kParseErrorObjectMissColon:
        return CSyntaxTexts::tr("':' is missing behind the key");
    case kParseErrorObjectMissCommaOrCurlyBracket:
    case kParseErrorArrayMissCommaOrSquareBracket:
        return open ? behindValueText(text, offset, *open, faults) : QString();
    case kParseErrorStringInvalidEncoding:
    case kParseErrorStringEscapeInvalid:
    case kParseErrorStringUnicodeEscapeInvalidHex:
    case kParseErrorStringUnicodeSurrogateInvalid:
        return stringText(text, offset, code);
    case kParseErrorNumberTooBig:
        return CSyntaxTexts::tr("the number is too large");
    case kParseErrorNumberMissFraction:
        return CSyntaxTexts::tr("a digit belongs behind the point of a number");
    case kParseErrorNumberMissExponent:
        return CSyntaxTexts::tr("a digit belongs behind the 'e' of a number");
    default:
        Q_ASSERT(false);
        return CSyntaxTexts::tr("this is no JSON");
    }
}

} // namespace Host
