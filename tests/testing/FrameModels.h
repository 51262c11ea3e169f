// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CNumberModel.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <memory>
#include <utility>
#include <vector>

// Models that take frames and give frames, sound ones and wrong ones, for checks that are told nothing of frames.

using FrameInput = void (*)(CNumberModel& model, const Plugin::Halvex::CNodeDataPtr& data, int index);

/// A model of frames whose setInData() is \a input.
inline SMisbehaviour frameModel(FrameInput input)
{
    using namespace Plugin::Halvex;
    SMisbehaviour misbehaviour;
    misbehaviour.dataType = [](const CNumberModel&, ENodePortType, int) { return CVeltraGrabResultData().type(); };
    misbehaviour.setInData = input;
    return misbehaviour;
}

/// The frame in \a data; an empty handle if there is none.
inline Veltra::CGrabResultPtr frameIn(const Plugin::Halvex::CNodeDataPtr& data)
{
    const auto grab = data.dynamicCast<Plugin::Halvex::CVeltraGrabResultData>();
    return grab ? grab->grabResult() : Veltra::CGrabResultPtr();
}

inline void giveFrame(CNumberModel& model, const Veltra::CGrabResultPtr& frame)
{
    using namespace Plugin::Halvex;
    model.output = frame ? CNodeDataPtr(new CVeltraGrabResultData(frame)) : CNodeDataPtr();
    if (frame)
        Q_EMIT model.dataUpdated(0);
    else
        Q_EMIT model.dataInvalidated(0);
}

/// A new frame with the pixels of \a frame turned round.
inline Veltra::CGrabResultPtr negated(const Veltra::CGrabResultPtr& frame)
{
    if (!frame)
        return {};
    const auto pixels = std::make_shared<std::vector<std::byte>>(frame->pixels, frame->pixels + frame->size);
    for (std::byte& pixel : *pixels)
        pixel = ~pixel;
    Veltra::SGrabResult result = *frame;
    result.pixels = pixels->data();
    result.owner = pixels;
    return Veltra::CGrabResultPtr(std::move(result));
}

inline void negate(CNumberModel& model, const Plugin::Halvex::CNodeDataPtr& data, int index)
{
    if (index == 0)
        giveFrame(model, negated(frameIn(data)));
}

inline void invertPixels(const Veltra::SGrabResult& frame)
{
    auto* const pixels = const_cast<std::byte*>(frame.pixels);
    for (std::size_t i = 0; i < frame.size; ++i)
        pixels[i] = ~pixels[i];
}

/// Turns the very pixels round that came in.
inline void negateInPlace(CNumberModel& model, const Plugin::Halvex::CNodeDataPtr& data, int index)
{
    const Veltra::CGrabResultPtr frame = frameIn(data);
    if (frame && index == 0)
        invertPixels(*frame);
    if (index == 0)
        giveFrame(model, frame);
}

/// Changes pixels in colour alone.
inline void negateColourInPlace(CNumberModel& model, const Plugin::Halvex::CNodeDataPtr& data, int index)
{
    const Veltra::CGrabResultPtr frame = frameIn(data);
    if (frame && frame->pixelFormat != QLatin1String("Mono8"))
        negateInPlace(model, data, index);
    else
        negate(model, data, index);
}

/// Turns the pixels of what it gave last round when the next frame comes.
inline void changeLastOutput(CNumberModel& model, const Plugin::Halvex::CNodeDataPtr& data, int index)
{
    if (const Veltra::CGrabResultPtr last = frameIn(model.output))
        invertPixels(*last);
    negate(model, data, index);
}
