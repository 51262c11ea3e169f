// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageActions.h"

#include "host/viewer/base/Actions.h"

#include <QActionGroup>
#include <QKeySequence>

namespace Host {

namespace {

template <std::size_t count>
void makeExclusive(const std::array<QAction*, count>& actions, QObject* parent)
{
    auto* const group = new QActionGroup(parent);
    for (QAction* const action : actions)
        group->addAction(action);
    actions.front()->setChecked(true);
}

template <std::size_t count>
void addAll(QMenu& menu, const std::array<QAction*, count>& actions)
{
    for (QAction* const action : actions)
        menu.addAction(action);
}

// The tool tip tells the key, too.
void setTexts(QAction& action, const QString& text, const QString& help)
{
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    action.setText(text);
    action.setToolTip(key.isEmpty() ? help : QStringLiteral("%1 (%2)").arg(help, key));
}

} // namespace

CImageActions::CImageActions(QObject* parent)
    : QObject(parent)
    , fit(make("image.fit", Qt::Key_0))
    , oneToOne(make("image.oneToOne", Qt::Key_1))
    , zoomIn(make("image.zoomIn", Qt::Key_Plus))
    , zoomOut(make("image.zoomOut", Qt::Key_Minus))
    , rectangle(makeCheckable("image.rectangle", Qt::Key_R))
    , palettes{makeCheckable("image.palette.plain"), makeCheckable("image.palette.heat"),
               makeCheckable("image.palette.spectrum"), makeCheckable("image.palette.limits")}
    , ranges{makeCheckable("image.range.full"), makeCheckable("image.range.automatic", Qt::Key_A),
             makeCheckable("image.range.manual", Qt::Key_M)}
    , histogram(makeCheckable("image.histogram", Qt::Key_H))
    , logarithmic(makeCheckable("image.logarithmic", Qt::Key_L))
    , saveImage(make("image.saveImage", Qt::Key_S))
    , saveView(make("image.saveView", QKeySequence(QStringLiteral("Shift+S"))))
    , copy(make("image.copy", QKeySequence::Copy))
    , records{make("image.record.png"), make("image.record.raw"), make("image.record.video", Qt::Key_V)}
    , recordFolder(make("image.record.folder"))
    , stop(make("image.record.stop", Qt::Key_X))
{
    zoomIn->setShortcuts({Qt::Key_Plus, Qt::Key_Equal}); // the key without Shift on many keyboards
    makeExclusive(palettes, this);
    makeExclusive(ranges, this);
    addAll(*m_colorMenu, palettes);
    addAll(*m_rangeMenu, ranges);
    m_saveMenu->addAction(saveImage);
    m_saveMenu->addAction(saveView);
    addAll(*m_recordMenu, records);
    m_recordMenu->addSeparator();
    m_recordMenu->addAction(recordFolder);
    stop->setVisible(false);
    setIcons();
    retranslate();
}

QAction* CImageActions::make(const char* name, const QKeySequence& key)
{
    QAction* const action = makeAction(this, name, key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    return action;
}

QAction* CImageActions::makeCheckable(const char* name, const QKeySequence& key)
{
    QAction* const action = make(name, key);
    action->setCheckable(true);
    return action;
}

void CImageActions::setIcons()
{
    fit->setIcon(lineIcon(ELineIcon::Fit));
    oneToOne->setIcon(lineIcon(ELineIcon::OneToOne));
    rectangle->setIcon(lineIcon(ELineIcon::Rectangle));
    histogram->setIcon(lineIcon(ELineIcon::Histogram));
    copy->setIcon(lineIcon(ELineIcon::Copy));
    stop->setIcon(lineIcon(ELineIcon::Stop));
    m_colorMenu->setIcon(lineIcon(ELineIcon::Colors));
    m_rangeMenu->setIcon(lineIcon(ELineIcon::Range));
    m_saveMenu->setIcon(lineIcon(ELineIcon::Save));
    m_recordMenu->setIcon(lineIcon(ELineIcon::Record));
}

void CImageActions::retranslate()
{
    setTexts(*fit, tr("Fit"), tr("Show all of the image"));
    setTexts(*oneToOne, tr("1:1"), tr("Show each pixel as one pixel of the screen"));
    setTexts(*zoomIn, tr("Zoom in"), tr("Show the image larger"));
    setTexts(*zoomOut, tr("Zoom out"), tr("Show the image smaller"));
    setTexts(*rectangle, tr("Rectangle"), tr("Draw a rectangle to measure in"));
    setTexts(*palettes[0], tr("Plain"), tr("Show the image as it is"));
    setTexts(*palettes[1], tr("Heat"), tr("Show dark as black and purple, bright as yellow"));
    setTexts(*palettes[2], tr("Spectrum"), tr("Show dark as blue, bright as red"));
    setTexts(*palettes[3], tr("Limits"), tr("Show black as blue and white as red"));
    setTexts(*ranges[0], tr("Full range"), tr("Show all values that the camera has"));
    setTexts(*ranges[1], tr("Automatic"), tr("Show the values that occur, from black to white"));
    setTexts(*ranges[2], tr("Manual"), tr("Choose which values are black and white"));
    setTexts(*histogram, tr("Histogram"), tr("Show how often each value occurs"));
    setTexts(*logarithmic, tr("Logarithmic histogram"), tr("Show rare values of the histogram, too"));
    setTexts(*saveImage, tr("Save image…"), tr("Save the image in the camera's full depth"));
    setTexts(*saveView, tr("Save view…"), tr("Save what is seen"));
    setTexts(*copy, tr("Copy view"), tr("Copy what is seen"));
    setTexts(*records[0], tr("Record PNG files"), tr("Write each image into a PNG file"));
    setTexts(*records[1], tr("Record raw files"), tr("Write the values of each image into a file"));
    setTexts(*records[2], tr("Record video"), tr("Write the images into a video"));
    setTexts(*recordFolder, tr("Recording folder…"), tr("Choose where recordings are written"));
    setTexts(*stop, tr("Stop recording"), tr("Stop recording"));
    setTexts(*m_colorMenu->menuAction(), tr("Colours"), tr("False colours"));
    setTexts(*m_rangeMenu->menuAction(), tr("Black and white"), tr("Which values are black and white"));
    setTexts(*m_saveMenu->menuAction(), tr("Save"), tr("Save the image"));
    setTexts(*recordMenu(), tr("Record"), tr("Record the images"));
}

QList<QAction*> CImageActions::actions() const
{
    QList<QAction*> all{fit, oneToOne, zoomIn, zoomOut, rectangle};
    for (QAction* const action : palettes)
        all << action;
    for (QAction* const action : ranges)
        all << action;
    all << histogram << logarithmic << saveImage << saveView << copy;
    for (QAction* const action : records)
        all << action;
    return all << recordFolder << stop;
}

QList<QAction*> CImageActions::toolBarActions() const
{
    return {fit,
            oneToOne,
            rectangle,
            nullptr,
            m_colorMenu->menuAction(),
            m_rangeMenu->menuAction(),
            histogram,
            nullptr,
            m_saveMenu->menuAction(),
            copy,
            recordMenu(),
            stop};
}

} // namespace Host
