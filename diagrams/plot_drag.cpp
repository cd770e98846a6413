#include "diagrams/plot_drag.h"

#include "diagrams/curve_slots.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

PlotDrag Hold(PlotDrag::Part part, const PixelRect& rect, double px, double py, int label = 0) {
    return {.part = part, .label = label, .x = px - rect.left, .y = py - rect.top};
}

/// The upper left corner as shares of the picture.
Location PlaceAt(const PlotSurface& surface, double left, double top) {
    const PixelRect& picture = surface.layout.picture;
    return {std::clamp(left / picture.width, 0.0, 1.0), std::clamp(top / picture.height, 0.0, 1.0),
            false};
}

/// The point of a curve that is nearest to a pixel; 0: none can be seen.
int NearestOnCurve(const PlotSurface& surface, int slot, double px, double py) {
    int nearest = 0;
    double least = std::numeric_limits<double>::infinity();
    for (const int point : PointsInFrame(surface, kLines, slot)) {
        const auto at = DataToPixel(surface, GetX(surface, kLines, slot, point),
                                    GetY(surface, kLines, slot, point));
        const double away = at ? std::hypot(at->x - px, at->y - py) : least;
        if (away < least) {
            least = away;
            nearest = point;
        }
    }
    return nearest;
}

} // namespace

PlotDrag Grab(const PlotSurface& surface, double px, double py) {
    const PlotLayout& layout = surface.layout;
    for (const LabelRect& place : layout.labels)
        if (place.label <= kCurveSlots && place.rect.Contains(px, py))
            return Hold(PlotDrag::Part::Label, place.rect, px, py, place.label);
    switch (PixelToData(surface, px, py).region) {
    case Region::Header:
        return Hold(PlotDrag::Part::Header, layout.header, px, py);
    case Region::Footer:
        return Hold(PlotDrag::Part::Footer, layout.footer, px, py);
    case Region::Legend:
        return Hold(PlotDrag::Part::Legend, layout.legend, px, py);
    default:
        return {};
    }
}

void DragTo(Diagram& diagram, PlotDrag& drag, double px, double py) {
    PlotSurface& surface = diagram.surface;
    if (!(surface.layout.picture.width > 0))
        return;
    const Location place = PlaceAt(surface, px - drag.x, py - drag.y);
    drag.moved = true;
    switch (drag.part) {
    case PlotDrag::Part::Header: {
        TextBlock block = surface.header;
        block.location = place;
        return SetHeader(surface, block);
    }
    case PlotDrag::Part::Footer: {
        TextBlock block = surface.footer;
        block.location = place;
        return SetFooter(surface, block);
    }
    case PlotDrag::Part::Legend: {
        PlotLegend legend = surface.legend;
        legend.location = place;
        return SetLegend(surface, legend);
    }
    case PlotDrag::Part::Label:
        if (const int point = NearestOnCurve(surface, drag.label, px, py); point > 0)
            MoveCurveLabel(diagram, drag.label, point);
        return;
    case PlotDrag::Part::None:
        return;
    }
}

} // namespace zorvant
