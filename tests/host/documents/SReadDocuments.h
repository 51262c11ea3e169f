// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SHostService.h"
#include "host/check/CDocumentCheck.h"
#include "host/check/CModelCatalogue.h"
#include "host/models/CBlurModel.h"

#include <QByteArray>

/// Two images in, two out, with a name for one of its ports.
class CSplitModel : public Host::CBlurModel
{
public:
    QString name() override { return QStringLiteral("Split"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType) const override { return 2; }
    QString portCaption(Plugin::Halvex::ENodePortType, Plugin::Halvex::NodePortIndex port) const override
    {
        return port == 0 ? QStringLiteral("left") : QString();
    }
};

/// Reads documents, written with ' for ", with the host's models.
struct SReadDocuments
{
    SReadDocuments() { host.nodes.registry()->registerModel<CSplitModel>(QStringLiteral("Tests")); }

    Host::SDocumentGraph graphOf(QByteArray text)
    {
        Host::SDocumentGraph graph;
        Host::CDocumentCheck(host.nodes, host.models).read(text.replace('\'', '"'), &graph);
        return graph;
    }

    SHostService host;
};
