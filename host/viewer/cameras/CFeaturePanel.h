// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace Host {

class CCameraSession;
class CFeatureEditor;
class CFeatureTree;

/**
 * The features of one connected camera, by category, each with its widget; a line to search in them.
 *
 * They are read when the camera is shown, and again after each change: one feature may change the others. What the
 * camera refuses is told below.
 */
class CFeaturePanel : public QWidget
{
    Q_OBJECT

public:
    explicit CFeaturePanel(QWidget* parent = nullptr);

    /// Null for none.
    void setSession(CCameraSession* session);

    QList<QAction*> featureActions() const;

    /// Null if there is none of that name, or if it is not among those that are searched for.
    CFeatureEditor* editor(const QString& feature) const;

    QTreeView& view() const { return *m_view; }

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFeatures(const std::vector<SFeature>& features);
    void silenceEditors();
    void showEditors();
    void showEditor(const QModelIndex& name);
    void placeColumns();
    void search(const QString& text);
    void showState();
    void retranslate();

    QPointer<CCameraSession> m_session;
    CFeatureTree* const m_features;
    QSortFilterProxyModel* const m_found;
    QLineEdit* const m_search;
    QTreeView* const m_view;
    QLabel* const m_message;
    QAction* m_refresh = nullptr;
};

} // namespace Host
