// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/SPluginInfo.h"

#include "host/base/Shown.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>

namespace Host {

namespace {

// Reads one object of the metadata. What is wrong goes to the error, unless there is one already.
class CMetadataReader
{
public:
    CMetadataReader(const QJsonValue& json, const QString& place, QString* error)
        : m_json(json)
        , m_place(place)
        , m_error(error)
    {
    }

    QString text(const QString& key) const
    {
        const QString text = m_json[key].toString();
        if (text.isEmpty())
            refuse(QStringLiteral("no text for '%1'").arg(key));
        return text;
    }

    QVersionNumber version(const QString& key) const
    {
        const QString written = text(key);
        // fromString() ignores what stands behind the version, so it is written back and compared. It could tell where
        // the version ends, but Qt declares it as a function without effects: the compiler may leave that out.
        const QVersionNumber version = QVersionNumber::fromString(written);
        if (version.isNull() || version.toString() != written)
            refuse(QStringLiteral("%1 for '%2', which is no version").arg(shown(written), key));
        return version;
    }

    bool flag(const QString& key) const
    {
        const QJsonValue value = m_json[key];
        if (!value.isUndefined() && !value.isBool())
            refuse(QStringLiteral("neither true nor false for '%1'").arg(key));
        return value.toBool();
    }

    QJsonArray array(const QString& key) const
    {
        const QJsonValue value = m_json[key];
        if (!value.isUndefined() && !value.isArray())
            refuse(QStringLiteral("no array for '%1'").arg(key));
        return value.toArray();
    }

private:
    void refuse(const QString& what) const
    {
        if (m_error->isEmpty())
            *m_error = QStringLiteral("its metadata has %1%2").arg(m_place, what);
    }

    const QJsonValue m_json;
    const QString m_place;
    QString* const m_error; // the caller's
};

QJsonObject readAll(const QString& file, QString* error)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("it cannot be read: %1").arg(printable(in.errorString()));
        return {};
    }
    const QJsonObject all = QPluginLoader(file).metaData();
    // The loader's own words name the file too, which the report does already.
    if (all.isEmpty())
        *error = QStringLiteral("no plugin");
    return all;
}

} // namespace

SPluginInfo SPluginInfo::read(const QString& file, QString* error)
{
    SPluginInfo info;
    info.file = file;
    const QJsonObject all = readAll(file, error);
    if (all.isEmpty())
        return info;
    const QString interfaceId = all[QStringLiteral("IID")].toString();
    if (interfaceId != QLatin1String(HALVEX_PLUGIN_IID)) {
        *error =
            QStringLiteral("a plugin for %1, not for '%2'").arg(shown(interfaceId), QStringLiteral(HALVEX_PLUGIN_IID));
        return info;
    }

    const QString nameKey = QStringLiteral("Name");
    const QString versionKey = QStringLiteral("Version");
    const QString dependenciesKey = QStringLiteral("Dependencies");
    const CMetadataReader own(all[QStringLiteral("MetaData")], {}, error);
    info.name = own.text(nameKey);
    info.version = own.version(versionKey);
    info.compatVersion = own.version(QStringLiteral("CompatVersion"));
    info.isRequired = own.flag(QStringLiteral("Required"));
    const QJsonArray dependencies = own.array(dependenciesKey);
    for (int i = 0; i < dependencies.size(); ++i) {
        const CMetadataReader needed(dependencies[i], QStringLiteral("in %1[%2] ").arg(dependenciesKey).arg(i), error);
        info.dependencies.push_back({needed.text(nameKey), needed.version(versionKey)});
    }
    return info;
}

bool SPluginInfo::provides(const QVersionNumber& wanted) const
{
    // 1.3 and 1.3.0 are the same.
    const QVersionNumber exact = wanted.normalized();
    return compatVersion.normalized() <= exact && exact <= version.normalized();
}

} // namespace Host
