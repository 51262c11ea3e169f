// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "TestFile.h"
#include "TestTable.h"
#include "WindowFixture.h"
#include "graph/CMoodyModel.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/cameras/CFeaturePanel.h"
#include "host/viewer/edit/CFaultPanel.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/CModelPalette.h"
#include "host/viewer/edit/CSettingsPanel.h"
#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphSearch.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CImageView.h"
#include "host/viewer/recording/CRecorder.h"
#include "host/viewer/window/CCommandPalette.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerDocks.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QTranslator>

#include <algorithm>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

bool isEveryRateShown(const CGraphCanvas& canvas)
{
    const auto& connections = canvas.connectionItems();
    return std::all_of(connections.begin(), connections.end(),
                       [](const auto& connection) { return connection.second->rate() > 1.0; });
}

/// Rows of filters, each behind a decoupler of one camera, as an import document.
QByteArray manyFilters(const QString& camera, int rows, int filters)
{
    QStringList models{"DecouplerVGR", "To Image"};
    while (models.size() < filters + 2)
        models << (models.size() % 2 == 0 ? "Blur" : "Edges");
    models << "PNG Sink";
    QJsonArray elements;
    for (int i = 0; i < rows * models.size(); ++i) {
        const int place = i % models.size();
        QJsonObject element{{"name", QString::number(i)}, {"model", QJsonObject{{"name", models[place]}}}};
        if (place < models.size() - 1)
            element["connection"] = QJsonArray{QJsonArray{QString::number(i + 1)}};
        if (place == 0)
            element["unique_sources"] = QJsonArray{QJsonArray{camera}};
        elements.append(element);
    }
    return QJsonDocument(elements).toJson();
}

const CNodeBase& addMoodyNode(CNodeScene& scene, ENodeValidationState state, const char* message)
{
    auto model = std::make_unique<CMoodyModel>(1, 1, QStringLiteral("Edges"));
    model->state = state;
    model->message = QString::fromUtf8(message);
    return scene.createNode(std::move(model));
}

} // namespace

/// Pictures of the window in each of its states, for people to look at: PICTURES/<colours>-<language>-<scale>-<state>.
/// The test itself only sees to it that there is a picture of each, and that something is in it.
class tst_ViewerPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(QDir().mkpath(PICTURES)); }
    void states_data();
    void states();

private:
    void take(QWidget& widget, const char* state) const;

    QString m_prefix;
};

void tst_ViewerPictures::take(QWidget& widget, const char* state) const
{
    QCoreApplication::processEvents();
    const QImage picture = widget.grab().toImage();
    QVERIFY(!picture.isNull());
    QSet<QRgb> colors;
    for (int x = 0; x < picture.width(); x += 9) {
        for (int y = 0; y < picture.height(); y += 9)
            colors.insert(picture.pixel(x, y));
    }
    QVERIFY2(colors.size() > 8, state);
    const int quality = 85; // packed quickly: there are hundreds, and nobody keeps them
    QVERIFY(picture.save(QStringLiteral("%1/%2-%3.png").arg(PICTURES, m_prefix, QLatin1String(state)), "PNG", quality));
}

void tst_ViewerPictures::states_data()
{
    addColumns<QString, bool>({"language", "isDark"});
    const auto allCodes = CLanguage::codes();
    for (const QString& code : allCodes) {
        for (const bool isDark : {false, true})
            addRow(qPrintable(code + (isDark ? "-dark" : "-light")), code, isDark);
    }
}

void tst_ViewerPictures::states()
{
    QFETCH(QString, language);
    QFETCH(bool, isDark);
    QApplication::setPalette(isDark ? darkPalette() : lightPalette());
    CLanguage texts;
    texts.install(language);
    QTranslator pluginTexts; // as the plugin has it in the program
    QVERIFY(pluginTexts.load("Halvex_" + language, ":/translation"));
    QCoreApplication::installTranslator(&pluginTexts);
    const SWindow test;
    CViewerWindow& window = *test.window;
    m_prefix = QStringLiteral("%1-%2-%3x").arg(isDark ? "dark" : "light", language).arg(window.devicePixelRatio());
    take(window, "1-empty");

    for (const char* name : {"fake-1", "fake-2"}) {
        CCameraSession* const session = test.connectCamera(name);
        QTRY_VERIFY(session->isOpen());
        QVERIFY(window.importChain(DEMO_CHAIN));
        session->start();
    }
    window.tabs().current()->view().fit();
    const auto allOfThem = window.sessions().all();
    for (const CCameraSession* const session : allOfThem)
        QTRY_VERIFY(session->framesPerSecond() > 5.0 && !session->preview().isNull());
    QTRY_VERIFY(isEveryRateShown(window.tabs().current()->view().canvas()));
    take(window, "2-cameras");

    CViewerDocks& docks = window.docks();
    CViewerDocks::bringUp(docks.features());
    QTRY_VERIFY(docks.features().editor("Width"));
    take(window, "3-features");

    Q_EMIT docks.palette().placeRequested("Blur");
    CViewerDocks::bringUp(docks.settings());
    window.findChild<QDockWidget*>("history")->show();
    take(window, "4-settings-history");
    window.findChild<QDockWidget*>("history")->hide();

    QVERIFY(write(test.file("bad.json"), R"([{"name": "a", "model": {"name": "Blurr"}, "unique_sources": [["*"]]}])"));
    QVERIFY(!window.importChain(test.file("bad.json")));
    take(window, "5-faults");

    window.showCommands();
    take(window.commandPalette(), "6-commands");
    window.commandPalette().reject();
    window.findChild<QDockWidget*>("faults")->hide();

    CGraphView& graph = window.tabs().current()->view();
    graph.setActualSize();
    for (const auto& node : window.tabs().current()->scene()->nodes()) {
        if (node.second->nodeDataModel()->name() == "Threshold")
            graph.goTo(node.first);
    }
    take(window, "8-details");
    graph.connectSelected();
    take(window, "9-connecting");
    QTest::keyClick(&graph, Qt::Key_Escape);
    graph.search();
    QTest::keyClicks(graph.searchBar().findChild<QLineEdit*>(), "png");
    take(window, "10-search");

    const CImageDock& dock = *window.imageDocks().docks().first();
    dock.view().setSelection(QRect(60, 60, 240, 160));
    for (const char* name : {"image.histogram", "image.palette.heat"})
        dock.findChild<QAction*>(name)->trigger();
    dock.recorder().start(CRecorder::EKind::Png, test.folder.path(), 25.0);
    QTRY_VERIFY(dock.recorder().counts().written > 20);
    take(window, "11-image-recording");

    const CScenePage& page = *window.tabs().current();
    const CNodeBase& failed =
        addMoodyNode(*page.scene(), ENodeValidationState::Error, "/media/images: No space left on device");
    addMoodyNode(*page.scene(), ENodeValidationState::Warning, "The image is smaller than the filter");
    page.view().canvas().arrange();
    page.view().setActualSize();
    page.view().goTo(failed.id());
    take(window, "12-errors");

    const CCameraSession* const resting = test.connectCamera(QStringLiteral("fake-3"));
    QTRY_VERIFY(resting->isOpen());
    QVERIFY(write(test.file("many.json"), manyFilters(QStringLiteral("fake-3"), 20, 22)));
    QVERIFY(window.importChain(test.file("many.json")));
    QTRY_VERIFY(window.tabs().current()->view().canvas().nodeItems().size() >= 500);
    CGraphView& large = window.tabs().current()->view();
    large.fit();
    take(window, "13-many-nodes");
    large.setActualSize();
    take(window, "14-some-of-many-nodes");

    SCameraOptions absent;
    absent.address = QStringLiteral("256.1.1.1");
    const CCameraSession* const missing = window.sessions().connectCamera(absent);
    QTRY_COMPARE(missing->state(), CCameraSession::EState::Failed);
    docks.cameras().choose(absent.address);
    take(docks.cameras(), "7-camera-failed");
}

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // as the program does
    const QApplication application(argc, argv);
    tst_ViewerPictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ViewerPictures.moc"
