// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Chain.h"

#include "host/base/AnyCamera.h"
#include "host/base/InputFile.h"
#include "host/run/SceneFile.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QDir>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

// Outside of any namespace, as Qt wants it: the resource is in a static library, which is asked for it by name.
static void initResources()
{
    Q_INIT_RESOURCE(chains);
}

namespace Host {

using namespace Plugin::Halvex;

namespace {

// The sources of a port, with the names of the cameras where a star stands.
QJsonArray withCameras(const QJsonArray& sources, const QStringList& cameras)
{
    QJsonArray result;
    for (const QJsonValue& source : sources) {
        if (source.toString() != anyCamera) {
            result.append(source);
            continue;
        }
        for (const QString& camera : cameras) {
            if (!sources.contains(camera))
                result.append(camera);
        }
    }
    return result;
}

} // namespace

SChain chainOf(const QString& name, const QByteArray& text)
{
    return {name, text, text, QJsonDocument::fromJson(text).array()};
}

SChain readChain(const QString& file, QString* error)
{
    return chainOf(inputName(file), readDocument(file, error));
}

SChain defaultChain(const QStringList& cameras)
{
    initResources();
    QString error;
    SChain chain = readChain(QStringLiteral(":/halvex-host/demo.json"), &error);
    Q_ASSERT(error.isEmpty());
    chain.name = QStringLiteral("default chain");

    return withCameras(chain, cameras);
}

SChain withCameras(SChain chain, const QStringList& cameras)
{
    const QString sourcesKey = QStringLiteral("unique_sources");
    bool isChanged = false;
    for (int i = 0; i < chain.elements.size(); ++i) {
        QJsonObject element = chain.elements.at(i).toObject();
        QJsonArray ports = element.value(sourcesKey).toArray();
        bool isForAny = false;
        for (int port = 0; port < ports.size(); ++port) {
            const QJsonArray sources = ports.at(port).toArray();
            if (!sources.contains(QJsonValue(anyCamera)))
                continue;
            ports.replace(port, withCameras(sources, cameras));
            isForAny = true;
        }
        if (!isForAny)
            continue;
        element.insert(sourcesKey, ports);
        chain.elements.replace(i, element);
        isChanged = true;
    }
    if (isChanged)
        chain.text = QJsonDocument(chain.elements).toJson();
    return chain;
}

std::vector<SChain> readChains(const QStringList& files, const QStringList& cameras, QString* error)
{
    std::vector<SChain> chains;
    for (const QString& file : files) {
        if (error->isEmpty())
            chains.push_back(withCameras(readChain(file, error), cameras));
    }
    if (files.isEmpty())
        chains.push_back(defaultChain(cameras));
    return chains;
}

QString findClash(const std::vector<SChain>& chains)
{
    QHash<QString, std::size_t> sinks; // and the chains that they are in
    for (std::size_t i = 0; i < chains.size(); ++i) {
        for (const QJsonValue& element : chains[i].elements) {
            const QString sink =
                element[DocumentKeys::model][DocumentKeys::property][QLatin1String("sink_name")].toString();
            if (sink.isEmpty())
                continue;
            const std::size_t known = sinks.value(sink, i);
            if (known != i)
                return QStringLiteral("the sink '%1' is in '%2' and in '%3': their files would mix")
                    .arg(sink, chains[known].name, chains[i].name);
            sinks.insert(sink, i);
        }
    }
    return {};
}

} // namespace Host
