// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/JsonText.h"

#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CTreeBuilder.h"
#include "host/check/SyntaxError.h"

#include <QCoreApplication>

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

namespace Host {

namespace {

bool startsWith(const QByteArray& text, const char* bytes, int count)
{
    return text.startsWith(QByteArray::fromRawData(bytes, count));
}

// What the text is written in, if it is not UTF-8; null if it may be.
const char* otherEncoding(const QByteArray& text)
{
    if (startsWith(text, "\xff\xfe\0\0", 4) || startsWith(text, "\0\0\xfe\xff", 4))
        return "UTF-32";
    // Without a mark, each ASCII character of the beginning has a zero byte beside it.
    const bool isMarked = startsWith(text, "\xff\xfe", 2) || startsWith(text, "\xfe\xff", 2);
    if (isMarked || (text.size() >= 2 && (text.at(0) == '\0') != (text.at(1) == '\0')))
        return "UTF-16";
    return nullptr;
}

// What the parser copies a letter to when only its bytes are of interest.
struct SNoOutput
{
    void Put(char) {} // NOLINT(readability-identifier-naming): the parser's name for it
};

// Where the first letter begins that is no UTF-8; -1 if there is none.
int findBadLetter(const QByteArray& text)
{
    rapidjson::MemoryStream stream(text.constData(), std::size_t(text.size()));
    SNoOutput none;
    while (int(stream.Tell()) < text.size()) {
        const int begin = int(stream.Tell());
        if (!rapidjson::UTF8<>::Validate(stream, none))
            return begin;
    }
    return -1;
}

// Where the parser found an error.
int errorOffset(const QByteArray& text, const rapidjson::Reader& reader)
{
    const int offset = int(reader.GetErrorOffset());
    const bool isBehindSlash =
        reader.GetParseErrorCode() == rapidjson::kParseErrorUnspecificSyntaxError && offset < text.size();
    return isBehindSlash ? offset - 1 : offset; // of a slash that begins no comment it takes the next letter
}

} // namespace

bool readJson(const QByteArray& text, CJsonTree& tree, CFaultList& faults)
{
    if (const char* const encoding = otherEncoding(text)) {
        faults.addTextError(
            EFaultRule::Encoding, 0,
            QCoreApplication::translate("Host::JsonText", "the file is %1; save it as UTF-8, which is what JSON is")
                .arg(QLatin1String(encoding)));
        return false;
    }

    const int badLetter = findBadLetter(text);
    if (badLetter >= 0) {
        faults.addTextError(EFaultRule::Encoding, badLetter,
                            QCoreApplication::translate("Host::JsonText", "these bytes are no UTF-8"));
        return false;
    }

    // The parser would take it for the end.
    const int zero = text.indexOf('\0');
    if (zero >= 0) {
        faults.addTextError(EFaultRule::Syntax, zero,
                            QCoreApplication::translate("Host::JsonText", "a zero byte, which no text has"));
        return false;
    }

    rapidjson::MemoryStream stream(text.constData(), std::size_t(text.size()));
    if (startsWith(text, "\xef\xbb\xbf", 3)) // the mark of UTF-8, which every reader of JSON here passes over
        stream.src_ += 3;

    // Not recursive: a text of nothing but brackets would use up the stack.
    constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag |
                               rapidjson::kParseCommentsFlag | rapidjson::kParseTrailingCommasFlag |
                               rapidjson::kParseNanAndInfFlag;
    CTreeBuilder builder(text, stream, tree, faults);
    rapidjson::Reader reader;
    if (!reader.Parse<flags>(stream, builder).IsError()) {
        builder.finish();
        return true;
    }
    if (builder.isStopped())
        return false;
    const int offset = errorOffset(text, reader);
    faults.addTextError(EFaultRule::Syntax, offset,
                        syntaxErrorText(text, reader.GetParseErrorCode(), offset, builder.openBracket(), faults));
    return false;
}

} // namespace Host
