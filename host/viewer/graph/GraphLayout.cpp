// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/GraphLayout.h"

#include "host/documents/Drawing.h"
#include "host/viewer/edit/GraphPart.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <limits>

namespace Host {

namespace {

constexpr double pixelsPerInch = 72;
constexpr double gap = 32;

// Graphviz reads and writes numbers as the locale has them.
class CPlainNumbers
{
public:
    CPlainNumbers()
        : m_plain(newlocale(LC_NUMERIC_MASK, "C", nullptr))
        , m_before(m_plain ? uselocale(m_plain) : nullptr)
    {
    }
    ~CPlainNumbers()
    {
        if (!m_plain)
            return;
        uselocale(m_before);
        freelocale(m_plain);
    }
    Q_DISABLE_COPY(CPlainNumbers)

private:
    const locale_t m_plain;
    const locale_t m_before;
};

QByteArray dotText(const std::vector<QSizeF>& sizes, const FlowEdges& edges)
{
    QByteArray text = "digraph { graph [layout=dot, rankdir=LR, nodesep=0.45, ranksep=1.7, splines=line];"
                      "node [shape=box, fixedsize=true, label=\"\"]; edge [arrowhead=none];\n";
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        text += QByteArray::number(qulonglong(i)) + " [width=" + QByteArray::number(sizes[i].width() / pixelsPerInch) +
                ", height=" + QByteArray::number(sizes[i].height() / pixelsPerInch) + "];\n";
    }
    for (const auto& edge : edges)
        text += QByteArray::number(edge.first) + " -> " + QByteArray::number(edge.second) + ";\n";
    return text + "}\n";
}

// By the distance from the sources alone, without a look at what crosses what: for when Graphviz fails.
std::vector<QPointF> columns(const std::vector<QSizeF>& sizes, const FlowEdges& edges)
{
    const std::vector<int> depths = flowDepths(int(sizes.size()), edges);
    double widest = 0;
    for (const QSizeF& size : sizes)
        widest = std::max(widest, size.width());
    std::vector<double> bottoms(sizes.size() + 1, 0);
    std::vector<QPointF> corners;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        double& bottom = bottoms[std::size_t(depths[i])];
        corners.emplace_back(depths[i] * (widest + 3 * gap), bottom);
        bottom += sizes[i].height() + gap;
    }
    return corners;
}

bool isFree(const QRectF& place, const std::vector<QRectF>& taken)
{
    return std::none_of(taken.begin(), taken.end(), [&place](const QRectF& each) { return each.intersects(place); });
}

} // namespace

std::vector<QPointF> layoutGraph(const std::vector<QSizeF>& sizes, const FlowEdges& edges)
{
    const CPlainNumbers plain;
    QString error;
    const QByteArray text = draw(dotText(sizes, edges), EDrawing::Plain, &error);
    std::vector<QPointF> corners(sizes.size());
    std::size_t found = 0;
    double top = std::numeric_limits<double>::infinity();
    double left = top;
    const auto lines = text.split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() < 4 || words[0] != "node")
            continue;
        const std::size_t node = words[1].toULong();
        if (node >= sizes.size())
            continue;
        const QPointF middle(words[2].toDouble() * pixelsPerInch, -words[3].toDouble() * pixelsPerInch);
        corners[node] = middle - QPointF(sizes[node].width(), sizes[node].height()) / 2;
        left = std::min(left, corners[node].x());
        top = std::min(top, corners[node].y());
        ++found;
    }
    if (found != sizes.size())
        return columns(sizes, edges);
    for (QPointF& corner : corners)
        corner = onGrid(corner - QPointF(left, top));
    return corners;
}

QPointF findFreePlace(QSizeF size, QPointF wanted, const std::vector<QRectF>& taken)
{
    const QPointF start = onGrid(wanted);
    constexpr int mostRings = 1000;
    // Squares around the wanted place, each one step further out.
    for (int ring = 0; ring < mostRings; ++ring) {
        for (int x = -ring; x <= ring; ++x) {
            const bool isSide = std::abs(x) == ring;
            for (int y = -ring; y <= ring; y += isSide || ring == 0 ? 1 : 2 * ring) {
                const QPointF corner = start + QPointF(x, y) * gap;
                if (isFree(QRectF(corner, size).adjusted(-gap, -gap, gap, gap), taken))
                    return corner;
            }
        }
    }
    return start;
}

} // namespace Host
