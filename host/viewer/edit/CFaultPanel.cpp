// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CFaultPanel.h"

#include "host/check/CDocumentCheck.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/edit/CFaultModel.h"
#include "host/viewer/edit/PortFit.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QEvent>
#include <QFontDatabase>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTextBlock>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

Core::CId toId(const QJsonValue& json)
{
    return Core::CId(json.toString().toLatin1().constData());
}

// The node that a finding is about, or the one that a connection feeds. Of what is not there, the message alone says
// which node lacks it.
Core::CId nodeOfFault(const QJsonObject& document, const SFault& fault)
{
    static const QRegularExpression inPath(QStringLiteral(R"(^\$\.(nodes|connections)\[(\d+)\])"));
    static const QRegularExpression inMessage(QStringLiteral(R"(\b(nodes)\[(\d+)\])"));
    auto match = inPath.match(fault.path);
    if (!match.hasMatch())
        match = inMessage.match(fault.message);
    const QJsonObject part = document.value(match.captured(1)).toArray().at(match.captured(2).toInt()).toObject();
    return toId(part.value(part.contains(DocumentKeys::inId) ? DocumentKeys::inId : DocumentKeys::id));
}

// Its lines are what the check counts: they end with a line feed alone.
QString withLinesOfCheck(const QByteArray& text)
{
    QString shown = QString::fromUtf8(text);
    for (const QChar otherEnd : {QChar(QChar::CarriageReturn), QChar(QChar::ParagraphSeparator)})
        shown.replace(otherEnd, QLatin1Char(' '));
    return shown;
}

// With room after each text, so that columns as wide as their texts do not read as one line.
class CRoomyDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * gridStep, 0);
    }
};

} // namespace

CFaultPanel::CFaultPanel(INodeService& service, const IHostModels& models, QWidget* parent)
    : QWidget(parent)
    , m_service(service)
    , m_models(models)
    , m_faults(new CFaultModel(this))
    , m_summary(new QLabel(this))
    , m_view(new QTreeView(this))
    , m_text(new QPlainTextEdit(this))
{
    m_view->setObjectName(QStringLiteral("faults"));
    m_view->setModel(m_faults);
    m_view->setItemDelegate(new CRoomyDelegate(m_view));
    m_view->setRootIsDecorated(false);
    m_view->setAlternatingRowColors(true);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->header()->setSectionResizeMode(CFaultModel::Severity, QHeaderView::ResizeToContents);
    m_view->header()->setSectionResizeMode(CFaultModel::Place, QHeaderView::ResizeToContents);
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->hide();
    auto* const listAndText = new QSplitter(this);
    listAndText->addWidget(m_view);
    listAndText->addWidget(m_text);
    listAndText->setChildrenCollapsible(false);
    listAndText->setSizes({2000, 1000}); // the widths' ratio
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(gridStep, gridStep, gridStep, gridStep);
    column->setSpacing(gridStep);
    column->addWidget(m_summary);
    column->addWidget(listAndText, 1);
    connect(m_view, &QTreeView::clicked, this, &CFaultPanel::choose);
    connect(m_view, &QTreeView::activated, this, &CFaultPanel::choose);
    retranslate();
}

void CFaultPanel::checkScene(const CNodeScene& scene)
{
    showFaults(scene.saveToMemory(), &scene);
}

void CFaultPanel::checkText(const QByteArray& text)
{
    showFaults(text, nullptr);
}

int CFaultPanel::errors() const
{
    return count(true);
}

int CFaultPanel::warnings() const
{
    return count(false);
}

void CFaultPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CFaultPanel::showFaults(const QByteArray& text, const CNodeScene* scene)
{
    const QJsonObject document = QJsonDocument::fromJson(text).object();
    std::vector<SFaultRow> rows;
    SCheckOptions options;
    options.canNameCommands = false;
    for (const SFault& fault : CDocumentCheck(m_service, m_models, options).check(text)) {
        SFaultRow row{
            fault, fault.line > 0 ? tr("line %1, column %2").arg(fault.line).arg(fault.column) : QString(), {}};
        const Core::CId id = scene ? nodeOfFault(document, fault) : Core::CId();
        const CNodeBase* const node = scene ? nodeOf(*scene, id) : nullptr;
        if (scene)
            row.place = node ? captionText(*node->nodeDataModel()) : tr("scene");
        row.node = node ? id : Core::CId();
        rows.push_back(row);
    }
    m_faults->setRows(rows);
    m_text->setPlainText(scene ? QString() : withLinesOfCheck(text));
    m_text->setExtraSelections({});
    m_text->setVisible(!scene && !rows.empty());
    if (m_text->isVisibleTo(this))
        choose(m_faults->index(0, 0));
    m_hasChecked = true;
    retranslate();
}

void CFaultPanel::choose(const QModelIndex& index)
{
    const SFaultRow row = m_faults->row(index.row());
    if (row.node != Core::CId())
        Q_EMIT nodeChosen(row.node);
    else if (row.fault.line > 0)
        showPlace(row.fault.line, row.fault.column);
}

// Both count from 1.
void CFaultPanel::showPlace(int line, int column)
{
    const QTextBlock block = m_text->document()->findBlockByNumber(line - 1);
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor,
                        std::clamp(column - 1, 0, block.length() - 1));
    m_text->setTextCursor(cursor);
    m_text->centerCursor();
    QTextEdit::ExtraSelection mark;
    mark.cursor = cursor;
    mark.format.setBackground(palette().color(QPalette::Highlight));
    mark.format.setForeground(palette().color(QPalette::HighlightedText));
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    m_text->setExtraSelections({mark});
}

int CFaultPanel::count(bool areErrors) const
{
    int found = 0;
    for (int i = 0; i < m_faults->rowCount(); ++i)
        found += m_faults->row(i).fault.isError == areErrors ? 1 : 0;
    return found;
}

void CFaultPanel::retranslate()
{
    setAccessibleName(tr("Check"));
    m_view->setAccessibleName(tr("What the check found"));
    m_text->setAccessibleName(tr("The text that was checked"));
    if (!m_hasChecked)
        m_summary->setText(tr("Nothing has been checked yet."));
    else if (m_faults->rowCount() == 0)
        m_summary->setText(tr("No faults were found."));
    else
        m_summary->setText(tr("Errors: %1, warnings: %2").arg(errors()).arg(warnings()));
}

} // namespace Host
