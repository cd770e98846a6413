#include "evaluation/temperature.h"

#include "engine/arithmetic.h"
#include "engine/time_units.h"
#include "platform/number_text.h"

namespace zorvant {

namespace {

/// exp(-energy/(R T))
double BoltzmannFactor(double energy, double T) {
    return CheckedExp(Divide(-energy, T * kGasConstant));
}

/// Length of a second in the selected time unit.
double SecondInUnits(const ProjectState& ps) {
    return ps.TimeFactor[0].at(static_cast<std::size_t>(SelectedTimeUnit(ps)));
}

template <class Formula> KtResult Calculated(Formula formula) {
    KtResult result;
    try {
        formula(result);
        Finite(result.k);
        Finite(result.kSec);
        result.kText = PlainText(ToSingle(result.k));
        result.kSecText = PlainText(ToSingle(result.kSec));
    } catch (const ArithmeticError&) {
        result = {0, 0, true, "Err", "Err"};
    }
    return result;
}

} // namespace

double RateConstantAt(int kTFunction, double factor, double energy, double T) {
    const double e = BoltzmannFactor(energy, T);
    return Finite(kTFunction == kEyring ? factor * T * e : factor * e);
}

double RateConstantAt(const ProjectState& ps, double T) {
    return ps.kTFunction == kEyring ? RateConstantAt(kEyring, ps.EyrB, ps.EyrH, T)
                                    : RateConstantAt(kArrhenius, ps.ArrA, ps.ArrEA, T);
}

double EntropyOfFactor(const ProjectState& ps, double factor) {
    return kGasConstant * CheckedLn(Finite(factor * SecondInUnits(ps) * kPlanck / kBoltzmann));
}

bool TakeTemperatureParameters(ProjectState& ps) {
    if (ps.kTFunction != kEyring) {
        ps.ArrA = ps.FitParam[1];
        ps.ArrEA = ps.FitParam[2];
        return true;
    }
    ps.EyrB = ps.FitParam[1];
    ps.EyrH = ps.FitParam[2];
    try {
        ps.EyrS = EntropyOfFactor(ps, ps.EyrB);
        return true;
    } catch (const ArithmeticError&) {
        return false;
    }
}

KtResult CalcArrhenius(const ProjectState& ps, double A, double EA, double T) {
    return Calculated([&](KtResult& result) {
        result.k = A * BoltzmannFactor(EA, T);
        result.kSec = result.k * SecondInUnits(ps);
    });
}

KtResult CalcEyring(const ProjectState& ps, double EyrS, double EyrH, double T) {
    return Calculated([&](KtResult& result) {
        result.kSec =
            kBoltzmann / kPlanck * T * BoltzmannFactor(EyrH, T) * CheckedExp(EyrS / kGasConstant);
        result.k = Divide(result.kSec, SecondInUnits(ps));
    });
}

int SelectedTimeUnit(const ProjectState& ps) {
    const std::string word = Trim(ps.TimeUnitText);
    for (std::size_t i = 0; i < kTimeUnits.size(); ++i) {
        if (word == kTimeUnits[i])
            return static_cast<int>(i);
    }
    return ps.TimeUnitIdx;
}

} // namespace zorvant
