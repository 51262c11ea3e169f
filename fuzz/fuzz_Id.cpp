// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Input: two texts, separated by a line break.
//
// True whatever they are: an identifier is read from the text form, in braces or not, and from nothing else; it comes
// back from the text that it writes; equality, order and hash agree.

#include "support/FuzzProperties.h"
#include "support/StableIds.h"

#include <Halvex/platform/CId.h>

namespace {

bool isTextForm(const QByteArray& text)
{
    if (text.size() != 36)
        return false;
    for (int i = 0; i < text.size(); ++i) {
        const bool isHyphen = i == 8 || i == 13 || i == 18 || i == 23;
        if (isHyphen ? text.at(i) != '-' : !isxdigit(uchar(text.at(i))))
            return false;
    }
    return true;
}

QByteArray withoutBraces(const QByteArray& text)
{
    return text.startsWith('{') && text.endsWith('}') ? text.mid(1, text.size() - 2) : text;
}

Core::CId read(const QByteArray& text)
{
    const Core::CId id(text.constData());
    const QByteArray inner = withoutBraces(text);
    const QString written = id.toString();
    if (isTextForm(inner))
        require(written == QString::fromLatin1(inner.toLower()), QStringLiteral("an id is written as it was read"));
    else
        require(id == Core::CId(), QStringLiteral("what is no id gives no id"));
    require(Core::CId(written.toLatin1().constData()) == id, QStringLiteral("an id comes back from its text"));
    return id;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StableIds::restart();
    const QByteArray text(reinterpret_cast<const char*>(data), int(size));
    const int separator = int(text.indexOf('\n'));
    // The constructor reads up to the first zero byte.
    const Core::CId first = read(text.left(separator).constData());
    const Core::CId second = read(text.mid(separator + 1).constData());

    const bool isSame = first == second;
    require(isSame == (first.toString() == second.toString()), QStringLiteral("equal ids have equal texts"));
    require(isSame != (first != second), QStringLiteral("two ids are equal or they are not"));
    require(isSame == (!(first < second) && !(second < first)), QStringLiteral("the order agrees with equality"));
    require(!(first < second && second < first), QStringLiteral("the order has one direction"));
    require(!isSame || std::hash<Core::CId>()(first) == std::hash<Core::CId>()(second),
            QStringLiteral("equal ids have equal hashes"));
    return 0;
}
