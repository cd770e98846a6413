// How rate constants depend on temperature: Arrhenius and Eyring, their calculators, and the
// parameters of the non-isothermal fits.
#pragma once

#include "engine/constants.h"
#include "engine/project_state.h"

#include <string>

namespace zorvant {

/// ProjectState::kTFunction.
inline constexpr int kArrhenius = 1;
inline constexpr int kEyring = 2;

/// The rate constant at a temperature in the parameters of the fits.
/// Given:    kTFunction 1 Arrhenius, 2 Eyring; factor: A in the unit of k, or B in the unit of k
///           per K; energy J/mol; T K
/// Returned: k in the unit that the factor brings
/// Errors:   ArithmeticError: T = 0, overflow
/// Formula:  k = A exp(-EA/(R T)) (S. Arrhenius, Z. phys. Chem. 4 (1889) 226);
///           k = B T exp(-h#/(R T)) (H. Eyring, J. Chem. Phys. 3 (1935) 107)
double RateConstantAt(int kTFunction, double factor, double energy, double T);
/// The same with ArrA and ArrEA, or EyrB and EyrH, of the state, by its kTFunction.
double RateConstantAt(const ProjectState& ps, double T);

/// The molar entropy of activation that belongs to Eyring's factor.
/// Given:    factor B in 1/(TU K), of a reaction whose k is taken in the selected time unit
/// Returned: s# in J/(mol K)
/// Errors:   ArithmeticError: B not above 0
/// Formula:  B [1/(s K)] = kB/h exp(s#/R)
double EntropyOfFactor(const ProjectState& ps, double factor);
inline constexpr const char* kInvalidEyring = "invalid values for EYRING calculation";

/// Puts the parameters of a non-isothermal fit, FitParam(1) and FitParam(2), where they belong:
/// ArrA and ArrEA, or EyrB, EyrH and the entropy EyrS that follows.
/// Returned: false: no entropy belongs to this factor, EyrS stays as it was (kInvalidEyring)
bool TakeTemperatureParameters(ProjectState& ps);

/// What a calculator gives.
struct KtResult {
    double k = 0;      ///< in the selected time unit
    double kSec = 0;   ///< per second
    bool err = false;  ///< arithmetic error; both values are 0 then
    std::string kText; ///< as shown: through Single, or "Err"
    std::string kSecText;
};

/// The Arrhenius calculator.
/// Given:    A in 1/TU or the like; EA J/mol; T K
/// Formula:  k = A exp(-EA/(R T))
KtResult CalcArrhenius(const ProjectState& ps, double A, double EA, double T);
/// The Eyring calculator.
/// Given:    s# J/(mol K); h# J/mol; T K
/// Formula:  k = (kB/h) T exp(-h#/(R T)) exp(s#/R), in 1/s
KtResult CalcEyring(const ProjectState& ps, double EyrS, double EyrH, double T);

/// The index of the time unit's word, blanks dropped; what the state has when the word is unknown.
int SelectedTimeUnit(const ProjectState& ps);

} // namespace zorvant
