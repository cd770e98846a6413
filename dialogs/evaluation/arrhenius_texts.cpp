#include "dialogs/evaluation/arrhenius_texts.h"

#include "engine/modes.h"
#include "evaluation/temperature.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

/// The temperature that the calculators start from.
constexpr const char* kStartTemperature = "298.15";

} // namespace

CalculatorFace FaceOfCalculator(const ProjectState& ps) {
    const std::string& unit = ps.TimeUnitText;
    CalculatorFace face;
    if (ps.kTFunction == kEyring) {
        face.caption = "EYRING Calculator";
        face.lblFormel = "calculates k = kB/h T exp(-H#/(R T)) exp(S#/R)";
        face.kBhVisible = true;
        face.lblk0 = "s# /J/(mol K) =";
        face.lblEA = "h# /J/mol  =";
        face.lblUnitEA = "h# = mol. activation enthalpy";
        face.lblUnitk0 = "s# = mol. activation entropy";
        face.lblRO = "   n = order of reaction";
        face.inp0 = GeneralText(ps.EyrS);
        face.inp1 = GeneralText(ps.EyrH);
    } else {
        face.caption = "ARRHENIUS Calculator";
        face.lblFormel = "calculates k = A exp(-EA / (R T))";
        face.lblk0 = "A =";
        face.lblEA = "EA /J/mol =";
        face.lblUnitEA = "EA   = mol. activation energy";
        face.lblUnitk0 = "[A]   = ((mol/L)^(1-n))/" + unit + "     (pre-exponential factor)";
        face.lblRO = "            (n = order of reaction)";
        face.inp0 = GeneralText(ps.ArrA);
        face.inp1 = GeneralText(ps.ArrEA);
    }
    face.lblk0Eyring = "kB/h /(1/(K s)) =";
    face.kBhText = GeneralText(kBoltzmann / kPlanck);
    face.inp2 = kStartTemperature;
    switch (ps.FitMode) {
    case kFitSecondOrderT:
        face.lblkEinheit = "L/(mol " + unit + ")";
        face.lblkEinheitsec = "L/(mol s)";
        break;
    case kFitFirstOrderT:
        face.lblkEinheit = "1/" + unit;
        face.lblkEinheitsec = "1/ s";
        break;
    default:
        face.lblkEinheit = "((mol/L)^(1-n))/" + unit;
        face.lblkEinheitsec = "((mol/L)^(1-n))/s";
    }
    return face;
}

} // namespace zorvant
