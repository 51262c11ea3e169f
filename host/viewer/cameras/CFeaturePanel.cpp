// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeaturePanel.h"

#include "host/viewer/base/Actions.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CFeatureEditor.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace Host {

CFeaturePanel::CFeaturePanel(QWidget* parent)
    : QWidget(parent)
    , m_search(new QLineEdit(this))
    , m_tree(new QTreeWidget(this))
    , m_message(new QLabel(this))
{
    m_refresh = makeAction(this, "readFeatures", QKeySequence(QStringLiteral("Ctrl+F5")), [this] {
        if (m_session)
            m_session->readFeatures();
    });
    m_search->setObjectName(QStringLiteral("featureSearch"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, &CFeaturePanel::filter);

    m_tree->setColumnCount(2);
    m_tree->setHeaderHidden(true);
    m_tree->setSelectionMode(QAbstractItemView::NoSelection);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tree->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_tree->setIndentation(2 * gridStep);
    m_tree->header()->setStretchLastSection(true);
    m_message->setWordWrap(true);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(gridStep, gridStep, gridStep, gridStep);
    layout->setSpacing(gridStep);
    layout->addWidget(m_search);
    layout->addWidget(m_tree, 1);
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
    build({});
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
    m_tree->setEnabled(hasSession);
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

bool CFeaturePanel::isShown(const std::vector<SFeature>& features) const
{
    const auto isSame = [](const SFeature& one, const SFeature& other) {
        return one.name == other.name && one.category == other.category && one.type == other.type;
    };
    return std::equal(features.begin(), features.end(), m_features.begin(), m_features.end(), isSame);
}

// Widgets that can stay do: a person may be using one of them.
void CFeaturePanel::showFeatures(const std::vector<SFeature>& features)
{
    if (!isShown(features)) {
        build(features);
        return;
    }
    for (const SFeature& feature : features)
        m_editors.value(feature.name)->show(feature);
}

void CFeaturePanel::build(const std::vector<SFeature>& features)
{
    m_features = features;
    // One that loses the focus as it goes tells what is half typed in it.
    for (CFeatureEditor* const editor : qAsConst(m_editors))
        editor->disconnect();
    m_editors.clear();
    m_tree->clear();
    for (const SFeature& feature : features) {
        auto* const item = new QTreeWidgetItem(categoryItem(feature.category), {feature.name});
        item->setToolTip(0, feature.help.isEmpty() ? feature.name : feature.name + QLatin1Char('\n') + feature.help);
        auto* const editor = new CFeatureEditor(feature);
        if (m_session)
            connect(editor, &CFeatureEditor::edited, m_session,
                    [session = m_session.data(), name = feature.name](const QString& value) {
                        session->setFeature(name, value);
                    });
        m_editors.insert(feature.name, editor);
        m_tree->setItemWidget(item, 1, editor);
    }
    m_tree->expandAll();
    placeColumns();
    filter();
}

// Names that are too long are cut: their tool tips have them, and the values must be seen.
void CFeaturePanel::placeColumns()
{
    m_tree->resizeColumnToContents(0);
    m_tree->setColumnWidth(0, std::min(m_tree->columnWidth(0), m_tree->viewport()->width() * 12 / 20));
}

void CFeaturePanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeColumns();
}

QTreeWidgetItem* CFeaturePanel::categoryItem(const QString& category)
{
    const QList<QTreeWidgetItem*> known = m_tree->findItems(category, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!known.isEmpty())
        return known.first();
    auto* const item = new QTreeWidgetItem(m_tree, {category});
    QFont font = m_tree->font();
    font.setBold(true);
    item->setFont(0, font);
    item->setFirstColumnSpanned(true);
    return item;
}

void CFeaturePanel::filter()
{
    const QString word = m_search->text().trimmed();
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const category = m_tree->topLevelItem(i);
        bool isAnyShown = false;
        for (int j = 0; j < category->childCount(); ++j) {
            const bool isFound = category->child(j)->text(0).contains(word, Qt::CaseInsensitive);
            category->child(j)->setHidden(!isFound);
            isAnyShown = isAnyShown || isFound;
        }
        category->setHidden(!isAnyShown);
    }
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
    m_tree->setAccessibleName(tr("Features of the camera"));
    m_message->setAccessibleName(tr("Message of the camera"));
    build(std::vector<SFeature>(m_features)); // the buttons have texts, too
    showState();
}

} // namespace Host
