// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HistogramChart.h"

#include "host/models/HistogramSteps.h"
#include "host/models/SHistogramScale.h"

#include <opencv2/imgproc.hpp>

#include <plplot.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <stdexcept>
#include <vector>

namespace Host {

namespace {

constexpr int width = 640;
constexpr int height = 400;

// The library draws into memory with this driver, which comes in a package of its own.
const char* const driver = "memcairo";

// Places in the table of colours; 0 is the background.
enum EColor : PLINT
{
    Text = 1,
    Grid,
    Blue,
    Green,
    Red,
    Gray
};

struct SColor
{
    PLINT red, green, blue;
};
constexpr std::array<SColor, 7> colors{
    {{255, 255, 255}, {60, 66, 77}, {226, 229, 234}, {51, 102, 204}, {46, 146, 79}, {204, 60, 51}, {84, 95, 110}}};

// A channel, and where its name begins above the chart, from 0 at the left to 1 at the right.
struct SChannel
{
    const char* name;
    EColor color;
    double nameAt;
};
constexpr std::array<SChannel, 3> colorChannels{{{"blue", Blue, 0.955}, {"green", Green, 0.88}, {"red", Red, 0.83}}};
constexpr SChannel grayChannel{"grey", Gray, 0.945};

using Counts = SHistogramScale::Counts;

// 1, 2 or 5 times a power of ten, so that some four of them make \a most.
double niceStep(double most)
{
    const double rough = std::max(most / 4.0, 1.0);
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= rough)
            return factor * power;
    }
    return 10.0 * power;
}

// Pixels as "7500", "20 k", "1.5 M": no powers of ten beside the axis. Values as they are.
void writeLabel(PLINT axis, PLFLT value, char* label, PLINT length, PLPointer)
{
    const auto size = std::size_t(length);
    if (axis == PL_X_AXIS)
        std::snprintf(label, size, "%.0f", value);
    else if (value >= 1e6)
        std::snprintf(label, size, "%g M", value / 1e6);
    else if (value >= 1e4)
        std::snprintf(label, size, "%g k", value / 1e3);
    else
        std::snprintf(label, size, "%g", value);
}

bool hasDriver()
{
    std::array<const char*, 64> titles{};
    std::array<const char*, 64> names{};
    const char** title = titles.data();
    const char** name = names.data();
    PLINT count = PLINT(names.size());
    plgDevs(&title, &name, &count);
    return std::any_of(names.begin(), names.begin() + count,
                       [](const char* each) { return each && std::strcmp(each, driver) == 0; });
}

// A picture that is being drawn. The library's functions work on one that is current for the whole process.
class CPicture
{
public:
    explicit CPicture(cv::Mat& pixels)
    {
        // Without this, the library would ask for another one on standard input.
        static const bool isThere = hasDriver();
        if (!isThere)
            throw std::runtime_error("PLplot lacks the driver 'memcairo', which Debian has in plplot-driver-cairo");
        PLINT stream = 0;
        plmkstrm(&stream);
        plsmem(width, height, pixels.data);
        plsdev(driver);
        plspage(90, 90, width, height, 0, 0);
        plscmap0n(PLINT(colors.size()));
        for (std::size_t i = 0; i < colors.size(); ++i)
            plscol0(PLINT(i), colors[i].red, colors[i].green, colors[i].blue);
        plinit();
        plfontld(0);
        plsfont(PL_FCI_SANS, PL_FCI_UPRIGHT, PL_FCI_MEDIUM);
        plslabelfunc(&writeLabel, nullptr);
        pladv(0);
    }
    ~CPicture() { plend1(); }
    CPicture(const CPicture&) = delete;
    CPicture& operator=(const CPicture&) = delete;

    static void setColor(EColor color, double opacity = 1.0)
    {
        const SColor& c = colors[std::size_t(color)];
        plscol0a(color, c.red, c.green, c.blue, opacity);
        plcol0(color);
    }
};

void drawAxes(double most, double valueEnd)
{
    CPicture::setColor(Grid);
    plwidth(0.8);
    plbox("gt", valueEnd / 8, 0, "gt", niceStep(most), 0);
    CPicture::setColor(Text);
    plwidth(1);
    plschr(0, 0.78);
    // Along the bottom and the left only, ticks outwards.
    plsmaj(0, 0.5);
    plbox("atnio", valueEnd / 8, 0, "tniov", niceStep(most), 0);
    plmtex("b", 3.5, 0.5, 0.5, "value");
    plmtex("l", 5.2, 0.5, 0.5, "pixels");
    plschr(0, 0.95);
    plmtex("t", 1.3, 0.0, 0.0, "Histogram");
}

void drawChannel(const Counts& bins, const SChannel& channel, double valueEnd)
{
    // One point for each step: what is drawn of a preview must not cost more than that.
    std::vector<PLFLT> x{0.0};
    std::vector<PLFLT> y{0.0};
    for (std::size_t step = 0; step < bins.size(); ++step) {
        x.push_back(valueEnd * (double(step) + 0.5) / double(bins.size()));
        y.push_back(double(bins[step]));
    }
    x.push_back(valueEnd);
    y.push_back(0.0);
    CPicture::setColor(channel.color, 0.2);
    plfill(PLINT(x.size()), x.data(), y.data());
    CPicture::setColor(channel.color, 0.8); // so that one channel is seen through another
    plwidth(1.2);
    plline(PLINT(x.size()), x.data(), y.data());
    CPicture::setColor(channel.color);
    plschr(0, 0.85);
    plmtex("t", 1.4, channel.nameAt, 0.0, channel.name);
}

void draw(const cv::Mat& image, cv::Mat* pixels)
{
    const std::vector<Counts> bins = histogramSteps(image);
    const SHistogramScale scale(bins);
    const double most = scale.most;
    const double valueEnd = endOfValues(image);
    const CPicture picture(*pixels);
    plvpor(0.105, 0.955, 0.145, 0.875);
    plwind(0, valueEnd, 0, most * 1.06);
    drawAxes(most, valueEnd);
    CPicture::setColor(Text);
    plschr(0, 0.78);
    plmtex("t", 1.45, 0.5, 0.5, scale.note(double(image.total())).c_str());
    for (std::size_t i = 0; i < bins.size(); ++i)
        drawChannel(bins[i], bins.size() == 1 ? grayChannel : colorChannels.at(i), valueEnd);
}

} // namespace

cv::Mat histogramChart(const cv::Mat& image)
{
    static std::mutex oneAtATime;
    cv::Mat chart(height, width, CV_8UC3, cv::Scalar::all(255));
    {
        const std::lock_guard<std::mutex> lock(oneAtATime);
        draw(image, &chart);
    }
    cv::cvtColor(chart, chart, cv::COLOR_RGB2BGR);
    return chart;
}

} // namespace Host
