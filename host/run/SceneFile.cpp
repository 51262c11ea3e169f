// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneFile.h"

#include "host/run/Output.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <iterator>
#include <vector>

namespace Host {

namespace {

constexpr qint64 maxSize = qint64(64) * 1024 * 1024;
constexpr int maxShown = 80;

QString place(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return QStringLiteral("line %1, column %2 (offset %3)").arg(line).arg(column).arg(offset);
}

std::vector<QByteArray> sorted(const QJsonValue& list)
{
    std::vector<QByteArray> texts;
    const QJsonArray values = list.toArray();
    for (const QJsonValue& value : values)
        texts.push_back(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    std::sort(texts.begin(), texts.end());
    return texts;
}

QString firstMissing(const std::vector<QByteArray>& from, const std::vector<QByteArray>& in)
{
    std::vector<QByteArray> missing;
    std::set_difference(from.begin(), from.end(), in.begin(), in.end(), std::back_inserter(missing));
    return missing.empty() ? QString() : QString::fromUtf8(missing.front());
}

} // namespace

QJsonObject readSceneFile(const QString& file, QString* error)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read '%1': %2").arg(file, in.errorString());
        return {};
    }
    // Not all at once: a device may have no end.
    const QByteArray bytes = in.read(maxSize + 1);
    if (in.error() != QFileDevice::NoError) {
        *error = QStringLiteral("cannot read '%1': %2").arg(file, in.errorString());
        return {};
    }
    if (bytes.size() > maxSize) {
        *error = QStringLiteral("cannot load '%1': it is larger than 64 MiB").arg(file);
        return {};
    }

    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        *error = QStringLiteral("cannot load '%1': no JSON: %2: %3")
                     .arg(file, place(bytes, parseError.offset), parseError.errorString());
    else if (!document.isObject())
        *error = QStringLiteral("cannot load '%1': the top level is no object").arg(file);
    return document.object();
}

QString sceneDifference(const QJsonObject& left, const QJsonObject& right)
{
    QJsonObject leftRest = left;
    QJsonObject rightRest = right;
    for (const char* key : {"nodes", "connections"}) {
        const QString name = QString::fromLatin1(key);
        const auto inLeft = sorted(leftRest.take(name));
        const auto inRight = sorted(rightRest.take(name));
        const QString onlyLeft = firstMissing(inLeft, inRight);
        if (!onlyLeft.isEmpty())
            return QStringLiteral("only the first has, in %1: %2").arg(name, onlyLeft);
        const QString onlyRight = firstMissing(inRight, inLeft);
        if (!onlyRight.isEmpty())
            return QStringLiteral("only the second has, in %1: %2").arg(name, onlyRight);
    }
    return leftRest == rightRest ? QString() : QStringLiteral("what is neither node nor connection");
}

int compareSceneFiles(const QString& left, const QString& right)
{
    QString error;
    const QJsonObject first = readSceneFile(left, &error);
    const QJsonObject second = error.isEmpty() ? readSceneFile(right, &error) : QJsonObject();
    if (!error.isEmpty()) {
        printErrorLine(error);
        return 2;
    }

    const QString difference = sceneDifference(first, second);
    const QString text = difference.isEmpty()
                             ? QStringLiteral("'%1' and '%2' are the same scene: %3 nodes, %4 connections\n")
                                   .arg(left, right)
                                   .arg(first[QStringLiteral("nodes")].toArray().size())
                                   .arg(first[QStringLiteral("connections")].toArray().size())
                             : QStringLiteral("'%1' and '%2' differ: %3\n").arg(left, right, difference);
    if (!printText(text))
        return 2;
    return difference.isEmpty() ? 0 : 1;
}

QString shown(const QString& text)
{
    QString line = text.size() > maxShown ? text.left(maxShown) + QStringLiteral("...") : text;
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return !c.isPrint(); }, QLatin1Char('?'));
    return QLatin1Char('\'') + line + QLatin1Char('\'');
}

} // namespace Host
