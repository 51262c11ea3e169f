// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraList.h"

#include "host/camera/SCameraOptions.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"

#include <QThreadPool>

#include <algorithm>
#include <utility>

namespace Host {

namespace {

// Not that of the views: who waits for an answer of the network would keep their pictures waiting.
Q_GLOBAL_STATIC(QThreadPool, searchPool)

} // namespace

CCameraList::CCameraList(CCameraSessions& sessions, QObject* parent, std::function<std::vector<SCameraEntry>()> find,
                         std::chrono::milliseconds interval)
    : QAbstractListModel(parent)
    , m_sessions(sessions)
    , m_find(std::move(find))
{
    m_searcher.setThreadPool(searchPool());
    m_timer.setInterval(interval);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CCameraList::search);
    connect(&sessions, &CCameraSessions::added, this, &CCameraList::updateRows);
    connect(&sessions, &CCameraSessions::removed, this, &CCameraList::updateRows);
    connect(&sessions, &CCameraSessions::changed, this, &CCameraList::onSessionChanged);
    updateRows();
}

void CCameraList::setActive(bool isActive)
{
    if (!isActive)
        m_timer.stop();
    else if (!m_timer.isActive() && !m_isSearching)
        search();
}

void CCameraList::search()
{
    m_isSearching = true;
    m_timer.start(); // what stops it while the search is under way stops the next one
    m_searcher.run([this, find = m_find] { return [this, found = find()] { onFound(found); }; });
}

void CCameraList::onFound(const std::vector<SCameraEntry>& found)
{
    m_isSearching = false;
    if (m_timer.isActive())
        m_timer.start();
    const auto isSame = [](const SCameraEntry& one, const SCameraEntry& other) { return one.id == other.id; };
    if (std::equal(found.begin(), found.end(), m_found.begin(), m_found.end(), isSame))
        return;
    m_found = found;
    updateRows();
}

std::vector<CCameraList::SRow> CCameraList::wantedRows() const
{
    std::vector<SRow> rows;
    // Rows are known by their names. A camera may be found twice, and a folder be called like one.
    const auto add = [&rows](const SRow& row) {
        if (std::none_of(rows.begin(), rows.end(), [&row](const SRow& each) { return each.name == row.name; }))
            rows.push_back(row);
    };
    for (CCameraSession* const session : m_sessions.all())
        add({session->name(), {}, session});
    for (const SCameraEntry& camera : m_found) {
        if (!SCameraOptions::isFake(camera.id))
            add({camera.id, QStringLiteral("%1 %2").arg(camera.maker, camera.model), nullptr});
    }
    add({m_sessions.freeSimulatedCamera(), {}, nullptr});
    return rows;
}

// Row by row, so that whoever shows them keeps what is chosen and where it has scrolled to.
void CCameraList::updateRows()
{
    const std::vector<SRow> wanted = wantedRows();
    const auto isWanted = [&wanted](const SRow& row) {
        return std::any_of(wanted.begin(), wanted.end(), [&row](const SRow& each) { return each.name == row.name; });
    };
    for (int row = int(m_rows.size()) - 1; row >= 0; --row) {
        if (isWanted(m_rows[std::size_t(row)]))
            continue;
        beginRemoveRows({}, row, row);
        m_rows.erase(m_rows.begin() + row);
        endRemoveRows();
    }
    for (int row = 0; row < int(wanted.size()); ++row)
        putRow(wanted[std::size_t(row)], row);
}

// Those above it are in their places, and have other names.
void CCameraList::putRow(const SRow& wanted, int row)
{
    const int from = indexOf(wanted.name).row();
    if (from < 0) {
        beginInsertRows({}, row, row);
        m_rows.insert(m_rows.begin() + row, wanted);
        endInsertRows();
        return;
    }
    if (from != row) {
        beginMoveRows({}, from, from, {}, row);
        std::rotate(m_rows.begin() + row, m_rows.begin() + from, m_rows.begin() + from + 1);
        endMoveRows();
    }
    SRow& present = m_rows[std::size_t(row)];
    const bool isSame = present.session == wanted.session && present.title == wanted.title;
    present = wanted;
    if (!isSame)
        Q_EMIT dataChanged(index(row), index(row));
}

void CCameraList::onSessionChanged(const CCameraSession* session)
{
    const QModelIndex changed = indexOf(session->name());
    if (changed.isValid())
        Q_EMIT dataChanged(changed, changed);
}

QModelIndex CCameraList::indexOf(const QString& name) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&name](const SRow& row) { return row.name == name; });
    return found == m_rows.end() ? QModelIndex() : index(int(found - m_rows.begin()));
}

int CCameraList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant CCameraList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SRow& row = m_rows[std::size_t(index.row())];
    switch (role) {
    case NameRole:
    case Qt::DisplayRole:
        return row.name;
    case TitleRole:
        if (row.session && !row.session->description().isEmpty()) {
            // The name stands above it.
            return row.session->description().remove(QStringLiteral(" (%1)").arg(row.name));
        }
        return SCameraOptions::isFake(row.name) ? tr("Simulated camera") : row.title;
    case StateRole:
        return int(stateOf(row));
    case StateTextRole:
        return stateText(row);
    case ErrorRole:
    case Qt::ToolTipRole:
        return row.session ? row.session->error() : QString();
    case Qt::DecorationRole:
        return row.session ? row.session->preview() : QImage();
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1, %2").arg(row.name, stateText(row));
    default:
        return {};
    }
}

CCameraList::EState CCameraList::stateOf(const SRow& row) const
{
    using ESession = CCameraSession::EState;
    if (!row.session)
        return EState::Free;
    switch (row.session->state()) {
    case ESession::Opening:
        return EState::Opening;
    case ESession::Ready:
        return EState::Connected;
    case ESession::Streaming:
        return EState::Streaming;
    case ESession::Away:
        return EState::Gone;
    case ESession::InUse:
        return EState::InUse;
    case ESession::Failed:
        break;
    }
    return EState::Failed;
}

QString CCameraList::stateText(EState state)
{
    switch (state) {
    case EState::Free:
        return tr("Free");
    case EState::Opening:
        return tr("Connecting");
    case EState::Connected:
        return tr("Connected");
    case EState::Streaming:
        return tr("Streaming");
    case EState::Gone:
        return tr("Gone, waiting for it");
    case EState::InUse:
        return tr("In use by another program");
    case EState::Failed:
        break;
    }
    return tr("Cannot be opened");
}

QString CCameraList::stateText(const SRow& row) const
{
    const EState state = stateOf(row);
    if (state != EState::Streaming)
        return stateText(state);
    return tr("%1 frames/s · %2 frames").arg(row.session->framesPerSecond(), 0, 'f', 1).arg(row.session->frames());
}

void CCameraList::retranslate()
{
    Q_EMIT dataChanged(index(0), index(int(m_rows.size()) - 1));
}

} // namespace Host
