// The table of measured values and what is known of it. Reading, writing and counting stand in
// data/; the records stand here because the project state holds them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zorvant {

/// One row. 0 in a column: nothing was measured there.
struct ExpPoint {
    double t = 0;  ///< TU; in r(P)-c(S) data the rate r(P), mol/(L TU)
    double cA = 0; ///< mol/L, species slots 1..5 (enzyme model: E, S, ES, P)
    double cB = 0;
    double cC = 0;
    double cP = 0;
    double cQ = 0;
    double T = 0;             ///< K
    double k = 0;             ///< rate constant measured at T
    float lambda = 0;         ///< anything proportional to the concentration
    float res3 = 0;           ///< kept through load and save, no other use
    float res4 = 0;           ///< the same
    std::int16_t exclude = 0; ///< 0 active, -1 deactivated

    /// Concentration of species slot 1..5, mol/L.
    double c(int slot) const;
    double& c(int slot);
    bool operator==(const ExpPoint&) const = default;
};

inline constexpr int kMaxExpPoints = 32767;
inline constexpr int kMaxTemperatures = 24;

/// The table of the project with its statistics (FuCheckExpData).
struct ExpDataSet {
    /// Rows 1..ExpPointCount; row 0 exists and is not used.
    std::vector<ExpPoint> ExpData = std::vector<ExpPoint>(2);
    int ExpPointCount = 0;
    std::string ExpComment;
    double LambdaInf = 0;  ///< lambda after infinite time
    double LambdaZero = 0; ///< lambda at t = 0; 0: not known
    std::string DataFilePath, DataFileTitle, DataDir;
    bool ExpDataChanged = false;
    bool DataIsSession = false; ///< the project is the last session, with data or without

    int nCtPoints = 0;
    int nRcSPoints = 0;
    int nkTPoints = 0; ///< also called ExpTkCount by the diagrams
    int nExcluded = 0;
    bool HasCtTData = false;
    bool HasLambdaData = false;
    double SumLambda = 0;
    float cA0Data = 0, cB0Data = 0; ///< mol/L
    float tMinData = 0;             ///< TU
    double tMaxData = 0;            ///< TU
    std::array<bool, 6> ColumnHasData{};
    std::vector<float> Temperatures = std::vector<float>(1); ///< K, from index 1
    int nTemperatures = 0;
    std::array<float, 6> c0Data{}; ///< mol/L
};

} // namespace zorvant
