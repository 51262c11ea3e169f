// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/CNodeReader.h"
#include "host/check/SCheckOptions.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <vector>

namespace Host {

/// Reads a chain, docs/import-document.md, into a graph, and finds what is wrong with its names. What is not as the
/// schema has it was told before, and is passed over.
class CChainReader
{
    Q_DECLARE_TR_FUNCTIONS(Host::CChainReader)

public:
    /// \a camera: what stands for each camera of the run. All references outlive this object.
    CChainReader(CGraphCheck& graph, CNodeReader& nodes, CFaultList& faults, CWordFinder& words,
                 const SCheckOptions& options, SGraphNode camera);

    void read(const SJsonNode& root);

private:
    struct SUnknownSource
    {
        int element = 0;
        int port = 0;
        const SJsonNode* json = nullptr;
    };

    void addCamera(const QString& name);
    void addElement(const SJsonNode& element);
    void addLabel(const SJsonNode& element, int number);
    void findCameras(const SJsonNode& root);
    void findCamera(const SJsonNode& source);
    QString doubtOfCamera(const QString& name);
    void connectElement(const SJsonNode& element, int number);
    void addSource(const SJsonNode& source, int element, int port, const QStringList& anyCameras);
    QStringList camerasNotIn(const SJsonNode& port) const;
    void addTarget(const SJsonNode& target, int element);
    void checkUnknownSources();

    CGraphCheck& m_graph;
    CNodeReader& m_nodes;
    CFaultList& m_faults;
    CWordFinder& m_words;
    const SCheckOptions& m_options;
    const SGraphNode m_camera;
    QHash<QString, int> m_cameras; // numbers of nodes, by name
    QHash<QString, QString> m_cameraDoubts;
    QHash<QString, int> m_labels;
    QHash<QString, int> m_labelBegins; // where they stand
    QStringList m_labelList;           // in the order of the elements
    std::vector<SUnknownSource> m_unknown;
};

} // namespace Host
