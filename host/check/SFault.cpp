// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SFault.h"

#include <QLatin1String>

#include <cstddef>
#include <iterator>

namespace Host {

namespace {

struct SRule
{
    const char* name;
    const char* text;
};

// By the numbers of EFaultRule.
constexpr SRule rules[] = {
    {"unreadable", "A document can be read."},
    {"encoding", "A document is UTF-8."},
    {"syntax", "A document is JSON."},
    {"wrong-type", "A value has the JSON type that belongs there."},
    {"wrong-value", "A value is one of those that are allowed."},
    {"unknown-key", "Keys are known: one that nobody reads does nothing."},
    {"double-key", "A key stands only once in an object."},
    {"missing-key", "What is needed is there."},
    {"unknown-model", "A model is registered."},
    {"unusable-model", "A model can be made from the document."},
    {"setting", "A model has the setting and takes its value."},
    {"unknown-name", "A label or an id is that of an element or a node."},
    {"double-name", "Labels and ids are different."},
    {"port", "A connection joins ports that exist."},
    {"data-type", "The types of connected ports agree, or are converted."},
    {"source", "A source is a camera or an element."},
    {"camera", "Something is wired to each camera."},
    {"unreached", "The data of a source reaches each node."},
    {"loop", "Connections lead in a circle only through a decoupler."},
    {"double-connection", "Two ports are connected only once."},
    {"sink", "The name of a sink makes a folder of its own."},
};
static_assert(std::size(rules) == std::size_t(faultRules), "each rule has its texts");

} // namespace

QString faultRuleName(EFaultRule rule)
{
    return QLatin1String(rules[std::size_t(rule)].name);
}

QString faultRuleText(EFaultRule rule)
{
    return QLatin1String(rules[std::size_t(rule)].text);
}

} // namespace Host
