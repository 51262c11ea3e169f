// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/Drawing.h"

#include "host/base/Shown.h"
#include "host/documents/PictureText.h"

#include <gvc.h>

#include <memory>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace Host {

namespace {

// The library takes all texts as if it changed them.
char* attribute(const char* text)
{
    return const_cast<char*>(text);
}

// One for the process, and never freed: what measures texts keeps a font's name that belongs to a context, and would
// compare the next picture's with it after that context has gone.
GVC_t* drawingContext()
{
    static GVC_t* const context = gvContext();
    return context;
}

struct SGraphDeleter
{
    void operator()(Agraph_t* graph) const { agclose(graph); }
};

// A graph that is laid out, until this object goes.
class CLayout
{
public:
    CLayout(GVC_t* context, Agraph_t* graph)
        : m_context(context)
        , m_graph(graph)
        , m_isDone(gvLayout(context, graph, agget(graph, attribute("layout"))) == 0)
    {
    }

    ~CLayout() { gvFreeLayout(m_context, m_graph); }
    Q_DISABLE_COPY(CLayout)

    bool isDone() const { return m_isDone; }

private:
    GVC_t* const m_context;
    Agraph_t* const m_graph;
    const bool m_isDone;
};

const char* formatOf(EDrawing kind)
{
    if (kind == EDrawing::Plain)
        return "plain";
    return kind == EDrawing::Png ? "png" : "svg";
}

QString lastError()
{
    const char* const text = aglasterr();
    const QString line = text ? printable(QString::fromUtf8(text).simplified()) : QString();
    return line.isEmpty() ? QStringLiteral("Graphviz fails") : line;
}

} // namespace

QByteArray draw(const QByteArray& dot, EDrawing kind, QString* error)
{
    if (kind == EDrawing::Dot)
        return dot;
#ifdef __SANITIZE_ADDRESS__
    // Graphviz, and what it takes fonts from, let go of some memory without freeing it.
    const __lsan::ScopedDisabler noLeaks;
#endif
    // It would print what it has to say, also where it only had to make a picture smaller.
    agseterr(AGMAX);
    GVC_t* const context = drawingContext();
    const std::unique_ptr<Agraph_t, SGraphDeleter> graph(agmemread(dot.constData()));
    if (!context || !graph) {
        *error = lastError();
        return {};
    }
    // Sharp, as long as the pixels can be afforded.
    const bool isLarge = agnnodes(graph.get()) > int(mostInLayers);
    if (kind == EDrawing::Png)
        agsafeset(graph.get(), attribute("dpi"), attribute(isLarge ? "60" : "120"), attribute(""));
    const CLayout layout(context, graph.get());
    char* data = nullptr;
    unsigned int size = 0;
    if (!layout.isDone() || gvRenderData(context, graph.get(), formatOf(kind), &data, &size) != 0 || !data) {
        *error = lastError();
        return {};
    }
    const QByteArray bytes(data, int(size));
    gvFreeRenderData(data);
    return bytes;
}

} // namespace Host
