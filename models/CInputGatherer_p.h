// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QtGlobal>

#include <algorithm>
#include <deque>
#include <utility>
#include <vector>

namespace Plugin::Halvex {

/**
 * What has come to the inputs of a model and waits to become a frame.
 *
 * Data that is let go is given back, so that it is released where nobody is in the middle of something: its destructor
 * is foreign code.
 */
class CInputGatherer
{
public:
    using Inputs = std::vector<CNodeDataPtr>;

    explicit CInputGatherer(std::size_t ports)
        : m_newest(ports)
        , m_numbered(ports)
    {
    }

    std::size_t ports() const { return m_newest.size(); }

    /// The newest of each port: \a frame is it if all ports have had some. What \a data replaces comes back in it.
    bool addNewest(std::size_t port, CNodeDataPtr& data, Inputs& frame)
    {
        m_newest[port].swap(data);
        if (std::any_of(m_newest.begin(), m_newest.end(), [](const CNodeDataPtr& input) { return input.isNull(); }))
            return false;
        frame.assign(m_newest.begin(), m_newest.end());
        return true;
    }

    /// Data of one number at each port: \a frame is it if all ports have it. What is let go goes into \a passedOver.
    bool addNumbered(std::size_t port, qint64 number, CNodeDataPtr data, Inputs& frame, Inputs& passedOver)
    {
        Waiting& waiting = m_numbered[port];
        waiting.emplace_back(number, std::move(data));
        if (waiting.size() > mostUnmatched)
            letGo(waiting, 1, passedOver);

        const auto isNumber = [number](const Numbered& input) { return input.first == number; };
        for (const Waiting& inputs : m_numbered) {
            if (std::none_of(inputs.begin(), inputs.end(), isNumber))
                return false;
        }
        // Survives removed statement: it is empty, unless memory ran out.
        frame.clear();
        for (Waiting& inputs : m_numbered) {
            const auto found = std::find_if(inputs.begin(), inputs.end(), isNumber);
            frame.push_back(std::move(found->second));
            letGo(inputs, std::size_t(found - inputs.begin()) + 1, passedOver);
        }
        return true;
    }

    /// Forgets everything, into \a passedOver.
    void clear(Inputs& passedOver)
    {
        for (CNodeDataPtr& input : m_newest)
            passedOver.push_back(std::exchange(input, {}));
        for (Waiting& inputs : m_numbered)
            letGo(inputs, inputs.size(), passedOver);
    }

private:
    using Numbered = std::pair<qint64, CNodeDataPtr>;
    using Waiting = std::deque<Numbered>;
    static constexpr std::size_t mostUnmatched = 16; // at each port, or a port that gets nothing would fill the memory

    static void letGo(Waiting& inputs, std::size_t count, Inputs& passedOver)
    {
        for (; count > 0; --count) {
            passedOver.push_back(std::move(inputs.front().second));
            inputs.pop_front();
        }
    }

    Inputs m_newest;
    std::vector<Waiting> m_numbered;
};

} // namespace Plugin::Halvex
