// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneConversion.h"

#include "SHostService.h"
#include "TestJson.h"
#include "host/check/CDocumentCheck.h"
#include "host/documents/DocumentFile.h"

#include <QTest>

using namespace Host;

namespace {

// Written with ' for ".
const char oneCamera[] = R"([
    {'name': 'image', 'model': {'name': 'To Image'}, 'unique_sources': [['CAMERA']], 'connection': [['blur']]},
    {'name': 'blur', 'model': {'name': 'Blur', 'property': {'size': 15}}}])";

QByteArray chainFor(const QByteArray& camera)
{
    return QByteArray(oneCamera).replace("CAMERA", camera);
}

QJsonObject cameraOf(const QByteArray& scene)
{
    const QJsonArray nodes = QJsonDocument::fromJson(scene).object().value("nodes").toArray();
    for (const QJsonValue& node : nodes) {
        if (node["model"]["name"].toString() == QLatin1String("Camera Source"))
            return node["model"].toObject();
    }
    return {};
}

} // namespace

class tst_SceneConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sceneOfTheCameraInTheChain();
    void sceneOfTheCameraThatWasAskedFor();
    void anyCameraStaysAnyCamera();
    void twoCamerasNeedAChoice();

private:
    QByteArray convert(QByteArray text, const QString& camera = {});

    QString m_error;
};

void tst_SceneConversion::sceneOfTheCameraInTheChain()
{
    const QByteArray scene = convert(chainFor("left"));
    QCOMPARE(m_error, QString());
    QCOMPARE(cameraOf(scene)["unique_name"].toString(), QStringLiteral("left"));
    const QJsonObject document = QJsonDocument::fromJson(scene).object();
    QCOMPARE(document["nodes"].toArray().size(), 3);
    QCOMPARE(document["connections"].toArray().size(), 2);
    QCOMPARE(document["nodes"][2]["model"]["property"]["size"].toInt(), 15);
}

void tst_SceneConversion::sceneOfTheCameraThatWasAskedFor()
{
    QCOMPARE(cameraOf(convert(chainFor("*"), QStringLiteral("right")))["unique_name"].toString(),
             QStringLiteral("right"));
    QCOMPARE(m_error, QString());
}

void tst_SceneConversion::anyCameraStaysAnyCamera()
{
    // Also beside an element that is called as a camera without a name would be.
    for (const QByteArray& chain : {chainFor("*"), chainFor("*").replace("'blur'", "'camera'")}) {
        const QJsonObject camera = cameraOf(convert(chain));
        QCOMPARE(m_error, QString());
        QVERIFY(camera["is_unique"].toBool());
        QVERIFY(!camera.contains("unique_name"));
    }
}

void tst_SceneConversion::twoCamerasNeedAChoice()
{
    const QByteArray scene = convert(chainFor("left', 'right"));
    QCOMPARE(scene, QByteArray());
    QVERIFY2(m_error.startsWith("cannot convert 'chain.json': it has 1 error:\nchain.json:"), qPrintable(m_error));
    QVERIFY2(m_error.contains("right") && m_error.contains("--camera"), qPrintable(m_error));
}

QByteArray tst_SceneConversion::convert(QByteArray text, const QString& camera)
{
    SHostService host;
    SCheckOptions options;
    if (!camera.isEmpty())
        options.cameras << camera;
    SDocumentFile chain;
    chain.name = QStringLiteral("chain.json");
    chain.text = text.replace('\'', '"');
    CDocumentCheck(host.nodes, host.models, options).read(chain.text, &chain.graph);
    m_error.clear();
    return sceneOfChain(chain, camera, host.nodes, host.models, &m_error);
}

QTEST_GUILESS_MAIN(tst_SceneConversion)
#include "tst_SceneConversion.moc"
