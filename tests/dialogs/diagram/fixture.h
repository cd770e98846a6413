// A project with its diagram window, and a host that answers and records.
#pragma once

#include "data/exp_data.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_mouse.h"
#include "dialogs/diagram/diagram_points.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"
#include "platform/number_text.h"

#include <cmath>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {

struct DiagramTest : testing::Test {
    DiagramTest() {
        InitProjectState(ps);
        ps.c0 = {0, 1, 0.8, 0, 0, 0};
        ps.k = {0, 0.02, 0.01, 0.01};
        ps.tMax = 100;
    }

    ScriptedHost scripted;
    Workspace ps;
    DiagramDocument doc{ps};
    Form drawer{"drawer"};

    void SetRows(std::vector<ExpPoint> rows) {
        ps.ExpData.assign(1, {});
        ps.ExpData.insert(ps.ExpData.end(), rows.begin(), rows.end());
        ps.ExpPointCount = static_cast<int>(rows.size());
        FuCheckExpData(ps);
        FuInitialValuesFromData(ps);
    }

    /// The course of a model, computed as its dialog does, and its diagram opened anew.
    void DrawModel(int model, bool rates = false) {
        ps.ModelId = model;
        ps.RateDiagram = rates;
        FuMaskenSetzen(ps, model);
        ps.DiagramKind = rates ? model + kRateKinds : model;
        CloseFromBehind();
        bool err = false;
        calc_diagram_function(ps, model, ps.tMax, err);
        ASSERT_FALSE(err);
        GrafZentrale(ps, doc);
    }

    void Open(int kind) {
        ps.DiagramKind = kind;
        CloseFromBehind();
        FuDatenBereiche(ps, kind);
        GrafZentrale(ps, doc);
    }

    /// As a dialog does that stands in front and draws anew.
    void CloseFromBehind() {
        ShowForm(ps.desktop, drawer);
        UnloadForm(ps.desktop, doc);
    }

    std::vector<std::string> Messages() const {
        std::vector<std::string> texts;
        for (const MessageBox& box : scripted.boxes)
            texts.push_back(box.title + "|" + box.text);
        return texts;
    }

    /// A picture of 400x300 pixels with the plot area at (50, 20).
    void LayOut() {
        doc.surface.layout.picture = {0, 0, 400, 300};
        doc.surface.layout.plotArea = {50, 20, 300, 200};
    }
    DataPoint PixelOf(double x, double y) { return *DataToPixel(doc.surface, x, y); }
};

} // namespace zorvant
