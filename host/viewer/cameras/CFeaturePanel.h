// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace Host {

class CCameraSession;
class CFeatureEditor;

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

    /// Null if there is none of that name.
    CFeatureEditor* editor(const QString& feature) const { return m_editors.value(feature); }

    QTreeWidget& tree() const { return *m_tree; }

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFeatures(const std::vector<SFeature>& features);
    bool isShown(const std::vector<SFeature>& features) const;
    void build(const std::vector<SFeature>& features);
    QTreeWidgetItem* categoryItem(const QString& category);
    void placeColumns();
    void filter();
    void showState();
    void retranslate();

    QPointer<CCameraSession> m_session;
    QLineEdit* const m_search;
    QTreeWidget* const m_tree;
    QLabel* const m_message;
    QAction* m_refresh = nullptr;
    QHash<QString, CFeatureEditor*> m_editors; // the tree's
    std::vector<SFeature> m_features;
};

} // namespace Host
