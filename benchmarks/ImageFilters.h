// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CFrame.h"
#include "Measuring.h"

#include <opencv2/core.hpp>

#include <string>
#include <utility>

// Work that is worth a core: a blur and then edges, behind each of two cameras. OpenCV's own threads are off.

constexpr int filterCameras = 2;
constexpr int filterRows = 1080;
constexpr int filterColumns = 1920;
constexpr int filterFramesEach = 8; // of each camera, all of which may be on their way
constexpr int filterRunEach = 40;   // so that its beginning and its end, when a core idles, are a small part

class CImage : public Plugin::Halvex::CNodeData
{
public:
    explicit CImage(cv::Mat image)
        : m_image(std::move(image))
    {
    }
    Plugin::Halvex::SNodeDataType type() const override { return CFrame().type(); }
    const cv::Mat& image() const { return m_image; }

private:
    cv::Mat m_image;
};

/// Noise, grey.
Plugin::Halvex::CNodeDataPtr makeNoise();

/// The image in the data, which holds one.
const cv::Mat& imageIn(const Plugin::Halvex::CNodeDataPtr& data);

using ImageFilter = cv::Mat (*)(const cv::Mat&);
cv::Mat blurred(const cv::Mat& image); // 15 x 15
cv::Mat edgesOf(const cv::Mat& image);

template <ImageFilter filter>
Plugin::Halvex::CNodeDataPtr filtered(const Plugin::Halvex::CNodeDataPtr& data)
{
    return QSharedPointer<CImage>::create(filter(imageIn(data)));
}

/// The benchmark of the graph whose filters are workers, by its name.
constexpr const char* filtersInWorkers = "filters/workers";

/// Registers what runs so many frames of each camera through the filters of a graph, by the clock. Returns \a name.
template <typename Graph>
std::string addFilters(const std::string& name)
{
    const auto measure = [](benchmark::State& state) {
        cv::setNumThreads(1);
        const Plugin::Halvex::CNodeDataPtr image = makeNoise();
        Graph graph;
        for ([[maybe_unused]] auto iteration : state)
            graph.run(image, filterRunEach);
        setItems(state, filterCameras * filterRunEach);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseRealTime()->Iterations(1);
    return name;
}
