// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SyntaxError.h"

#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"

#include <cctype>

namespace Host {

namespace {

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
        return QStringLiteral("%1 is no quote of JSON, which has straight ones: \"").arg(shown(QString(letter)));
    if (letter.isSpace() || letter == QChar(0xfeff) || letter == QChar(0x200b))
        return QStringLiteral("U+%1 looks like a blank, and is none of JSON")
            .arg(int(letter.unicode()), 4, 16, QLatin1Char('0'));
    return {};
}

QString openText(const SJsonNode& open, const CFaultList& faults)
{
    const QString kind = open.isArray() ? QStringLiteral("array") : QStringLiteral("object");
    return QStringLiteral("the %1 that begins at %2").arg(kind, faults.place(open.begin));
}

QString valueText(const QByteArray& text, int offset)
{
    const char found = offset < text.size() ? text.at(offset) : '\0';
    if (found == '\'')
        return QStringLiteral("JSON has strings in double quotes only");
    if (found == '#')
        return QStringLiteral("JSON has no comments");
    const QString word = wordAt(text, offset);
    if (word.isEmpty())
        return QStringLiteral("a value is missing before %1").arg(shown(QString(QLatin1Char(found))));
    if (word.front().isDigit())
        return QStringLiteral("%1 is no number").arg(shown(word));
    const QString meant =
        CWordFinder().closest(word, {QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("null")});
    return meant.isNull() ? QStringLiteral("%1 is no value; strings stand in double quotes").arg(shown(word))
                          : QStringLiteral("%1 is no value; did you mean %2?").arg(shown(word), shown(meant));
}

QString keyText(const QByteArray& text, int offset)
{
    const char found = text.at(offset);
    const QString word = wordAt(text, offset);
    if (found == '\'' || !word.isEmpty())
        return QStringLiteral("a key stands in double quotes");
    return QStringLiteral("a key is missing before %1").arg(shown(QString(QLatin1Char(found))));
}

QString behindValueText(const QByteArray& text, int offset, const SJsonNode& open, const CFaultList& faults)
{
    const char found = text.at(offset);
    const char closing = open.isArray() ? ']' : '}';
    if (found == ']' || found == '}')
        return QStringLiteral("'%1' belongs here, to close %2")
            .arg(QString(QLatin1Char(closing)), openText(open, faults));
    if (offset > 0 && text.at(offset - 1) == '0' && std::isdigit(static_cast<unsigned char>(found)))
        return QStringLiteral("a number does not begin with 0");
    return QStringLiteral("',' or '%1' is missing before this").arg(QLatin1Char(closing));
}

QString stringText(const QByteArray& text, int offset, rapidjson::ParseErrorCode code)
{
    const char found = offset < text.size() ? text.at(offset) : '\0';
    if (found == '\n' || found == '\r')
        return QStringLiteral("a string ends on the line where it begins; a line break in it is written \\n");
    if (static_cast<unsigned char>(found) < 0x20)
        return QStringLiteral("a control character in a string is written \\u%1")
            .arg(int(found), 4, 16, QLatin1Char('0'));
    switch (code) {
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
        return QStringLiteral("four digits belong behind \\u, each from 0 to 9 or a to f");
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
        return QStringLiteral("half a letter; \\ud800 to \\udfff stand in pairs");
    default:
        return QStringLiteral("no such escape; a backslash itself is written \\\\");
    }
}

} // namespace

QString syntaxErrorText(const QByteArray& text, rapidjson::ParseErrorCode code, int offset, const SJsonNode* open,
                        const CFaultList& faults)
{
    using namespace rapidjson;
    if (code == kParseErrorDocumentEmpty)
        return QStringLiteral("the document is empty");
    if (code == kParseErrorUnspecificSyntaxError)
        return offset < text.size() ? QStringLiteral("'/' is nothing that JSON has")
                                    : QStringLiteral("JSON has no comments, and this one has no end");
    if (code == kParseErrorStringMissQuotationMark)
        return QStringLiteral("the document ends within a string");
    if (offset >= text.size() && open)
        return QStringLiteral("the document ends within %1").arg(openText(*open, faults));

    const QString lookalike = lookalikeText(text, offset);
    if (!lookalike.isEmpty())
        return lookalike;

    switch (code) {
    case kParseErrorDocumentRootNotSingular:
        return QStringLiteral("something stands behind the end of the document");
    case kParseErrorValueInvalid:
        return valueText(text, offset);
    case kParseErrorObjectMissName:
        return keyText(text, offset);
    case kParseErrorObjectMissColon:
        return QStringLiteral("':' is missing behind the key");
    case kParseErrorObjectMissCommaOrCurlyBracket:
    case kParseErrorArrayMissCommaOrSquareBracket:
        return open ? behindValueText(text, offset, *open, faults) : QString();
    case kParseErrorStringInvalidEncoding:
    case kParseErrorStringEscapeInvalid:
    case kParseErrorStringUnicodeEscapeInvalidHex:
    case kParseErrorStringUnicodeSurrogateInvalid:
        return stringText(text, offset, code);
    case kParseErrorNumberTooBig:
        return QStringLiteral("the number is too large");
    case kParseErrorNumberMissFraction:
        return QStringLiteral("a digit belongs behind the point of a number");
    case kParseErrorNumberMissExponent:
        return QStringLiteral("a digit belongs behind the 'e' of a number");
    default:
        Q_ASSERT(false);
        return QStringLiteral("this is no JSON");
    }
}

} // namespace Host
