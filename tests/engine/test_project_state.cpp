#include "engine/project_state.h"
#include "platform/host.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace zorvant;

TEST(ProjectState, CountsItsHourglass) {
    ScriptedHost script;
    ProjectState ps;
    EndWait(ps); // one too many changes nothing
    EXPECT_EQ(script.waitDepth, 0);
    {
        const WaitScope outer(ps);
        try {
            const WaitScope inner(ps);
            EXPECT_EQ(script.waitDepth, 1); // shown once
            throw std::runtime_error("stop");
        } catch (const std::runtime_error&) {
        }
        EXPECT_TRUE(ps.Busy);
    }
    EXPECT_FALSE(ps.Busy);
    EXPECT_EQ(script.waitDepth, 0);
}

TEST(ProjectState, WaitsByTheClockAcrossMidnight) {
    ScriptedHost script;
    script.clock = 86399.9;
    script.onService = [&] {
        script.clock += 0.05;
        if (script.clock >= 86400)
            script.clock -= 86400;
    };
    Wait(0.5);
    EXPECT_NEAR(script.clock, 0.4, 0.06);
    Wait(-1);
    EXPECT_LE(script.services, 12);
}

TEST(ProjectState, SlotsReachEverySpeciesAndNoOther) {
    ProjectState ps;
    InitProjectState(ps);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        cSim(ps, slot)[0] = slot;
        rSim(ps, slot)[0] = static_cast<float>(10 * slot);
    }
    EXPECT_EQ(ps.cSimA[0], 1);
    EXPECT_EQ(ps.cSimQ[0], 5);
    EXPECT_EQ(ps.rSimP[0], 40);
    ExpPoint point;
    point.c(4) = 0.25;
    EXPECT_EQ(point.cP, 0.25);
    for (const int none : {0, 6}) {
        EXPECT_THROW((void)cSim(ps, none), std::out_of_range);
        EXPECT_THROW((void)rSim(ps, none), std::out_of_range);
        EXPECT_THROW((void)point.c(none), std::out_of_range);
    }
    EXPECT_TRUE(InMask("10010", 4));
    EXPECT_FALSE(InMask("0000", 5)); // a mask of four digits
    EXPECT_FALSE(InMask("00002", 5));
}
