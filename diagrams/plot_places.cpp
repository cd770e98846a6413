#include "diagrams/plot_places.h"

#include <algorithm>

namespace zorvant {
namespace {

double Share(double pixels, double of) {
    return of > 0 ? pixels / of : 0;
}

} // namespace

ChartAreaBox PresentChartArea(const PlotSurface& surface) {
    ChartAreaBox box = surface.chartAreaBox;
    const PixelRect &area = surface.layout.chartArea, &picture = surface.layout.picture;
    if (box.automatic && area.width > 0 && picture.width > 0)
        box = {.left = Share(area.left, picture.width),
               .top = Share(area.top, picture.height),
               .width = Share(area.width, picture.width),
               .height = Share(area.height, picture.height),
               .automatic = true};
    return box;
}

Location PresentLegendPlace(const PlotSurface& surface) {
    Location place = surface.legend.location;
    const PixelRect& picture = surface.layout.picture;
    PixelRect legend = surface.layout.legend;
    if (!(legend.width > 0)) { // hidden: beside the upper right corner of the axes
        const PixelRect& area = surface.layout.plotArea;
        legend.left = area.left + area.width;
        legend.top = area.top;
    }
    if (place.automatic && picture.width > 0)
        place = {.x = Share(legend.left, picture.width),
                 .y = Share(legend.top, picture.height),
                 .automatic = true};
    return place;
}

Margins PresentMargins(const PlotSurface& surface) {
    Margins present = surface.margins;
    for (Margin Margins::*side : kMargins)
        if ((present.*side).automatic)
            (present.*side).width = (surface.layout.margins.*side).width;
    return present;
}

bool AllAutomatic(const Margins& margins) {
    return std::ranges::all_of(kMargins,
                               [&](Margin Margins::*side) { return (margins.*side).automatic; });
}

void MoveChartEdge(PlotSurface& surface, Edge edge, double share) {
    ChartAreaBox box = PresentChartArea(surface);
    const double right = box.left + box.width, bottom = box.top + box.height;
    switch (edge) {
    case Edge::Left:
        box.left = std::clamp(share, 0.0, std::max(0.0, right - kLeastChartArea));
        box.width = right - box.left;
        break;
    case Edge::Right:
        box.width = std::max(kLeastChartArea, share - box.left);
        break;
    case Edge::Top:
        box.top = std::clamp(share, 0.0, std::max(0.0, bottom - kLeastChartArea));
        box.height = bottom - box.top;
        break;
    case Edge::Bottom:
        box.height = std::max(kLeastChartArea, share - box.top);
        break;
    }
    box.automatic = false;
    SetChartAreaBox(surface, box);
}

} // namespace zorvant
