// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneFile.h"

#include "host/base/EExitCode.h"
#include "host/run/Output.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QFile>
#include <QHash>
#include <QJsonArray>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr qint64 maxSize = qint64(64) * 1024 * 1024;

QString place(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return QStringLiteral("line %1, column %2 (offset %3)").arg(line).arg(column).arg(offset);
}

// The objects of a list with the texts under \a keys replaced by what \a names has for them.
QJsonArray renamed(const QJsonValue& list, std::initializer_list<QString> keys, const QHash<QString, QString>& names)
{
    QJsonArray result;
    const QJsonArray values = list.toArray();
    for (const QJsonValue& value : values) {
        QJsonObject object = value.toObject();
        for (const QString& key : keys) {
            const auto name = names.constFind(object.value(key).toString());
            if (name != names.constEnd())
                object.insert(key, *name);
        }
        result.append(value.isObject() ? QJsonValue(object) : value);
    }
    return result;
}

// The document with unique nodes told by their unique names: they are not made from documents, so that each process
// gives them ids of its own.
QJsonObject withoutIdsOfUniqueNodes(QJsonObject document)
{
    QHash<QString, QString> names;
    const QJsonArray nodes = document.value(DocumentKeys::nodes).toArray();
    for (const QJsonValue& node : nodes) {
        const QJsonValue model = node[DocumentKeys::model];
        const QJsonValue name = model[DocumentKeys::uniqueName];
        if (model[DocumentKeys::isUnique].toBool() && name.isString())
            names.insert(node[DocumentKeys::id].toString(), QStringLiteral("unique ") + name.toString());
    }
    if (names.isEmpty())
        return document;
    document.insert(QString(DocumentKeys::nodes), renamed(nodes, {DocumentKeys::id}, names));
    document.insert(QString(DocumentKeys::connections), renamed(document.value(DocumentKeys::connections),
                                                                {DocumentKeys::inId, DocumentKeys::outId}, names));
    return document;
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

QByteArray readDocument(const QString& file, QString* error)
{
    QFile in(file);
    if (!(file == QLatin1String("-") ? in.open(stdin, QIODevice::ReadOnly) : in.open(QIODevice::ReadOnly))) {
        *error = QStringLiteral("cannot read '%1': %2").arg(file, in.errorString());
        return {};
    }
    // Not all at once: a device may have no end.
    QByteArray bytes = in.read(maxSize + 1);
    if (in.error() != QFileDevice::NoError)
        *error = QStringLiteral("cannot read '%1': %2").arg(file, in.errorString());
    else if (bytes.size() > maxSize)
        *error = QStringLiteral("cannot load '%1': it is larger than 64 MiB").arg(file);
    return bytes;
}

QJsonDocument parseDocument(const QString& file, const QByteArray& bytes, QString* error)
{
    QJsonParseError parseError{};
    QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        *error = QStringLiteral("cannot load '%1': no JSON: %2: %3")
                     .arg(file, place(bytes, parseError.offset), parseError.errorString());
    return document;
}

QJsonObject readSceneFile(const QString& file, QString* error)
{
    const QByteArray bytes = readDocument(file, error);
    if (!error->isEmpty())
        return {};
    const QJsonDocument document = parseDocument(file, bytes, error);
    if (error->isEmpty() && !document.isObject())
        *error = QStringLiteral("cannot load '%1': the top level is no object").arg(file);
    return document.object();
}

QString sceneDifference(const QJsonObject& left, const QJsonObject& right)
{
    QJsonObject leftRest = withoutIdsOfUniqueNodes(left);
    QJsonObject rightRest = withoutIdsOfUniqueNodes(right);
    for (const QLatin1String key : {DocumentKeys::nodes, DocumentKeys::connections}) {
        const QString name(key);
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
        return Refused;
    }

    const QString difference = sceneDifference(first, second);
    const QString text = difference.isEmpty()
                             ? QStringLiteral("'%1' and '%2' are the same scene: %3 nodes, %4 connections\n")
                                   .arg(left, right)
                                   .arg(first[DocumentKeys::nodes].toArray().size())
                                   .arg(first[DocumentKeys::connections].toArray().size())
                             : QStringLiteral("'%1' and '%2' differ: %3\n").arg(left, right, difference);
    return printText(text) && difference.isEmpty() ? Done : Failed;
}

} // namespace Host
