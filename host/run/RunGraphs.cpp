// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunGraphs.h"

#include "host/base/RunFiles.h"
#include "host/plugins/CHostServices.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/run/Output.h"

#include <QDir>

namespace Host {

SRunGraphs buildRunGraphs(const SRunOptions& options, const CHostServices& services, QString* error)
{
    QStringList names;
    const std::vector<SourceOptions> sources = options.sources();
    for (const SourceOptions& source : sources)
        names << nameOf(source);

    SRunGraphs run;
    CGraphBuilder builder(services.nodes(), services.models());
    if (!options.load.isEmpty()) {
        run.graphs.push_back(builder.load(options.load, names.first(), error));
        return run;
    }
    const std::vector<SChain> chains = readChains(options.chains, names, error);
    if (error->isEmpty())
        run.graphs = builder.import(chains, names, error);
    for (const SChain& chain : chains)
        run.chains.push_back(chain.source);
    return run;
}

QStringList chainFiles(std::size_t count)
{
    QStringList files;
    for (std::size_t i = 0; i < count; ++i)
        files << RunFiles::chain(i);
    return files;
}

QString writeChains(const std::vector<QByteArray>& chains, const QString& folder)
{
    const QStringList files = chainFiles(chains.size());
    QString error;
    for (std::size_t i = 0; i < chains.size() && error.isEmpty(); ++i) {
        // It may be the very file that was read.
        error = replaceFile(QDir(folder).filePath(files.at(int(i))), chains[i]);
    }
    return error;
}

} // namespace Host
