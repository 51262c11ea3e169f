// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/SGraphHand.h"
#include "host/viewer/edit/CSettingsPanel.h"

#include <QSpinBox>

#include <random>

/// A person who does whatever comes to mind with a graph that has at least one node, with mouse and keyboard.
class CGraphUser
{
public:
    static constexpr std::size_t mostNodes = 60;

    /// \a panel shows the node that is chosen.
    CGraphUser(Host::CGraphView& view, Host::CSettingsPanel& panel, std::mt19937& random)
        : m_hand{view}
        , m_panel(panel)
        , m_random(random)
    {
    }

    /// Returns what was done, in a word.
    const char* act()
    {
        switch (pick(15)) {
        case 0:
        case 1:
        case 2:
            return place();
        case 3:
        case 4:
        case 5:
            return connectPorts();
        case 6:
            return chooseAndPress("delete", Qt::Key_Delete, Qt::NoModifier);
        case 7:
        case 8:
            m_hand.key(Qt::Key_Z, Qt::ControlModifier);
            return "undo";
        case 9:
            m_hand.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            return "redo";
        case 10:
            return chooseAndPress("duplicate", Qt::Key_D, Qt::ControlModifier);
        case 11:
            return moveANode();
        case 12:
            return changeASetting();
        case 13:
            return connectWithTheKeyboard();
        default:
            return walk();
        }
    }

    /// Somebody else changes the scene, by its own operations. The node \a kept stays.
    void interfere(const Core::CId& kept)
    {
        const Core::CId id = anyNode();
        if (pick(2) == 0 && !scene().connections().empty())
            scene().deleteConnection(*scene().connections().begin()->second);
        else if (id != kept)
            scene().removeNode(*m_hand.view.editor()->node(id));
    }

    bool hasRoom() const { return scene().nodes().size() < mostNodes; }

private:
    std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }

    Plugin::Halvex::CNodeScene& scene() const { return *m_hand.view.editor()->scene(); }

    Core::CId anyNode()
    {
        auto node = scene().nodes().begin();
        std::advance(node, std::ptrdiff_t(pick(scene().nodes().size())));
        return node->first;
    }

    const char* place()
    {
        static const QStringList models{"Blur",     "Edges",        "Threshold", "Histogram",
                                        "To Image", "DecouplerVGR", "PNG Sink"};
        if (hasRoom())
            m_hand.view.place(models[int(pick(std::size_t(models.size())))]);
        return "place";
    }

    const char* connectPorts()
    {
        m_hand.view.canvas().sync();
        m_hand.view.fit();
        const QPoint out = m_hand.at(Host::SPort{anyNode(), Plugin::Halvex::ENodePortType::Out, 0});
        const QPoint in = m_hand.at(Host::SPort{anyNode(), Plugin::Halvex::ENodePortType::In, 0});
        m_hand.drag(out, in);
        return "connect";
    }

    const char* chooseAndPress(const char* what, Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        if (key == Qt::Key_D && !hasRoom())
            return what;
        m_hand.view.canvas().select({anyNode(), anyNode()});
        m_hand.key(key, modifiers);
        return what;
    }

    const char* moveANode()
    {
        m_hand.view.canvas().sync();
        m_hand.view.fit();
        const QPoint from = m_hand.at(anyNode());
        m_hand.drag(from, from + QPoint(int(pick(60)) - 30, int(pick(60)) - 30));
        return "move";
    }

    const char* changeASetting()
    {
        m_hand.view.goTo(anyNode());
        if (auto* const box = m_panel.findChild<QSpinBox*>())
            QTest::keyClick(box, pick(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
        return "set";
    }

    const char* connectWithTheKeyboard()
    {
        m_hand.view.goTo(anyNode());
        m_hand.key(Qt::Key_C);
        for (std::size_t i = pick(4); i > 0; --i)
            m_hand.key(Qt::Key_Right);
        m_hand.key(pick(3) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        return "connect by keyboard";
    }

    const char* walk()
    {
        static const std::vector<Qt::Key> keys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
        m_hand.key(keys[pick(keys.size())], pick(3) == 0 ? Qt::ControlModifier : Qt::NoModifier);
        return "walk";
    }

    const SGraphHand m_hand;
    Host::CSettingsPanel& m_panel;
    std::mt19937& m_random;
};

/// How many steps a test with such a person makes: \a usual, or as many as the environment asks for.
inline int userSteps(int usual)
{
    const int asked = qEnvironmentVariableIntValue("HALVEX_USER_STEPS");
    return asked > 0 ? asked : usual;
}
