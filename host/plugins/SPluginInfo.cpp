// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/SPluginInfo.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>

namespace Host {

namespace {

// A version as text, or the reason in \a error.
QVersionNumber readVersion(const QJsonValue& json, const QString& key, QString* error)
{
    const QString text = json[key].toString();
    // Written back and compared: where the version ends within the text, fromString() tells through a pointer, and is
    // declared to the compiler as a function that writes through none.
    const QVersionNumber version = QVersionNumber::fromString(text);
    if (version.isNull() || version.toString() != text)
        *error = QStringLiteral("its metadata has '%1' for '%2', which is no version").arg(text, key);
    return version;
}

QString readName(const QJsonValue& json, QString* error)
{
    const QString name = json[QStringLiteral("Name")].toString();
    if (name.isEmpty())
        *error = QStringLiteral("its metadata lacks a 'Name'");
    return name;
}

} // namespace

SPluginInfo SPluginInfo::read(const QString& file, QString* error)
{
    SPluginInfo info;
    info.file = file;
    const QPluginLoader loader(file);
    const QJsonObject all = loader.metaData();
    if (all.isEmpty()) {
        // The loader's own words name the file too, which the report does already.
        *error = QStringLiteral("no plugin");
        return info;
    }
    const QString interfaceId = all[QStringLiteral("IID")].toString();
    if (interfaceId != QLatin1String(HALVEX_PLUGIN_IID)) {
        *error = QStringLiteral("a plugin for '%1', not for '%2'").arg(interfaceId, QStringLiteral(HALVEX_PLUGIN_IID));
        return info;
    }

    const QJsonValue own = all[QStringLiteral("MetaData")];
    const QJsonArray dependencies = own[QStringLiteral("Dependencies")].toArray();
    for (const QJsonValue& json : dependencies)
        info.dependencies.push_back({readName(json, error), readVersion(json, QStringLiteral("Version"), error)});
    info.compatVersion = readVersion(own, QStringLiteral("CompatVersion"), error);
    info.version = readVersion(own, QStringLiteral("Version"), error);
    info.name = readName(own, error);
    return info;
}

bool SPluginInfo::provides(const QVersionNumber& wanted) const
{
    // 1.3 and 1.3.0 are the same.
    const QVersionNumber exact = wanted.normalized();
    return compatVersion.normalized() <= exact && exact <= version.normalized();
}

} // namespace Host
