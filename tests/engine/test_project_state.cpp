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
