// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/Device.h"
#include "host/viewer/base/CTaskRunner.h"

#include <QAbstractListModel>
#include <QTimer>

#include <chrono>
#include <functional>
#include <vector>

namespace Host {

class CCameraSession;
class CCameraSessions;

/**
 * The cameras that are connected, and behind them those that answer and could be, with a simulated one that is always
 * free.
 *
 * While it is active it asks for cameras every few seconds, in a thread of its own; a list that nobody sees asks for
 * none.
 *
 * Threads: the main thread.
 */
class CCameraList : public QAbstractListModel
{
    Q_OBJECT

public:
    enum class EState
    {
        Free,
        Opening,
        Connected,
        Streaming,
        Gone, ///< It is waited for.
        InUse,
        Failed
    };
    Q_ENUM(EState)

    enum ERole
    {
        NameRole = Qt::UserRole, ///< By which it is opened.
        TitleRole,               ///< Maker and model, or what the files are.
        StateRole,               ///< EState, as int.
        StateTextRole,           ///< For people, with the rate.
        ErrorRole
    };

    /// \a find looks for cameras, in another thread, \a interval after it did so last. It may still do so when this
    /// object is gone: a search takes a second, and only the program's end waits for it. \a sessions outlives this
    /// object.
    explicit CCameraList(CCameraSessions& sessions, QObject* parent = nullptr,
                         std::function<std::vector<SCameraEntry>()> find = &findCameras,
                         std::chrono::milliseconds interval = std::chrono::seconds(4));

    void setActive(bool isActive);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Invalid if there is none.
    QModelIndex indexOf(const QString& name) const;

    /// Texts anew, in another language.
    void retranslate();

    static QString stateText(EState state);

private:
    struct SRow
    {
        QString name;
        QString title;
        CCameraSession* session; // null for one that is free
    };

    void search();
    void onFound(const std::vector<SCameraEntry>& found);
    std::vector<SRow> wantedRows() const;
    void updateRows();
    void putRow(const SRow& wanted, int row);
    void onSessionChanged(const CCameraSession* session);
    EState stateOf(const SRow& row) const;
    QString stateText(const SRow& row) const;

    CCameraSessions& m_sessions;
    const std::function<std::vector<SCameraEntry>()> m_find;
    std::vector<SCameraEntry> m_found;
    std::vector<SRow> m_rows;
    QTimer m_timer{this};
    bool m_isSearching = false;
    CTaskRunner m_searcher{CTaskRunner::EPolicy::NewestWins}; // last: it goes first, and calls nobody then
};

} // namespace Host
