// The diagram window from load to unload: slots, labels, legend, points, messages.
#include "diagrams/coordinates.h"
#include "diagrams/dispatcher.h"
#include "engine/time_course.h"

#include <cmath>

#include <gtest/gtest.h>

namespace zorvant {
namespace {

TEST(DiagramDocument, DrawsTheCoursesOfAFirstOrderReaction) {
    ScriptedHost scripted;
    ProjectState ps;
    InitProjectState(ps);
    DiagramDocument doc(ps);
    ps.c0[1] = 1;
    ps.tMax = 100;
    ps.k[1] = 0.02;
    ps.DiagramKind = ps.ModelId;
    bool err = false;
    calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
    const std::uint64_t before = doc.surface.revision;
    GrafZentrale(ps, doc);
    EXPECT_TRUE(scripted.boxes.empty());
    EXPECT_EQ(ps.CurveCount, 2);
    EXPECT_EQ(GetPointCount(doc.surface, kLines, 1), 201);
    EXPECT_NEAR(GetY(doc.surface, kLines, 1, 201), std::exp(-2.0), 1e-7);
    EXPECT_EQ(doc.surface.revision, before + 1) << "one repaint for the whole diagram";
}

} // namespace
} // namespace zorvant
