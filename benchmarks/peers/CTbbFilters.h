// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "ImageFilters.h"

#include <tbb/flow_graph.h>

#include <list>
#include <vector>

/// The cameras and their filters in oneTBB's flow graph: serial nodes, which keep the order. The thread that waits for
/// them takes part in the work.
class CTbbFilters
{
public:
    CTbbFilters()
    {
        for (int camera = 0; camera < filterCameras; ++camera) {
            CFilter& blur = m_filters.emplace_back(m_graph, tbb::flow::serial, &blurred);
            CFilter& edges = m_filters.emplace_back(m_graph, tbb::flow::serial, &edgesOf);
            CSink& sink = m_sinks.emplace_back(m_graph, tbb::flow::serial, [](const cv::Mat&) {});
            tbb::flow::make_edge(blur, edges);
            tbb::flow::make_edge(edges, sink);
            m_cameras.push_back(&blur);
        }
    }

    void run(const Plugin::Halvex::CNodeDataPtr& image, int framesEach)
    {
        for (int frame = 0; frame < framesEach; ++frame) {
            for (CFilter* const camera : m_cameras)
                camera->try_put(imageIn(image));
        }
        m_graph.wait_for_all();
    }

private:
    using CFilter = tbb::flow::function_node<cv::Mat, cv::Mat>;
    using CSink = tbb::flow::function_node<cv::Mat>;

    tbb::flow::graph m_graph;
    std::list<CFilter> m_filters;
    std::list<CSink> m_sinks;
    std::vector<CFilter*> m_cameras;
};
