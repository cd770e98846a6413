#include "residence/residence_time.h"
#include "residence/tracer_experiment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace zorvant {
namespace {

struct Experiment {
    TracerExperiment row;
    std::vector<float> record;
};

/// Plays the whole experiment; the tanks stand as the last step left them.
Experiment PlayTracer(int N) {
    Experiment run;
    SizeTracer(run.row, N);
    FillTracer(run.row);
    EXPECT_FALSE(StartTracerFlow(run.row, run.record));
    while (StepTracerFlow(run.row, run.record)) {
    }
    return run;
}

TEST(TracerExperiment, RecordIsTheNegativeBinomialOfItsSteps) {
    // c(1) = 0.99^m; each further tank passes 0.01 on and keeps 0.99, in the same step:
    // c(N) = 0.99^m 0.01^(N-1) binomial(m + N - 2, N - 1)
    for (int N = 1; N <= kMaxTracerTanks; ++N) {
        const Experiment run = PlayTracer(N);
        for (const int m : {1, 2, 50, 100, 300, run.row.m}) {
            double expected = std::pow(0.99, m);
            for (int i = 1; i < N; ++i)
                expected *= 0.01 * (m - 1 + i) / i;
            EXPECT_NEAR(run.record[static_cast<std::size_t>(m)], expected, 2e-5 * expected + 1e-9)
                << N << " " << m;
        }
    }
}

TEST(TracerExperiment, NoTracerIsLostOrMadeInAnyStep) {
    for (const int N : {1, 3, 6}) {
        Experiment run;
        SizeTracer(run.row, N);
        FillTracer(run.row);
        StartTracerFlow(run.row, run.record);
        double out = 0;
        bool goesOn = true;
        while (goesOn) {
            goesOn = StepTracerFlow(run.row, run.record);
            out += static_cast<double>(run.record.back());
            const double inside =
                std::accumulate(run.row.cTracer.begin(), run.row.cTracer.end(), 0.0);
            ASSERT_NEAR(0.99 * inside + 0.01 * out, 0.99, 2e-5) << N << " " << run.row.m;
        }
    }
}

TEST(TracerExperiment, RefusesARowWithoutTanks) {
    Experiment run;
    SizeTracer(run.row, -3);
    FillTracer(run.row);
    const auto message = StartTracerFlow(run.row, run.record);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->text, "No. of stages N has to be between 1 and 6. ");
    EXPECT_FALSE(StepTracerFlow(run.row, run.record));
    std::vector<float> none;
    EXPECT_FALSE(EndTracerFlow(run.row, none));
    SizeTracer(run.row, 99);
    EXPECT_EQ(run.row.N, 6);
    EXPECT_EQ(ReadNTracer("7").message.text, "the value N has to be between 1 and 6. ");
    EXPECT_EQ(ReadNTracer("6.4").accepted, false);
    EXPECT_EQ(ReadNTracer("5.6").N, 6);
}

} // namespace
} // namespace zorvant
