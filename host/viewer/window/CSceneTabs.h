// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QTabWidget>

namespace Plugin::Halvex {
class CNodeScene;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class CScenePage;

/**
 * A tab for each scene of the service, by the service's signals alone: it comes with the scene, goes with it whoever
 * removes or destroys it, and the shown one is the active scene.
 *
 * Ownership: owns the pages; one whose tab has gone is deleted by the event loop. \a service outlives this object.
 *
 * Threads: the main thread.
 */
class CSceneTabs : public QTabWidget
{
    Q_OBJECT

public:
    explicit CSceneTabs(Plugin::Halvex::INodeService& service, QWidget* parent = nullptr);
    ~CSceneTabs() override;

    /// Null if there is no scene, or the scene has no tab.
    CScenePage* current() const;
    CScenePage* page(const Plugin::Halvex::CNodeScene* scene) const;
    QList<CScenePage*> pages() const;

Q_SIGNALS:
    /// A scene has its tab. Nodes that it has by now are told by nobody else.
    void pageAdded(Host::CScenePage* page);

    /// Another page is shown; null for none.
    void currentPageChanged(Host::CScenePage* page);

    /// A person asks for the end of that scene.
    void closeRequested(Plugin::Halvex::CNodeScene* scene);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addScene(Plugin::Halvex::CNodeScene* scene);
    void addCloseButton(int index, const CScenePage& page);
    void removeScene(const QObject* scene);
    void showScene(Plugin::Halvex::CNodeScene* scene);
    void onCurrentChanged();
    void updateTitles();

    Plugin::Halvex::INodeService& m_service;
};

} // namespace Host
