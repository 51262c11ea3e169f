// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a CViewerWindow asks a person, and what it shows and remembers of itself.

#include "host/viewer/base/CLanguage.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/window/CCommandModel.h"
#include "host/viewer/window/CCommandPalette.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerDocks.h"
#include "host/viewer/window/CViewerMenus.h"
#include "host/viewer/window/CViewerStatus.h"
#include "host/viewer/window/CViewerWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QStyle>
#include <QTabBar>

namespace Host {

using namespace Plugin::Halvex;

void CViewerWindow::askForScene()
{
    CScenePage* const page = m_tabs->current();
    askForFile(page, new QFileDialog(this, tr("Open scene")), [=](const QString& file) { askToReplace(page, file); });
}

void CViewerWindow::askToOpen(const QString& file)
{
    askToReplace(m_tabs->current(), file);
}

void CViewerWindow::askToReplace(CScenePage* page, const QString& file)
{
    if (page)
        ifChangesMayGo(*page, [this, file](CScenePage& asked) { openScene(file, &asked); });
    else
        openScene(file, nullptr);
}

void CViewerWindow::askForChain()
{
    CScenePage* const page = m_tabs->current();
    askForFile(page, new QFileDialog(this, tr("Import chain")), [=](const QString& file) { importChain(file, page); });
}

void CViewerWindow::saveCurrent()
{
    CScenePage* const page = m_tabs->current();
    if (page && !page->file().isEmpty())
        saveScene(page->file(), page);
    else
        saveCurrentAs();
}

void CViewerWindow::saveCurrentAs()
{
    CScenePage* const page = m_tabs->current();
    auto* const dialog = new QFileDialog(this, tr("Save scene"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    askForFile(page, dialog, [=](const QString& file) { saveScene(file, page); });
}

// For that page, whichever is shown when the answer comes; null for none.
void CViewerWindow::askForFile(CScenePage* page, QFileDialog* dialog, const std::function<void(const QString&)>& then)
{
    if (dialog->acceptMode() == QFileDialog::AcceptOpen)
        dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setDefaultSuffix(QStringLiteral("json"));
    dialog->setNameFilter(tr("Documents (*.json);;All files (*)"));
    connect(dialog, &QFileDialog::fileSelected, this, [this, page, then](const QString& file) {
        if (!page || m_tabs->pages().contains(page))
            then(file);
    });
    if (page)
        connect(page, &QObject::destroyed, dialog, &QDialog::reject);
    dialog->open();
}

// Behind the last scene the first one follows.
void CViewerWindow::showBeside(int step)
{
    const int count = m_tabs->count();
    if (count > 0)
        m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + count) % count);
}

void CViewerWindow::closeCurrent()
{
    if (const CScenePage* const page = m_tabs->current())
        askToClose(page->scene());
}

void CViewerWindow::askToClose(const CNodeScene* scene)
{
    if (CScenePage* const page = m_tabs->page(scene))
        ifChangesMayGo(*page, [this](const CScenePage& asked) { closeScene(asked.scene()); });
}

void CViewerWindow::askToDisconnect(const QString& camera)
{
    const CCameraSession* const session = m_sessions->find(camera);
    if (session && m_tabs->page(session->scene()))
        askToClose(session->scene());
    else
        m_sessions->disconnectCamera(camera);
}

void CViewerWindow::ifChangesMayGo(CScenePage& page, const std::function<void(CScenePage&)>& then)
{
    if (!page.isModified()) {
        then(page);
        return;
    }
    QDialog* const question = askToDiscard(page.title(), [this, asked = QPointer<CScenePage>(&page), then] {
        if (asked && m_tabs->pages().contains(asked))
            then(*asked);
    });
    connect(&page, &QObject::destroyed, question, &QDialog::reject);
}

QDialog* CViewerWindow::askToDiscard(const QString& modified, const std::function<void()>& then)
{
    auto* const question = new QMessageBox(QMessageBox::Question, tr("Halvex Viewer"),
                                           tr("%1 has changes that are not saved.").arg(modified),
                                           QMessageBox::Discard | QMessageBox::Cancel, this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setDefaultButton(QMessageBox::Cancel);
    connect(question, &QMessageBox::finished, this, [then](int answer) {
        if (answer == QMessageBox::Discard)
            then();
    });
    question->open();
    return question;
}

void CViewerWindow::showCommands()
{
    m_menus->update();
    m_palette->setCommands(commandsOf(m_menus->menus()));
    m_palette->open();
}

void CViewerWindow::chooseLanguage(const QString& code)
{
    m_parts.settings.setLanguage(code);
    Q_EMIT languageChosen(code.isEmpty() ? CLanguage::systemCode() : code);
}

void CViewerWindow::chooseColors(CViewerSettings::EColors colors)
{
    m_parts.settings.setColors(colors);
    applyColors(colors);
}

void CViewerWindow::applyColors(CViewerSettings::EColors colors)
{
    static const bool isDesktopDark = isDark(QApplication::palette()); // at the start nothing else was applied
    switch (colors) {
    case CViewerSettings::EColors::AsDesktop:
        QApplication::setPalette(isDesktopDark ? darkPalette() : lightPalette());
        break;
    case CViewerSettings::EColors::Light:
        QApplication::setPalette(lightPalette());
        break;
    case CViewerSettings::EColors::Dark:
        QApplication::setPalette(darkPalette());
        break;
    }
}

void CViewerWindow::restoreLayout()
{
    restoreGeometry(m_parts.settings.geometry());
    restoreState(m_parts.settings.layout());
}

void CViewerWindow::closeEvent(QCloseEvent* event)
{
    QStringList modified;
    const auto allPages = m_tabs->pages();
    for (const CScenePage* const page : allPages) {
        if (page->isModified())
            modified << page->title();
    }
    if (!modified.isEmpty() && !m_areChangesDiscarded) {
        event->ignore();
        askToDiscard(modified.join(QStringLiteral(", ")), [this] {
            m_areChangesDiscarded = true;
            close();
            m_areChangesDiscarded = false;
        });
        return;
    }
    m_parts.settings.setGeometry(saveGeometry());
    m_parts.settings.setLayout(saveState());
    m_sessions->closeAll(); // while nobody waits for it
    QMainWindow::closeEvent(event);
}

void CViewerWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CViewerWindow::retranslate()
{
    setWindowTitle(tr("Halvex Viewer"));
    m_tabs->setAccessibleName(tr("Scenes"));
    m_tabs->tabBar()->setAccessibleName(tr("Scenes"));
    const auto pages = m_tabs->pages();
    for (const CScenePage* const page : pages)
        page->editor().retranslateSteps(); // before menus and history show them
    m_docks->retranslate();
    m_menus->retranslate();
    m_menus->update();
    m_status->retranslate();
}

} // namespace Host
