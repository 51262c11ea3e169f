// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "ImageFilters.h"

#include <tbb/concurrent_queue.h>
#include <tbb/flow_graph.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>

#include <list>
#include <memory>
#include <vector>

/// The cameras and their filters in oneTBB's flow graph: serial nodes, which keep the order.
class CTbbFilters
{
public:
    /// What becomes of a result, in any thread.
    using TakeResult = void (*)(CTbbFilters& filters, const cv::Mat& result);

    explicit CTbbFilters(TakeResult takeResult = [](CTbbFilters&, const cv::Mat&) {})
    {
        for (int camera = 0; camera < filterCameras; ++camera) {
            CFilter& blur = m_filters.emplace_back(m_graph, tbb::flow::serial, &blurred);
            CFilter& edges = m_filters.emplace_back(m_graph, tbb::flow::serial, &edgesOf);
            CSink& sink = m_sinks.emplace_back(
                m_graph, tbb::flow::serial, [this, takeResult](const cv::Mat& result) { takeResult(*this, result); });
            tbb::flow::make_edge(blur, edges);
            tbb::flow::make_edge(edges, sink);
            m_cameras.push_back(&blur);
        }
    }

    /// The thread that waits takes part in the work, and does nothing else meanwhile.
    void run(const Plugin::Halvex::CNodeDataPtr& image, int framesEach)
    {
        send(image, framesEach);
        wait();
    }

    /// Until nothing runs any more; what destroys the nodes calls it first.
    void wait() { m_graph.wait_for_all(); }

    void send(const Plugin::Halvex::CNodeDataPtr& image, int framesEach)
    {
        for (int frame = 0; frame < framesEach; ++frame) {
            for (CFilter* const camera : m_cameras)
                camera->try_put(imageIn(image));
        }
    }

private:
    using CFilter = tbb::flow::function_node<cv::Mat, cv::Mat>;
    using CSink = tbb::flow::function_node<cv::Mat>;

    tbb::flow::graph m_graph;
    std::list<CFilter> m_filters;
    std::list<CSink> m_sinks;
    std::vector<CFilter*> m_cameras;
};

/// The same with a thread for each camera, while the thread that has sent the frames takes each result as it comes, as
/// one with a window does.
class CTbbFiltersBeside
{
public:
    CTbbFiltersBeside()
    {
        m_arena.execute([this] { m_filters = std::make_unique<CResults>(); });
    }
    ~CTbbFiltersBeside()
    {
        m_arena.execute([this] {
            m_filters->wait();
            m_filters.reset();
        });
    }
    Q_DISABLE_COPY(CTbbFiltersBeside)

    void run(const Plugin::Halvex::CNodeDataPtr& image, int framesEach)
    {
        m_filters->send(image, framesEach);
        cv::Mat result;
        for (int i = 0; i < filterCameras * framesEach; ++i)
            m_filters->results.pop(result);
    }

private:
    struct CResults : public CTbbFilters
    {
        CResults()
            : CTbbFilters([](CTbbFilters& filters, const cv::Mat& result) {
                static_cast<CResults&>(filters).results.push(result);
            })
        {
        }
        tbb::concurrent_bounded_queue<cv::Mat> results;
    };

    // A thread for each camera, and no place for the one that sends.
    tbb::global_control m_threads{tbb::global_control::max_allowed_parallelism, filterCameras + 1};
    tbb::task_arena m_arena{filterCameras, 0};
    std::unique_ptr<CResults> m_filters;
};
