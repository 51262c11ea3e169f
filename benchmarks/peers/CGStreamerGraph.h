// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SShape.h"

#include <Halvex/graph/CNodeData.h>

#include <memory>
#include <vector>

#include <gst/gst.h>

/// A shape of GStreamer pads. Each stage keeps the buffer and pushes it from each of its source pads, if it has any.
class CGStreamerGraph
{
public:
    /// Each node of \a shape has one input.
    explicit CGStreamerGraph(const SShape& shape);
    ~CGStreamerGraph();
    Q_DISABLE_COPY(CGStreamerGraph)

    /// Sends a buffer of its own, the same each time.
    void walk(const Plugin::Halvex::CNodeDataPtr&);

private:
    struct SStage
    {
        GstPad* sink;
        std::vector<GstPad*> sources;
        GstBuffer* last = nullptr;
    };

    static GstFlowReturn onBuffer(GstPad* sink, GstObject* parent, GstBuffer* buffer);
    static void keep(SStage& stage, GstBuffer* buffer);
    static void push(const SStage& stage, GstBuffer* buffer);
    static GstPad* makeSource(SStage& from, const SStage& to);

    std::vector<std::unique_ptr<SStage>> m_stages;
    GstBuffer* m_buffer = nullptr;
    GstPad* m_entry = nullptr;
};
