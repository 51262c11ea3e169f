// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/CImageSaver.h"

#include <QDockWidget>
#include <QList>
#include <QPointer>

class QAction;
class QVBoxLayout;

namespace Host {

class CHistogramView;
class CImageActions;
class CImageFolders;
class CImageStatus;
class CImageView;
class CRangeBar;
class CRecordBar;
class CRecorder;
class CViewModel;

/**
 * The dock of a view in a graph: its image, a tool bar, a histogram, the line about a recording, and what there is to
 * tell of the image below.
 *
 * \code
 * auto* const dock = new CImageDock(*model, folders, window); // for each node whose model is a CViewModel
 * window->addDockWidget(Qt::RightDockWidgetArea, dock);
 * \endcode
 *
 * Its title is the model's caption. When the model goes, the dock stays with an image view that is empty; whoever made
 * it deletes it then. It is no owner of the model. A recording and images that are still being written when the dock
 * goes are completed; they belong to the dock's parent.
 *
 * Threads: the window's.
 */
class CImageDock : public QDockWidget
{
    Q_OBJECT

public:
    /// \a folders outlives what a person does in the dock.
    explicit CImageDock(CViewModel& model, CImageFolders& folders, QWidget* parent = nullptr);
    ~CImageDock() override;

    /// All that can be done with the image. Shortcuts work while the focus is in the dock.
    QList<QAction*> imageActions() const;

    CImageView& view() const { return *m_view; }
    CRecorder& recorder() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    QWidget* makeToolBar();
    void addParts(QVBoxLayout& layout);
    void connectModel(CViewModel& model) const;
    void connectView();
    void connectLookActions();
    void connectFileActions();

    void onImageChanged();
    void onRendered();
    void onProbeChanged();
    void onRecorderChanged();
    void setRangeMode(int mode);
    void copyView();
    void record(int kind);
    void askForRecordFolder();

    const QPointer<CViewModel> m_model;
    CImageFolders& m_folders;
    CImageActions* m_actions;
    CImageView* m_view;
    CRangeBar* m_range;
    CHistogramView* m_histogram;
    CImageStatus* m_status;
    const QPointer<CRecorder> m_recorder; // no part of the dock: it completes its files after it
    CRecordBar* m_recordBar;
    const QPointer<CImageSaver> m_saver; // nor is this
};

} // namespace Host
