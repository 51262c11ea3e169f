// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeaturePanel.h"

#include "host/viewer/base/Actions.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CFeatureEditor.h"
#include "host/viewer/cameras/CFeatureTree.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace Host {

CFeaturePanel::CFeaturePanel(QWidget* parent)
    : QWidget(parent)
    , m_features(new CFeatureTree(this))
    , m_found(new QSortFilterProxyModel(this))
    , m_search(new QLineEdit(this))
    , m_view(new QTreeView(this))
    , m_message(new QLabel(this))
{
    m_refresh = makeAction(this, "readFeatures", QKeySequence(QStringLiteral("Ctrl+F5")), [this] {
        if (m_session)
            m_session->readFeatures();
    });
    m_search->setObjectName(QStringLiteral("featureSearch"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, &CFeaturePanel::search);

    m_found->setSourceModel(m_features);
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_found->setFilterRole(CFeatureTree::searchRole);
    m_found->setRecursiveFilteringEnabled(true);
    m_view->setModel(m_found);
    connect(m_features, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CFeaturePanel::silenceEditors);
    m_view->setHeaderHidden(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setSelectionMode(QAbstractItemView::NoSelection);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_view->setIndentation(2 * gridStep);
    m_view->header()->setStretchLastSection(true);
    m_message->setWordWrap(true);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(gridStep, gridStep, gridStep, gridStep);
    layout->setSpacing(gridStep);
    layout->addWidget(m_search);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_message);
    retranslate();
    setSession(nullptr);
}

QList<QAction*> CFeaturePanel::featureActions() const
{
    return {m_refresh};
}

void CFeaturePanel::setSession(CCameraSession* session)
{
    if (m_session && m_session == session)
        return;
    if (m_session)
        m_session->disconnect(this);
    m_session = session;
    showFeatures({});
    if (session) {
        connect(session, &CCameraSession::featuresRead, this, &CFeaturePanel::showFeatures);
        connect(session, &CCameraSession::changed, this, &CFeaturePanel::showState);
        connect(session, &CCameraSession::opened, this, [session] { session->readFeatures(); });
        session->readFeatures();
    }
    showState();
}

void CFeaturePanel::showState()
{
    const bool hasSession = m_session && m_session->isOpen();
    m_view->setEnabled(hasSession);
    m_refresh->setEnabled(hasSession);
    QString text;
    if (!m_session)
        text = tr("Connect a camera to see its features.");
    else if (m_session->isFile())
        text = tr("Files have no features.");
    else if (!m_session->error().isEmpty())
        text = asSentence(m_session->error());
    QPalette colors = palette();
    if (hasSession && !m_session->error().isEmpty())
        colors.setColor(QPalette::WindowText, accentColor(EAccent::Error, palette()));
    m_message->setPalette(colors);
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
}

CFeatureEditor* CFeaturePanel::editor(const QString& feature) const
{
    const QModelIndex name = m_found->mapFromSource(m_features->find(feature));
    return static_cast<CFeatureEditor*>(m_view->indexWidget(name.siblingAtColumn(1)));
}

void CFeaturePanel::showFeatures(const std::vector<SFeature>& features)
{
    m_features->setFeatures(features);
    showEditors();
    placeColumns();
}

// One that loses the focus as it goes tells what is half typed in it.
void CFeaturePanel::silenceEditors()
{
    const auto editors = m_view->findChildren<CFeatureEditor*>();
    for (CFeatureEditor* const editor : editors)
        editor->disconnect();
}

void CFeaturePanel::showEditors()
{
    for (int i = 0; i < m_found->rowCount(); ++i) {
        m_view->setFirstColumnSpanned(i, {}, true);
        const QModelIndex category = m_found->index(i, 0);
        for (int j = 0; j < m_found->rowCount(category); ++j)
            showEditor(m_found->index(j, 0, category));
    }
    m_view->expandAll();
}

void CFeaturePanel::showEditor(const QModelIndex& name)
{
    const QModelIndex place = name.siblingAtColumn(1);
    const SFeature feature = CFeatureTree::featureAt(name);
    if (QWidget* const known = m_view->indexWidget(place)) {
        static_cast<CFeatureEditor*>(known)->show(feature);
        return;
    }
    auto* const editor = new CFeatureEditor(feature);
    if (m_session)
        connect(editor, &CFeatureEditor::edited, m_session,
                [session = m_session.data(), feature = feature.name](const QString& value) {
                    session->setFeature(feature, value);
                });
    m_view->setIndexWidget(place, editor);
}

// Names that are too long are cut: their tool tips have them, and the values must be seen.
void CFeaturePanel::placeColumns()
{
    m_view->resizeColumnToContents(0);
    m_view->setColumnWidth(0, std::min(m_view->columnWidth(0), m_view->viewport()->width() * 12 / 20));
}

void CFeaturePanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeColumns();
}

void CFeaturePanel::search(const QString& text)
{
    m_found->setFilterFixedString(text.trimmed());
    showEditors(); // those that were not found have gone
}

void CFeaturePanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CFeaturePanel::retranslate()
{
    m_refresh->setText(tr("Read features again"));
    m_search->setPlaceholderText(tr("Search features"));
    m_search->setAccessibleName(tr("Search features"));
    m_view->setAccessibleName(tr("Features of the camera"));
    m_message->setAccessibleName(tr("Message of the camera"));
    const std::vector<SFeature> features = m_features->features();
    showFeatures({});
    showFeatures(features); // the buttons have texts, too
    showState();
}

} // namespace Host
