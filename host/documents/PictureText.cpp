// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/PictureText.h"

#include "host/base/FlowOrder.h"

#include <QTextStream>

#include <algorithm>

namespace Host {

namespace {

const char* const grey = "#64748b";
const char* const red = "#b4332b";
// Beyond, a picture from left to right is too wide to be read on a page.
constexpr int mostSideBySide = 6;
// Beyond, Graphviz is told not to look for the best places for long.
constexpr std::size_t mostWithCare = 100;

QString escaped(const QString& text)
{
    const QString html = text.toHtmlEscaped();
    QString result;
    for (const QChar c : html) {
        // Graphviz reads its labels as XML, which knows no other control characters.
        result += c.unicode() < 0x20 ? QLatin1Char(' ') : c;
    }
    return result;
}

QString colored(const QString& text, const char* color, int size)
{
    return QStringLiteral("<FONT COLOR=\"%1\" POINT-SIZE=\"%2\">%3</FONT>")
        .arg(QLatin1String(color))
        .arg(size)
        .arg(text);
}

QString nodeLabel(const SPictureNode& node)
{
    QStringList lines{QStringLiteral("<B>%1</B>").arg(escaped(node.caption))};
    if (!node.label.isEmpty())
        lines << colored(escaped(node.label), grey, 10);
    if (!node.note.isEmpty())
        lines << colored(escaped(node.note), grey, 10);
    if (!node.warning.isEmpty())
        lines << colored(escaped(node.warning), red, 10);
    if (lines.size() == 1)
        return lines.constFirst();
    // Lines of one text would nearly touch.
    return QStringLiteral(
               "<TABLE BORDER=\"0\" CELLBORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"2\"><TR><TD>%1</TD></TR></TABLE>")
        .arg(lines.join(QStringLiteral("</TD></TR><TR><TD>")));
}

QString nodeStyle(ENodeKind kind)
{
    switch (kind) {
    case ENodeKind::Source:
        return QStringLiteral(" fillcolor=\"#e3f4e8\" color=\"#4f9a6b\"");
    case ENodeKind::Decoupler:
        return QStringLiteral(" fillcolor=\"#fdf3d8\" color=\"#c29a2f\" style=\"rounded,filled,dashed\"");
    case ENodeKind::Sink:
        return QStringLiteral(" fillcolor=\"#e2edfb\" color=\"#5a86c5\"");
    case ENodeKind::Filter:
        break;
    }
    return {};
}

QString edgeLabel(const SPictureEdge& edge, bool isTopDown)
{
    QStringList lines;
    if (!edge.type.isEmpty())
        lines << escaped(edge.type);
    QStringList ports;
    if (!edge.outPort.isEmpty())
        ports << QStringLiteral("from %1").arg(escaped(edge.outPort));
    if (!edge.inPort.isEmpty())
        ports << QStringLiteral("to %1").arg(escaped(edge.inPort));
    if (!ports.isEmpty())
        lines << ports.join(QLatin1Char(' '));
    if (!edge.note.isEmpty())
        lines << escaped(edge.note);
    // Beside an edge that goes down, a label would touch it.
    const QString gap = isTopDown && !lines.isEmpty() ? QStringLiteral("&#160;&#160;") : QString();
    return gap + lines.join(QStringLiteral("<BR/>") + gap);
}

void addNode(const SPicture& picture, int number, QTextStream* out)
{
    const SPictureNode& node = picture.nodes[std::size_t(number)];
    *out << "    n" << number << " [label=<" << nodeLabel(node) << '>' << nodeStyle(node.kind) << "]\n";
}

// How many nodes stand behind each other on the longest way.
int layersOf(const SPicture& picture)
{
    FlowEdges edges;
    for (const SPictureEdge& edge : picture.edges)
        edges.emplace_back(edge.from, edge.to);
    int layers = 0;
    for (const int depth : flowDepths(int(picture.nodes.size()), edges))
        layers = std::max(layers, depth + 1);
    return layers;
}

void addNodes(const SPicture& picture, bool isTopDown, QTextStream* out)
{
    const bool isFramed = !picture.groups.isEmpty();
    const int groups = std::max(1, picture.groups.size());
    for (int i = 0; i < groups; ++i) {
        // In a picture from left to right, Graphviz puts what comes first at the bottom.
        const int group = isTopDown ? i : groups - 1 - i;
        if (isFramed)
            *out << "    subgraph cluster_" << group << " {\n    label=<" << escaped(picture.groups.at(group))
                 << ">\n    style=rounded\n    color=\"#cbd5e1\"\n    fontcolor=\"" << grey << "\"\n    labeljust=l\n";
        for (int node = 0; node < int(picture.nodes.size()); ++node) {
            if (!isFramed || picture.nodes[std::size_t(node)].group == group)
                addNode(picture, node, out);
        }
        if (isFramed)
            *out << "    }\n";
    }
}

void addEdge(const SPictureEdge& edge, const QString& label, QTextStream* out)
{
    *out << "    n" << edge.from << " -> n" << edge.to;
    if (!label.isEmpty())
        *out << " [label=<" << label << ">]";
    *out << '\n';
}

} // namespace

bool isLayered(const SPicture& picture)
{
    return picture.nodes.size() <= mostInLayers && picture.edges.size() <= 2 * mostInLayers;
}

QByteArray dotText(const SPicture& picture)
{
    QString text;
    QTextStream out(&text);
    out << "digraph Halvex {\n"
           "    bgcolor=white pad=0.3 fontname=\"Helvetica\" fontsize=11\n";
    const bool hasLayers = isLayered(picture);
    const bool isTopDown = hasLayers && layersOf(picture) > mostSideBySide;
    if (hasLayers)
        out << "    layout=dot rankdir=" << (isTopDown ? "TB" : "LR")
            << " nodesep=0.35 ranksep=" << (isTopDown ? "0.35" : "0.5") << '\n';
    else
        out << "    layout=sfdp overlap=prism20 outputorder=edgesfirst\n";
    if (hasLayers && picture.nodes.size() > mostWithCare)
        out << "    nslimit=1 nslimit1=1 mclimit=0.3\n";
    out << "    node [shape=box style=\"rounded,filled\" fillcolor=\"#f1f5f9\" color=\"#94a3b8\" "
           "fontname=\"Helvetica\" "
           "fontsize=12 fontcolor=\"#1e293b\" margin=\"0.18,0.09\"]\n"
           "    edge [color=\"#94a3b8\" fontname=\"Helvetica\" fontsize=9 fontcolor=\""
        << grey << "\" arrowsize=0.7]\n";
    addNodes(picture, isTopDown, &out);
    for (const SPictureEdge& edge : picture.edges)
        addEdge(edge, hasLayers ? edgeLabel(edge, isTopDown) : QString(), &out);
    out << "}\n";
    out.flush();
    return text.toUtf8();
}

} // namespace Host
