// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CPositionsFile.h"

#include "host/run/Output.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace Host {

namespace {

QString positionsFile(const QString& file)
{
    if (!file.isEmpty())
        return file;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/halvex/positions.json");
}

QJsonObject readAll(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QString keyOf(const QString& document)
{
    return QFileInfo(document).absoluteFilePath();
}

} // namespace

CPositionsFile::CPositionsFile(const QString& file)
    : m_file(positionsFile(file))
{
}

QMap<QString, QPointF> CPositionsFile::load(const QString& document) const
{
    const QJsonObject nodes = readAll(m_file).value(keyOf(document)).toObject();
    QMap<QString, QPointF> positions;
    for (auto node = nodes.begin(); node != nodes.end(); ++node) {
        const QJsonArray place = node.value().toArray();
        if (place.size() == 2)
            positions.insert(node.key(), QPointF(place.at(0).toDouble(), place.at(1).toDouble()));
    }
    return positions;
}

QString CPositionsFile::save(const QString& document, const QMap<QString, QPointF>& positions) const
{
    QJsonObject documents = readAll(m_file);
    const QStringList known = documents.keys();
    for (const QString& name : known) {
        if (!QFileInfo::exists(name))
            documents.remove(name);
    }
    QJsonObject nodes;
    for (auto node = positions.begin(); node != positions.end(); ++node)
        nodes.insert(node.key(), QJsonArray{node.value().x(), node.value().y()});
    documents.insert(keyOf(document), nodes);
    const QString error = makeFolder(QFileInfo(m_file).absolutePath());
    return error.isEmpty() ? replaceFile(m_file, QJsonDocument(documents).toJson()) : error;
}

} // namespace Host
