// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A person who does whatever comes to mind, with mouse and keyboard, while somebody else changes the scene, too.

#include "edit/SEditedScene.h"
#include "graph/SShownGraph.h"
#include "host/viewer/edit/CSettingsPanel.h"
#include "support/FreshSeed.h"
#include "support/SceneConsistency.h"

#include <QAction>
#include <QSpinBox>
#include <QTest>

#include <random>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

class CRandomUser
{
public:
    CRandomUser(SShownGraph& shown, CSettingsPanel& panel, unsigned int seed)
        : m_shown(shown)
        , m_panel(panel)
        , m_random(seed)
    {
    }

    void act(bool withOthers)
    {
        switch (pick(withOthers ? 18 : 16)) {
        case 0:
        case 1:
        case 2:
            place();
            break;
        case 3:
        case 4:
        case 5:
            connectPorts();
            break;
        case 6:
            chooseAndPress(Qt::Key_Delete, Qt::NoModifier);
            break;
        case 7:
        case 8:
            m_shown.key(Qt::Key_Z, Qt::ControlModifier);
            break;
        case 9:
            m_shown.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            break;
        case 10:
            importChain();
            break;
        case 11:
            chooseAndPress(Qt::Key_D, Qt::ControlModifier);
            break;
        case 12:
            moveANode();
            break;
        case 13:
            changeASetting();
            break;
        case 14:
            connectWithTheKeyboard();
            break;
        case 15:
            walk();
            break;
        default:
            interfere();
        }
    }

private:
    std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }

    Core::CId anyNode()
    {
        const auto& nodes = m_shown.edited.scene->nodes();
        auto node = nodes.begin();
        std::advance(node, std::ptrdiff_t(pick(nodes.size())));
        return node->first;
    }

    void place()
    {
        static const QStringList models{"Blur",     "Edges",        "Threshold", "Histogram",
                                        "To Image", "DecouplerVGR", "PNG Sink"};
        if (m_shown.edited.scene->nodes().size() < mostNodes)
            m_shown.view->place(models[int(pick(std::size_t(models.size())))]);
    }

    void connectPorts()
    {
        m_shown.canvas().sync();
        m_shown.view->fit();
        const SPort one = SEditedScene::out(anyNode());
        const SPort other = SEditedScene::in(anyNode());
        m_shown.drag(m_shown.at(one), m_shown.at(other));
    }

    void chooseAndPress(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        if (key == Qt::Key_D && m_shown.edited.scene->nodes().size() >= mostNodes)
            return;
        m_shown.canvas().select({anyNode(), anyNode()});
        m_shown.key(key, modifiers);
    }

    void importChain()
    {
        if (pick(4) == 0 && m_shown.edited.scene->nodes().size() < mostNodes)
            m_shown.edited.editor->importChain(
                QString::fromUtf8(SEditedScene::demoChain().replace("\"*\"", "\"cam\"")));
    }

    void moveANode()
    {
        m_shown.view->fit();
        const QPoint from = m_shown.at(anyNode());
        m_shown.drag(from, from + QPoint(int(pick(60)) - 30, int(pick(60)) - 30));
    }

    void changeASetting()
    {
        m_panel.show(m_shown.edited.editor.get(), anyNode());
        if (auto* const box = m_panel.findChild<QSpinBox*>())
            QTest::keyClick(box, pick(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
    }

    void connectWithTheKeyboard()
    {
        m_shown.view->goTo(anyNode());
        m_shown.key(Qt::Key_C);
        for (std::size_t i = pick(4); i > 0; --i)
            m_shown.key(Qt::Key_Right);
        m_shown.key(pick(3) == 0 ? Qt::Key_Escape : Qt::Key_Return);
    }

    void walk()
    {
        static const std::vector<Qt::Key> keys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
        m_shown.key(keys[pick(keys.size())], pick(3) == 0 ? Qt::ControlModifier : Qt::NoModifier);
    }

    // By the scene's own operations.
    void interfere()
    {
        CNodeScene& scene = *m_shown.edited.scene;
        const Core::CId id = anyNode();
        if (pick(2) == 0 && !scene.connections().empty())
            scene.deleteConnection(*scene.connections().begin()->second);
        else if (id != m_shown.edited.camera)
            scene.removeNode(*m_shown.edited.editor->node(id));
    }

    static constexpr std::size_t mostNodes = 60;

    SShownGraph& m_shown;
    CSettingsPanel& m_panel;
    std::mt19937 m_random;
};

int stepsAsked()
{
    const int asked = qEnvironmentVariableIntValue("HALVEX_USER_STEPS");
    return asked > 0 ? asked : 2000;
}

} // namespace

class tst_GraphUser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGraphStaysSound();
    void undoAndRedoGiveTheSameDocuments();
};

void tst_GraphUser::theGraphStaysSound()
{
    SShownGraph shown;
    CSettingsPanel panel;
    CRandomUser user(shown, panel, freshSeed());
    for (int step = 0; step < stepsAsked(); ++step) {
        user.act(true);
        QCOMPARE(inconsistencyOf(*shown.edited.scene), QString());
        QCOMPARE(shown.mismatch(), QString());
        if (step % 100 == 0)
            shown.view->grab();
        QCoreApplication::processEvents();
    }
}

void tst_GraphUser::undoAndRedoGiveTheSameDocuments()
{
    SShownGraph shown;
    CSettingsPanel panel;
    CRandomUser user(shown, panel, freshSeed());
    const QByteArray first = shown.edited.document();
    for (int round = 0; round < std::max(1, stepsAsked() / 100); ++round) {
        for (int step = 0; step < 20; ++step)
            user.act(false);
        QCOMPARE(shown.mismatch(), QString()); // what was imported last gets its places
        const QByteArray last = shown.edited.document();
        const NodePositions positions = shown.edited.editor->positions();
        const int index = shown.edited.stack().index();
        shown.edited.stack().setIndex(0);
        QCOMPARE(shown.edited.document(), first);
        QCOMPARE(shown.mismatch(), QString());
        shown.edited.stack().setIndex(index);
        QCOMPARE(shown.edited.document(), last);
        QCOMPARE(shown.mismatch(), QString());
        QCOMPARE(shown.edited.editor->positions(), positions);
        QCOMPARE(inconsistencyOf(*shown.edited.scene), QString());
    }
}

QTEST_MAIN(tst_GraphUser)
#include "tst_GraphUser.moc"
