// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "ImageFilters.h"

#include <condition_variable>
#include <mutex>
#include <vector>

#include <gst/gst.h>

/// The cameras and their filters in GStreamer: a queue before each filter, which brings the thread that the filter
/// runs in. Filters are bare pads around our functions: no caps, no negotiation, and no pixels are copied.
class CGStreamerFilters
{
public:
    CGStreamerFilters();
    ~CGStreamerFilters();
    Q_DISABLE_COPY(CGStreamerFilters)

    /// At most filterRunEach: the thread that sends must not wait at a queue.
    void run(const Plugin::Halvex::CNodeDataPtr& image, int framesEach);

private:
    GstPad* makeQueue(GstPad* from);
    GstPad* makeFilter(GstPad* from, GstPadChainFunction filter);
    void makeSink(GstPad* from);
    GstPad* keep(GstPad* pad);

    template <ImageFilter filter>
    static GstFlowReturn onImage(GstPad* sink, GstObject* parent, GstBuffer* buffer);
    static GstFlowReturn onResult(GstPad* sink, GstObject* parent, GstBuffer* buffer);

    std::vector<GstElement*> m_queues;
    std::vector<GstPad*> m_pads;    // all but those of the queues
    std::vector<GstPad*> m_cameras; // of these
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    int m_received = 0;
};
