// A project with its diagram, no window.
#pragma once

#include "data/exp_data.h"
#include "diagrams/curve_points.h"
#include "diagrams/diagram.h"
#include "diagrams/ranges.h"
#include "diagrams/straight_lines.h"
#include "engine/arithmetic.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "platform/host.h"

#include <cmath>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {

struct DiagramRecord : testing::Test {
    DiagramRecord() {
        InitProjectState(ps);
        ps.c0 = {0, 1, 0.8, 0.1, 0.05, 0.02};
        ps.k = {0, 0.03, 0.01, 0.02};
        ps.tMax = 100;
        EmptyDiagram(ps, diagram);
        ResetLabels(surface, false);
    }

    ScriptedHost scripted;
    ProjectState ps;
    Diagram diagram;
    PlotSurface& surface = diagram.surface;

    void SetRows(std::vector<ExpPoint> rows) {
        ps.ExpData.assign(1, {});
        ps.ExpData.insert(ps.ExpData.end(), rows.begin(), rows.end());
        ps.ExpPointCount = static_cast<int>(rows.size());
        FuCheckExpData(ps);
        FuInitialValuesFromData(ps);
    }
    /// The course of a model and the frame of its diagram.
    void Calculate(int model, bool rates = false) {
        ps.ModelId = model;
        ps.RateDiagram = rates;
        FuMaskenSetzen(ps, model);
        bool err = false;
        calc_diagram_function(ps, model, ps.tMax, err);
        ASSERT_FALSE(err);
        FuKoordLesen(ps, rates ? model + kRateKinds : model, ps.Memory, ps.Frame);
    }
    /// A picture of 400x300 pixels with the plot area at (50, 20).
    void LayOut() {
        surface.layout.picture = {0, 0, 400, 300};
        surface.layout.plotArea = {50, 20, 300, 200};
    }
    DataPoint PixelOf(double x, double y) { return *DataToPixel(surface, x, y); }
};

} // namespace zorvant
