// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CShapeCheck.h"

#include "TestTable.h"

#include <QJsonArray>

using namespace Host;

namespace {

// What has neither a title nor a description, of all that an editor may show.
QStringList untold(const QString& place, const QJsonObject& schema)
{
    QStringList list;
    if (!schema.contains("$ref") && !schema.contains("title") && !schema.contains("description"))
        list << place;
    for (const char* group : {"properties", "definitions"}) {
        const QJsonObject parts = schema[group].toObject();
        const QStringList names = parts.keys();
        for (const QString& name : names)
            list += untold(place + '/' + name, parts[name].toObject());
    }
    if (schema.contains("items"))
        list += untold(place + "/items", schema["items"].toObject());
    return list;
}

} // namespace

class tst_ShippedSchemas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellWhatTheyAre_data();
    void tellWhatTheyAre();
};

void tst_ShippedSchemas::tellWhatTheyAre_data()
{
    addColumns<QString>({"name"});
    addRow("chain", QString("chain"));
    addRow("scene", QString("scene"));
}

void tst_ShippedSchemas::tellWhatTheyAre()
{
    QFETCH(QString, name);
    const QJsonObject schema = shippedSchema(name);
    QCOMPARE(schema["$schema"].toString(), QString("http://json-schema.org/draft-07/schema#"));
    QCOMPARE(schema["$id"].toString(), "urn:halvex:schema:" + name);
    QVERIFY(schema.contains("title") && schema.contains("description"));
    QCOMPARE(untold(name, schema), QStringList());
}

QTEST_GUILESS_MAIN(tst_ShippedSchemas)
#include "tst_ShippedSchemas.moc"
