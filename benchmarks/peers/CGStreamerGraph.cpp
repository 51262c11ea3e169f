// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "peers/CGStreamerGraph.h"

CGStreamerGraph::CGStreamerGraph(const SShape& shape)
{
    gst_init(nullptr, nullptr);
    m_buffer = gst_buffer_new();
    for (int node = 0; node < shape.nodes; ++node) {
        auto stage = std::make_unique<SStage>();
        stage->sink = gst_pad_new(nullptr, GST_PAD_SINK);
        gst_pad_set_element_private(stage->sink, stage.get());
        gst_pad_set_chain_function(stage->sink, &CGStreamerGraph::onBuffer);
        gst_pad_set_event_function(stage->sink, [](GstPad*, GstObject*, GstEvent* event) -> gboolean {
            gst_event_unref(event);
            return TRUE;
        });
        gst_pad_set_active(stage->sink, TRUE);
        m_stages.push_back(std::move(stage));
    }

    SStage entry{nullptr, {}};
    m_entry = makeSource(entry, *m_stages.front());
    for (const SShape::SEdge& edge : shape.edges)
        makeSource(*m_stages[std::size_t(edge.from)], *m_stages[std::size_t(edge.to)]);
}

CGStreamerGraph::~CGStreamerGraph()
{
    gst_object_unref(m_entry);
    for (const auto& stage : m_stages) {
        for (GstPad* const source : stage->sources)
            gst_object_unref(source);
        gst_object_unref(stage->sink);
        gst_buffer_replace(&stage->last, nullptr);
    }
    gst_buffer_unref(m_buffer);
}

void CGStreamerGraph::walk(const Plugin::Halvex::CNodeDataPtr&)
{
    gst_pad_push(m_entry, gst_buffer_ref(m_buffer));
}

GstPad* CGStreamerGraph::makeSource(SStage& from, const SStage& to)
{
    GstPad* const source = gst_pad_new(nullptr, GST_PAD_SRC);
    gst_pad_set_active(source, TRUE);
    gst_pad_link(source, to.sink);

    // Without these two there is no stream that a buffer could belong to.
    GstSegment segment;
    gst_segment_init(&segment, GST_FORMAT_TIME);
    gst_pad_push_event(source, gst_event_new_stream_start("benchmark"));
    gst_pad_push_event(source, gst_event_new_segment(&segment));
    from.sources.push_back(source);
    return source;
}

GstFlowReturn CGStreamerGraph::onBuffer(GstPad* sink, GstObject*, GstBuffer* buffer)
{
    auto& stage = *static_cast<SStage*>(gst_pad_get_element_private(sink));
    if (stage.sources.empty()) {
        keep(stage, buffer);
        return GST_FLOW_OK;
    }
    keep(stage, gst_buffer_ref(buffer));
    push(stage, buffer);
    return GST_FLOW_OK;
}

void CGStreamerGraph::keep(SStage& stage, GstBuffer* buffer)
{
    if (stage.last != nullptr)
        gst_buffer_unref(stage.last);
    stage.last = buffer;
}

void CGStreamerGraph::push(const SStage& stage, GstBuffer* buffer)
{
    const std::size_t count = stage.sources.size();
    for (std::size_t i = 0; i + 1 < count; ++i)
        gst_pad_push(stage.sources[i], gst_buffer_ref(buffer));
    gst_pad_push(stage.sources[count - 1], buffer);
}
