#include "data/exp_data.h"

#include "engine/arithmetic.h"

#include <algorithm>
#include <span>

namespace zorvant {
namespace {

/// Temperatures closer together than this are one, in K.
constexpr double kSameTemperature = 0.01;
/// A row below this time tells initial concentrations, in TU.
constexpr double kTimeZero = 1e-8;
/// Rows with c(A) and T that make a c-t-T set.
constexpr int kFewestCtTRows = 3;

std::span<const ExpPoint> Rows(const ProjectState& ps) {
    return std::span(ps.ExpData).subspan(1, static_cast<std::size_t>(ps.ExpPointCount));
}

bool AnyConcentration(const ExpPoint& p) {
    return p.cA > 0 || p.cB > 0 || p.cC > 0 || p.cP > 0 || p.cQ > 0;
}

/// The different temperatures, ascending from index 1. Each entry is compared with its neighbour,
/// not with the last one kept.
void CollectTemperatures(ProjectState& ps) {
    std::vector<double> sorted;
    sorted.reserve(Rows(ps).size());
    for (const ExpPoint& p : Rows(ps))
        sorted.push_back(p.T);
    std::ranges::sort(sorted);
    for (std::size_t i = 0; i < sorted.size(); ++i)
        if (sorted[i] > 0 && (i == 0 || sorted[i - 1] + kSameTemperature < sorted[i]))
            ps.Temperatures.push_back(NearestSingle(sorted[i]));
    ps.nTemperatures = std::min(static_cast<int>(ps.Temperatures.size()) - 1, kMaxTemperatures);
}

} // namespace

void FuClearExpData(ProjectState& ps) {
    for (ExpPoint& p : ps.ExpData) {
        p.exclude = 0;
        p.t = p.cA = p.cB = p.k = p.T = 0;
    }
    ps.ExpPointCount = 0;
    ps.DataFilePath.clear();
    ps.ExpDataChanged = false;
}

void FuCheckExpData(ProjectState& ps) {
    const std::span<const ExpPoint> rows = Rows(ps);
    ps.Temperatures.assign(1, 0.0F);
    ps.LambdaZero = ps.SumLambda = ps.tMaxData = 0;
    ps.nCtPoints = ps.nRcSPoints = ps.nkTPoints = ps.nExcluded = ps.nTemperatures = 0;
    ps.cA0Data = ps.cB0Data = ps.tMinData = 0;
    ps.ColumnHasData.fill(false);

    float sumOfTimes = 0;
    for (const ExpPoint& p : rows) {
        sumOfTimes = static_cast<float>(static_cast<double>(sumOfTimes) + p.t);
        ps.SumLambda += static_cast<double>(p.lambda);
    }
    int ctTRows = 0;
    for (const ExpPoint& p : rows) {
        if (p.t == 0 && p.exclude == 0)
            ps.LambdaZero = static_cast<double>(p.lambda);
        ps.nCtPoints += AnyConcentration(p) ? 1 : 0;
        ps.nRcSPoints += p.cA == 0 && p.t > 0 && p.cB > 0 ? 1 : 0;
        ps.nkTPoints += p.T > 0 && p.k > 0 ? 1 : 0;
        ctTRows += p.cA > 0 && p.T > 0 ? 1 : 0;
        ps.tMaxData = std::max(ps.tMaxData, p.t);
        ps.tMinData = std::min(ps.tMinData, NearestSingle(p.t));
        if (p.t == 0 && p.cA > 0)
            ps.cA0Data = NearestSingle(p.cA);
        if (p.t == 0 && p.cB > 0)
            ps.cB0Data = NearestSingle(p.cB);
        ps.nExcluded += p.exclude == -1 ? 1 : 0;
        for (int j = 1; j <= kSpecies; ++j)
            ps.ColumnHasData[static_cast<std::size_t>(j)] |= p.c(j) > 0;
    }
    ps.HasCtTData = ctTRows - ps.nExcluded >= kFewestCtTRows && sumOfTimes != 0;
    ps.HasLambdaData = ps.SumLambda > 0 && ps.LambdaInf > 0;
    CollectTemperatures(ps);
}

void FuInitialValuesFromData(ProjectState& ps) {
    const auto rows = Rows(ps);
    const auto start =
        std::ranges::find_if(rows, [](const ExpPoint& p) { return p.t < kTimeZero; });
    for (int j = 1; j <= kSpecies; ++j)
        ps.c0Data[static_cast<std::size_t>(j)] =
            start == rows.end() ? 0 : NearestSingle(start->c(j));
}

} // namespace zorvant
