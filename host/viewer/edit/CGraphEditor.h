// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/AGraphStep.h"
#include "host/viewer/edit/GraphPart.h"
#include "host/viewer/edit/SPort.h"

#include <Halvex/platform/CId.h>

#include <QObject>
#include <QPointer>
#include <QUndoStack>

#include <memory>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeDataModelRegistry;
class CNodeScene;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

/**
 * Edits a scene for a person: each operation is a step that can be undone, with a text that says what it did.
 *
 * \code
 * CGraphEditor editor(*scene, *service);
 * const Core::CId blur = editor.addNode(QStringLiteral("Blur"), QPointF(200, 0));
 * editor.connectPorts({camera, ENodePortType::Out, 0}, {blur, ENodePortType::In, 0}); // puts the converter in
 * editor.undoStack().undo();
 * \endcode
 *
 * Undo brings nodes back with their ids, settings and connections; connections get new ids. What others change in the
 * scene is no step. If that keeps a step from being undone as a whole, what is possible is done, and refused() tells.
 *
 * A node with a unique model, such as a camera, is the scene's own: it is neither added nor removed here, since no
 * document could bring it back.
 *
 * Errors: an operation that cannot be done changes nothing, is no step, and refused() tells why.
 *
 * Ownership: the scene is watched, not owned, and may go at any time; operations then do nothing. \a service outlives
 * the editor. Threads: the scene's. Handlers of the scene's signals must not destroy the editor.
 */
class CGraphEditor : public QObject
{
    Q_OBJECT

public:
    CGraphEditor(Plugin::Halvex::CNodeScene& scene, Plugin::Halvex::INodeService& service, QObject* parent = nullptr);
    ~CGraphEditor() override;

    /// Null once it is gone.
    Plugin::Halvex::CNodeScene* scene() const;
    Plugin::Halvex::CNodeBase* node(const Core::CId& id) const;
    std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> registry() const;
    QUndoStack& undoStack() { return m_undoStack; }

    /// Calls the steps by their names in the language that is chosen now.
    void retranslateSteps();

    /// Where the nodes are drawn. Only of nodes that are there: a node that goes takes its position along.
    NodePositions positions() const { return m_positions; }

    /// Sets these positions, on the grid, and leaves the others. It is no step; ids that the scene does not have are
    /// kept for nodes to come. Emits positionsChanged() once.
    void setPositions(const NodePositions& positions);

    /// Returns the new node's id; no id if there is no such model.
    Core::CId addNode(const QString& modelName, QPointF position);

    /// The same with these settings, and connected to \a out: one step, called \a text. A setting or a connection that
    /// is refused is left out.
    Core::CId addConnectedNode(const QString& modelName, QPointF position, const SPort& out,
                               const QMap<QString, QString>& settings, const StepText& text);

    /// Removes these nodes with all their connections, and these connections.
    bool remove(const std::vector<Core::CId>& nodes, const std::vector<Core::CId>& connections);

    /// Connects an output with an input that fits(), with the converter that the registry has for their types.
    bool connectPorts(const SPort& out, const SPort& in);

    /// Sets a setting, see setSetting(QObject&, ...). Changes with the same \a gesture that follow one another are one
    /// step; 0 is always a step of its own.
    bool setSetting(const Core::CId& id, const QString& name, const QString& value, int gesture = 0);

    void moveNodes(const NodePositions& positions);

    /// Removes \a out, which becomes what it was at that moment, and adds \a in, as takeOut() and putBack() do. It is
    /// no step. Returns how many parts of \a in are missing, of which refused() tells, too.
    int exchange(SGraphPart* out, const SGraphPart& in);

    /// Copies the nodes with the connections between them; returns the new ones.
    std::vector<Core::CId> duplicate(const std::vector<Core::CId>& nodes, QPointF offset);

    /// The nodes with the connections between them, as text for the clipboard.
    QByteArray copied(const std::vector<Core::CId>& nodes) const;

    /// Adds what copied() gave, around \a middle, or a chain. Returns the new nodes.
    std::vector<Core::CId> paste(const QByteArray& text, QPointF middle);

    /// Adds a chain, as INodeService::importDocument() does. Returns the new nodes.
    std::vector<Core::CId> importChain(const QString& chain);

Q_SIGNALS:
    /// Positions have changed, by whatever way.
    void positionsChanged();

    /// Something could not be done; \a reason is for people.
    void refused(const QString& reason);

private:
    friend class CSettingStep;

    void applySetting(const Core::CId& id, const QString& name, const QString& value);

    // What is made, before it is a step; nothing if it is refused.
    Core::CId makeNode(const QString& modelName, QPointF position);
    SGraphPart makeConnection(const SPort& out, const SPort& in);

    std::vector<Core::CId> addPart(const SGraphPart& part, const StepText& text);
    void recordAdded(const StepText& text, const std::vector<Core::CId>& nodes);
    StepText captionOf(const Core::CId& id) const;
    StepText removalText(const SGraphPart& part) const;
    void onNodeDeleted(Plugin::Halvex::CNodeBase& node);
    bool refuse(const QString& reason);

    const QPointer<Plugin::Halvex::CNodeScene> m_scene;
    Plugin::Halvex::INodeService& m_service;
    NodePositions m_positions;
    QUndoStack m_undoStack;
};

} // namespace Host
