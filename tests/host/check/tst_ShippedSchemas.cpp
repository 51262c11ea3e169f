// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CShapeCheck.h"

#include "TestFile.h"
#include "TestTable.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"
#include "host/check/JsonText.h"

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
    void documents_data();
    void documents();
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

void tst_ShippedSchemas::documents_data()
{
    addColumns<QString, QString, int>({"schema", "file", "faults"});
    const QString golden = GOLDEN_REPORTS;
    const auto row = [](const char* name, const char* schema, const QString& file, int faults) {
        addRow(name, QString(schema), file, faults);
    };
    row("shipped chain", "chain", DEMO_CHAIN, 0);
    row("sound chain", "chain", golden + "/chain/sound.json", 0);
    row("chain with wrong types", "chain", golden + "/chain/wrong-types.json", 6);
    row("chain that lacks keys", "chain", golden + "/chain/missing-keys.json", 6);
    row("chain with a negative port", "chain", golden + "/chain/negative-port.json", 2);
    row("sound scene", "scene", golden + "/scene/sound.json", 0);
    row("scene with its schema", "scene", golden + "/scene/schema-for-editors.json", 0);
    row("scene with wrong types", "scene", golden + "/scene/wrong-types.json", 2);
    row("chain as a scene", "scene", golden + "/chain/sound.json", 1);
}

void tst_ShippedSchemas::documents()
{
    QFETCH(QString, schema);
    QFETCH(QString, file);
    const QByteArray text = content(file);
    const QJsonObject json = shippedSchema(schema);
    CFaultList faults(text);
    CJsonTree tree;
    QVERIFY(readJson(text, tree, faults));
    CWordFinder words;
    CShapeCheck(json, faults, words).check(*tree.root());
    QTEST(int(faults.sorted().size()), "faults");
}

QTEST_GUILESS_MAIN(tst_ShippedSchemas)
#include "tst_ShippedSchemas.moc"
