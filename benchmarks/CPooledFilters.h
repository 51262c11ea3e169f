// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "ImageFilters.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QObject>
#include <QRunnable>
#include <QThreadPool>

#include <array>
#include <deque>
#include <utility>

/// The floor of filters that are workers: each works on one frame after the other in the pool, and each result comes
/// back by a queued call, since the graph's thread alone may hand it on.
class CPooledFilters
{
public:
    CPooledFilters()
    {
        for (SCamera& camera : m_cameras) {
            camera.blur.function = &filtered<blurred>;
            camera.blur.next = &camera.edges;
            camera.edges.function = &filtered<edgesOf>;
        }
    }

    void run(const Plugin::Halvex::CNodeDataPtr& image, int framesEach)
    {
        m_received = 0;
        for (int sent = 0; m_received < filterCameras * framesEach;) {
            if (sent < filterCameras * framesEach && sent - m_received < filterCameras * filterFramesEach)
                put(m_cameras[std::size_t(sent++ % filterCameras)].blur, image);
            else
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

private:
    struct SFilter
    {
        Plugin::Halvex::CNodeDataPtr (*function)(const Plugin::Halvex::CNodeDataPtr&) = nullptr;
        SFilter* next = nullptr;
        std::deque<Plugin::Halvex::CNodeDataPtr> waiting;
        bool isBusy = false;
    };

    struct SCamera
    {
        SFilter blur;
        SFilter edges;
    };

    class CTask : public QRunnable
    {
    public:
        CTask(CPooledFilters& filters, SFilter& filter, Plugin::Halvex::CNodeDataPtr data)
            : m_filters(filters)
            , m_filter(filter)
            , m_data(std::move(data))
        {
        }
        void run() override
        {
            const auto take = [filters = &m_filters, filter = &m_filter, result = m_filter.function(m_data)] {
                filters->take(*filter, result);
            };
            QMetaObject::invokeMethod(&m_filters.m_receiver, take, Qt::QueuedConnection);
        }

    private:
        CPooledFilters& m_filters;
        SFilter& m_filter;
        Plugin::Halvex::CNodeDataPtr m_data;
    };

    void put(SFilter& filter, const Plugin::Halvex::CNodeDataPtr& data)
    {
        filter.waiting.push_back(data);
        if (!filter.isBusy)
            begin(filter);
    }

    void begin(SFilter& filter)
    {
        filter.isBusy = !filter.waiting.empty();
        if (!filter.isBusy)
            return;
        QThreadPool::globalInstance()->start(new CTask(*this, filter, filter.waiting.front()));
        filter.waiting.pop_front();
    }

    void take(SFilter& filter, const Plugin::Halvex::CNodeDataPtr& result)
    {
        begin(filter);
        if (filter.next)
            put(*filter.next, result);
        else
            ++m_received;
    }

    QObject m_receiver;
    int m_received = 0;
    std::array<SCamera, filterCameras> m_cameras;
};
