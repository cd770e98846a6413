#include "residence/tracer_experiment.h"

#include <algorithm>
#include <cmath>

namespace zorvant {

namespace {

constexpr float kVolume = 1.0F;
constexpr float kFlow = 0.01F; ///< volumes a step; the length of the record goes with its inverse
/// Below it a tank counts as washed out; the record of six tanks has some 1200 steps.
constexpr float kWashedOut = 0.01F;
constexpr std::size_t kRecordRoom = 2048;
/// Shorter records make no diagram.
constexpr int kShortestRecord = 3;
/// What one round of the pause takes, s. Notch 5 pauses 0.3 s, notch 3 2 ms.
constexpr double kPauseRound = 5e-9;

} // namespace

TankNumber ReadNTracer(std::string_view text) {
    return ReadTankNumber(text, kMaxTracerTanks, "the value N has to be between 1 and 6. ");
}

void SizeTracer(TracerExperiment& row, int N) {
    row.N = std::clamp(N, 0, kMaxTracerTanks);
    ResetTracer(row);
}

void FillTracer(TracerExperiment& row) {
    ResetTracer(row);
    row.cTracer[1] = 1;
}

void ResetTracer(TracerExperiment& row) {
    row.cTracer.fill(0);
}

std::optional<MessageBox> StartTracerFlow(TracerExperiment& row, std::vector<float>& record) {
    row.m = 0;
    record.reserve(kRecordRoom);
    record.assign(1, 0.0F);
    if (row.N < 1)
        return MessageBox{"No. of stages N has to be between 1 and 6. ", "Execution not possible",
                          Icon::Critical};
    return std::nullopt;
}

bool StepTracerFlow(TracerExperiment& row, std::vector<float>& record) {
    if (row.N < 1)
        return false;
    const std::size_t outlet = static_cast<std::size_t>(row.N);
    float in = 0;
    for (std::size_t i = 1; i <= outlet; ++i) {
        float& c = row.cTracer[i];
        const float out = kFlow * c;
        c = (kVolume * c + in - out) / kVolume;
        in = kFlow * c;
    }
    ++row.m;
    record.push_back(row.cTracer[outlet]);
    return row.cTracer[1] >= kWashedOut || row.cTracer[outlet] >= kWashedOut;
}

bool EndTracerFlow(TracerExperiment& row, std::vector<float>& record) {
    if (record.empty())
        record.push_back(0);
    record[0] = static_cast<float>(row.m);
    ResetTracer(row);
    return row.m >= kShortestRecord;
}

Colour TracerColour(float c) {
    const float empty = std::isnan(c) ? 1.0F : 1 - std::clamp(c, 0.0F, 1.0F);
    const Colour part = static_cast<Colour>(std::nearbyint(255 * empty));
    return kRed | part << 8 | part;
}

double TracerPause(int Bremse) {
    if (Bremse <= 0)
        return 0;
    return (std::pow(1.2 * std::min(Bremse, kMaxBremse), 10) - 1) * kPauseRound;
}

} // namespace zorvant
