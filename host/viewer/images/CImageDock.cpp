// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageDock.h"

#include "host/viewer/images/CHistogramView.h"
#include "host/viewer/images/CImageActions.h"
#include "host/viewer/images/CImageFolders.h"
#include "host/viewer/images/CImageStatus.h"
#include "host/viewer/images/CImageView.h"
#include "host/viewer/images/CRangeBar.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/images/OwnDepth.h"
#include "host/viewer/recording/CRecordBar.h"
#include "host/viewer/recording/CRecorder.h"

#include <QClipboard>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace Host {

namespace {

constexpr double zoomStep = 1.25;
constexpr int iconSize = 18;

} // namespace

CImageDock::CImageDock(CViewModel& model, CImageFolders& folders, QWidget* parent)
    : QDockWidget(parent)
    , m_model(&model)
    , m_folders(folders)
    , m_actions(new CImageActions(this))
    , m_view(new CImageView)
    , m_range(new CRangeBar)
    , m_histogram(new CHistogramView)
    , m_status(new CImageStatus)
    , m_recorder(new CRecorder(model, parent))
    , m_recordBar(new CRecordBar(*m_recorder))
    , m_saver(new CImageSaver(this, folders, parent))
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addParts(*layout);
    setWidget(content);
    setFocusProxy(m_view);
    addActions(imageActions());
    connectModel(model);
    connectView();
    connectLookActions();
    connectFileActions();
    retranslate();
    onImageChanged();
}

CImageDock::~CImageDock()
{
    delete widget(); // before the recorder, which a part of it refers to
    if (m_recorder)
        m_recorder->deleteWhenDone();
    if (m_saver)
        m_saver->deleteWhenDone();
}

void CImageDock::addParts(QVBoxLayout& layout)
{
    layout.addWidget(makeToolBar());
    layout.addWidget(m_range);
    layout.addWidget(m_view, 1);
    layout.addWidget(m_histogram);
    layout.addWidget(m_recordBar);
    layout.addWidget(m_status);
    m_range->hide();
    m_histogram->hide();
}

QWidget* CImageDock::makeToolBar()
{
    auto* const bar = new QToolBar;
    bar->setObjectName(QStringLiteral("imageTools"));
    bar->setIconSize({iconSize, iconSize});
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    const QList<QAction*> actions = m_actions->toolBarActions();
    for (QAction* const action : actions) {
        if (!action) {
            bar->addSeparator();
            continue;
        }
        bar->addAction(action);
        auto* const button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
        button->setFocusPolicy(Qt::TabFocus); // so that all can be reached by the keyboard
        button->setPopupMode(QToolButton::InstantPopup);
    }
    return bar;
}

void CImageDock::connectModel(CViewModel& model) const
{
    connect(&model, &CViewModel::imageChanged, this, &CImageDock::onImageChanged);
    connect(&model, &CViewModel::viewNameChanged, this, &CImageDock::retranslate);
    connect(&model, &QObject::destroyed, this, &CImageDock::onImageChanged);
}

void CImageDock::connectView()
{
    connect(m_view, &CImageView::renderedChanged, this, &CImageDock::onRendered);
    connect(m_view, &CImageView::probeChanged, this, &CImageDock::onProbeChanged);
    connect(m_view, &CImageView::drawingChanged, this,
            [this] { m_actions->rectangle->setChecked(m_view->isDrawing()); });
    connect(m_range, &CRangeBar::rangeChanged, this,
            [this] { m_view->setRange(m_view->look().rangeMode, m_range->range()); });
}

void CImageDock::connectLookActions()
{
    connect(m_actions->fit, &QAction::triggered, m_view, &CImageView::fit);
    connect(m_actions->oneToOne, &QAction::triggered, m_view, [this] { m_view->zoomTo(1.0); });
    connect(m_actions->zoomIn, &QAction::triggered, m_view, [this] { m_view->zoomBy(zoomStep); });
    connect(m_actions->zoomOut, &QAction::triggered, m_view, [this] { m_view->zoomBy(1.0 / zoomStep); });
    connect(m_actions->rectangle, &QAction::toggled, m_view, &CImageView::setDrawing);
    for (std::size_t i = 0; i < m_actions->palettes.size(); ++i)
        connect(m_actions->palettes[i], &QAction::triggered, m_view, [=] { m_view->setColors(EPalette(i)); });
    for (std::size_t i = 0; i < m_actions->ranges.size(); ++i)
        connect(m_actions->ranges[i], &QAction::triggered, this, [=] { setRangeMode(int(i)); });
    connect(m_actions->histogram, &QAction::toggled, m_histogram, &QWidget::setVisible);
    connect(m_actions->histogram, &QAction::toggled, m_view, &CImageView::setHistogramWanted);
    connect(m_actions->logarithmic, &QAction::toggled, m_histogram, &CHistogramView::setLogarithmic);
}

void CImageDock::connectFileActions()
{
    connect(m_actions->saveImage, &QAction::triggered, this, [this] { m_saver->askForImage(m_view->rendered().data); });
    connect(m_actions->saveView, &QAction::triggered, this, [this] { m_saver->askForView(m_view->seen()); });
    connect(m_actions->copy, &QAction::triggered, this, &CImageDock::copyView);
    connect(m_saver, &CImageSaver::ended, m_status, &CImageStatus::setMessage);
    for (std::size_t i = 0; i < m_actions->records.size(); ++i)
        connect(m_actions->records[i], &QAction::triggered, this, [=] { record(int(i)); });
    connect(m_actions->recordFolder, &QAction::triggered, this, &CImageDock::askForRecordFolder);
    connect(m_actions->stop, &QAction::triggered, m_recorder, &CRecorder::stop);
    connect(m_recorder, &CRecorder::changed, this, &CImageDock::onRecorderChanged);
}

QList<QAction*> CImageDock::imageActions() const
{
    return m_actions->actions();
}

CRecorder& CImageDock::recorder() const
{
    return *m_recorder;
}

void CImageDock::onImageChanged()
{
    m_view->setImage(m_model ? m_model->image() : nullptr);
    m_status->setCounts(m_view->shown(), m_model ? m_model->delivered() : 0);
}

void CImageDock::onRendered()
{
    const SRenderedImage& rendered = m_view->rendered();
    if (rendered.data)
        m_range->setBits(ownBits(*rendered.data));
    m_status->setStatistics(rendered);
    onProbeChanged();
    if (m_actions->histogram->isChecked())
        m_histogram->showImage(rendered);
    for (QAction* const action : {m_actions->saveImage, m_actions->saveView, m_actions->copy})
        action->setEnabled(bool(rendered.data));
}

void CImageDock::onProbeChanged()
{
    m_status->setProbe(m_view->rendered(), m_view->probe());
}

void CImageDock::setRangeMode(int mode)
{
    m_range->setVisible(ERangeMode(mode) == ERangeMode::Manual);
    // What is seen does not change before somebody changes a value.
    if (ERangeMode(mode) == ERangeMode::Manual && m_view->rendered().data)
        m_range->setRange(m_view->rendered().range);
    m_view->setRange(ERangeMode(mode), m_range->range());
}

void CImageDock::copyView()
{
    const QImage seen = m_view->seen();
    if (seen.isNull())
        return;
    QGuiApplication::clipboard()->setImage(seen);
    m_status->setMessage(tr("Copied %1 × %2 pixels").arg(seen.width()).arg(seen.height()));
}

void CImageDock::record(int kind)
{
    // A video plays as fast as the images come.
    m_recorder->start(CRecorder::EKind(kind), m_folders.recordings(), std::max(1.0, m_status->deliveredRate()));
}

void CImageDock::askForRecordFolder()
{
    auto* const dialog = new QFileDialog(this, tr("Recording folder"), m_folders.recordings());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, &m_folders, &CImageFolders::setRecordings);
    dialog->open();
}

void CImageDock::onRecorderChanged()
{
    const auto state = m_recorder->state();
    const bool isBusy = state == CRecorder::EState::Recording || state == CRecorder::EState::Finishing;
    m_actions->stop->setVisible(isBusy);
    m_actions->stop->setEnabled(state == CRecorder::EState::Recording);
    m_actions->recordMenu()->setVisible(!isBusy);
    for (QAction* const action : m_actions->records)
        action->setEnabled(!isBusy);
}

void CImageDock::retranslate()
{
    if (m_model)
        setWindowTitle(m_model->caption());
    setAccessibleName(windowTitle());
    widget()->findChild<QToolBar*>()->setAccessibleName(tr("Image tools"));
    m_actions->retranslate();
}

void CImageDock::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDockWidget::changeEvent(event);
}

} // namespace Host
