// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Chain.h"

#include "host/run/SceneFile.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

// Outside of any namespace, as Qt wants it: the resource is in a static library, which is asked for it by name.
static void initResources()
{
    Q_INIT_RESOURCE(chains);
}

namespace Host {

SChain readChain(const QString& file, QString* error)
{
    SChain chain;
    chain.name = file;
    chain.text = readDocument(file, error);
    if (!error->isEmpty())
        return chain;
    const QJsonDocument document = parseDocument(file, chain.text, error);
    if (error->isEmpty() && !document.isArray())
        *error = QStringLiteral("cannot load '%1': the top level is no array").arg(file);
    chain.elements = document.array();
    return chain;
}

SChain defaultChain(const QStringList& cameras)
{
    initResources();
    QString error;
    SChain chain = readChain(QStringLiteral(":/halvex-host/demo.json"), &error);
    Q_ASSERT(error.isEmpty());
    chain.name = QStringLiteral("default chain");

    // What is fed by the cameras of the file is fed by those of the run.
    const QString sourcesKey = QStringLiteral("unique_sources");
    for (int i = 0; i < chain.elements.size(); ++i) {
        QJsonObject element = chain.elements.at(i).toObject();
        if (!element.contains(sourcesKey))
            continue;
        element.insert(sourcesKey, QJsonArray{QJsonValue(QJsonArray::fromStringList(cameras))});
        chain.elements.replace(i, element);
    }
    chain.text = QJsonDocument(chain.elements).toJson();
    return chain;
}

} // namespace Host
