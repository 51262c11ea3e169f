// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "peers/CGStreamerFilters.h"

#include <QtGlobal>

namespace {

/// A buffer around the pixels of \a image, which it keeps.
GstBuffer* wrap(const cv::Mat& image)
{
    const gsize size = image.total() * image.elemSize();
    return gst_buffer_new_wrapped_full(GST_MEMORY_FLAG_READONLY, image.data, size, 0, size, new cv::Mat(image),
                                       [](gpointer kept) { delete static_cast<cv::Mat*>(kept); });
}

/// What must precede the buffers of a stream.
void startStream(GstPad* source)
{
    GstSegment segment;
    gst_segment_init(&segment, GST_FORMAT_TIME);
    gst_pad_push_event(source, gst_event_new_stream_start("camera"));
    gst_pad_push_event(source, gst_event_new_segment(&segment));
}

GstPad* makeSinkPad(GstPadChainFunction onBuffer)
{
    GstPad* const sink = gst_pad_new(nullptr, GST_PAD_SINK);
    gst_pad_set_chain_function(sink, onBuffer);
    gst_pad_set_event_function(sink, [](GstPad*, GstObject*, GstEvent* event) -> gboolean {
        gst_event_unref(event);
        return TRUE;
    });
    gst_pad_set_active(sink, TRUE);
    return sink;
}

GstPad* makeSourcePad()
{
    GstPad* const source = gst_pad_new(nullptr, GST_PAD_SRC);
    gst_pad_set_active(source, TRUE);
    return source;
}

} // namespace

CGStreamerFilters::CGStreamerFilters()
{
    gst_init(nullptr, nullptr);
    for (int camera = 0; camera < filterCameras; ++camera) {
        GstPad* const source = keep(makeSourcePad());
        m_cameras.push_back(source);
        GstPad* const blur = makeFilter(makeQueue(source), &onImage<blurred>);
        GstPad* const edges = makeFilter(makeQueue(blur), &onImage<edgesOf>);
        makeSink(edges);
        startStream(source);
    }
}

CGStreamerFilters::~CGStreamerFilters()
{
    for (GstElement* const queue : m_queues)
        gst_element_set_state(queue, GST_STATE_NULL); // ends its thread
    for (GstPad* const pad : m_pads)
        gst_object_unref(pad);
    for (GstElement* const queue : m_queues)
        gst_object_unref(queue);
}

void CGStreamerFilters::run(const Plugin::Halvex::CNodeDataPtr& image, int framesEach)
{
    Q_ASSERT(framesEach <= filterRunEach);
    m_received = 0;
    for (int frame = 0; frame < framesEach; ++frame) {
        for (GstPad* const camera : m_cameras)
            gst_pad_push(camera, wrap(imageIn(image)));
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_arrived.wait(lock, [&] { return m_received == filterCameras * framesEach; });
}

/// Returns the source pad of the queue.
GstPad* CGStreamerFilters::makeQueue(GstPad* from)
{
    GstElement* const queue = gst_element_factory_make("queue", nullptr);
    if (queue == nullptr)
        qFatal("GStreamer has no queue: its core elements are missing");
    gst_object_ref_sink(queue);
    g_object_set(queue, "max-size-buffers", guint(filterRunEach), "max-size-bytes", 0U, "max-size-time", guint64{0},
                 nullptr);
    m_queues.push_back(queue);

    GstPad* const sink = gst_element_get_static_pad(queue, "sink");
    gst_pad_link(from, sink);
    gst_object_unref(sink);
    gst_element_set_state(queue, GST_STATE_PLAYING);
    return keep(gst_element_get_static_pad(queue, "src"));
}

/// Returns the source pad of the filter.
GstPad* CGStreamerFilters::makeFilter(GstPad* from, GstPadChainFunction filter)
{
    GstPad* const sink = keep(makeSinkPad(filter));
    GstPad* const source = keep(makeSourcePad());
    gst_pad_set_element_private(sink, source);
    gst_pad_link(from, sink);
    startStream(source);
    return source;
}

void CGStreamerFilters::makeSink(GstPad* from)
{
    GstPad* const sink = keep(makeSinkPad(&onResult));
    gst_pad_set_element_private(sink, this);
    gst_pad_link(from, sink);
}

GstPad* CGStreamerFilters::keep(GstPad* pad)
{
    m_pads.push_back(pad);
    return pad;
}

template <ImageFilter filter>
GstFlowReturn CGStreamerFilters::onImage(GstPad* sink, GstObject*, GstBuffer* buffer)
{
    GstMapInfo pixels;
    gst_buffer_map(buffer, &pixels, GST_MAP_READ);
    const cv::Mat result = filter(cv::Mat(filterRows, filterColumns, CV_8UC1, pixels.data));
    gst_buffer_unmap(buffer, &pixels);
    gst_buffer_unref(buffer);
    return gst_pad_push(static_cast<GstPad*>(gst_pad_get_element_private(sink)), wrap(result));
}

GstFlowReturn CGStreamerFilters::onResult(GstPad* sink, GstObject*, GstBuffer* buffer)
{
    gst_buffer_unref(buffer);
    auto* const filters = static_cast<CGStreamerFilters*>(gst_pad_get_element_private(sink));
    const std::lock_guard<std::mutex> lock(filters->m_mutex);
    ++filters->m_received;
    filters->m_arrived.notify_one();
    return GST_FLOW_OK;
}
