// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/CGraphCheck.h"

#include <QCoreApplication>
#include <QHash>
#include <QString>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

class CWordFinder;
struct SCheckOptions;

/// Finds what is wrong with the models of a document, and learns their ports: each is made, is given its settings, and
/// goes again.
class CNodeReader
{
    Q_DECLARE_TR_FUNCTIONS(Host::CNodeReader)

public:
    /// All arguments outlive this object.
    CNodeReader(CModelCatalogue& models, CFaultList& faults, CWordFinder& words, const SCheckOptions& options);

    /// Reads \a json, a model's object, into \a node; what is wrong with it is told, and the node then lacks its
    /// model. False when the model is a source, which is not told.
    bool read(const SJsonNode& json, SGraphNode& node);

private:
    QString unknownModelText(const QString& name);
    void readModel(Plugin::Halvex::CNodeDataModel& model, const SJsonNode& json, SGraphNode& node);
    bool isAnyLike(const SJsonNode& settings, const QString& name);
    void checkSink(Plugin::Halvex::CNodeDataModel& model, const SJsonNode& json);

    CModelCatalogue& m_models;
    CFaultList& m_faults;
    CWordFinder& m_words;
    const SCheckOptions& m_options;
    QHash<QString, int> m_sinks; // names of sinks, with where they stand
};

} // namespace Host
