// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SFault.h"

#include <QCoreApplication>
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
    {"unreadable", QT_TRANSLATE_NOOP("Host::SFault", "A document can be read.")},
    {"encoding", QT_TRANSLATE_NOOP("Host::SFault", "A document is UTF-8.")},
    {"syntax", QT_TRANSLATE_NOOP("Host::SFault", "A document is JSON.")},
    {"wrong-type", QT_TRANSLATE_NOOP("Host::SFault", "A value has the JSON type that belongs there.")},
    {"wrong-value", QT_TRANSLATE_NOOP("Host::SFault", "A value is one of those that are allowed.")},
    {"unknown-key", QT_TRANSLATE_NOOP("Host::SFault", "Keys are known: one that nobody reads does nothing.")},
    {"double-key", QT_TRANSLATE_NOOP("Host::SFault", "A key stands only once in an object.")},
    {"missing-key", QT_TRANSLATE_NOOP("Host::SFault", "What is needed is there.")},
    {"unknown-model", QT_TRANSLATE_NOOP("Host::SFault", "A model is registered.")},
    {"unusable-model", QT_TRANSLATE_NOOP("Host::SFault", "A model can be made from the document.")},
    {"setting", QT_TRANSLATE_NOOP("Host::SFault", "A model has the setting and takes its value.")},
    {"unknown-name", QT_TRANSLATE_NOOP("Host::SFault", "A label or an id is that of an element or a node.")},
    {"double-name", QT_TRANSLATE_NOOP("Host::SFault", "Labels and ids are different.")},
    {"port", QT_TRANSLATE_NOOP("Host::SFault", "A connection joins ports that exist.")},
    {"data-type", QT_TRANSLATE_NOOP("Host::SFault", "The types of connected ports agree, or are converted.")},
    {"source", QT_TRANSLATE_NOOP("Host::SFault", "A source is a camera or an element.")},
    {"camera", QT_TRANSLATE_NOOP("Host::SFault", "Something is wired to each camera.")},
    {"unreached", QT_TRANSLATE_NOOP("Host::SFault", "The data of a source reaches each node.")},
    {"loop", QT_TRANSLATE_NOOP("Host::SFault", "Connections lead in a circle only through a decoupler.")},
    {"double-connection", QT_TRANSLATE_NOOP("Host::SFault", "Two ports are connected only once.")},
    {"sink", QT_TRANSLATE_NOOP("Host::SFault", "The name of a sink makes a folder of its own.")},
};
static_assert(std::size(rules) == std::size_t(faultRules), "each rule has its texts");

} // namespace

QString faultRuleName(EFaultRule rule)
{
    return QLatin1String(rules[std::size_t(rule)].name);
}

QString faultRuleText(EFaultRule rule)
{
    return QCoreApplication::translate("Host::SFault", rules[std::size_t(rule)].text);
}

} // namespace Host
