// The one shared record of the program. Made once, handed by reference to whatever works on it.
//
// Species slots count 1 = A, 2 = B, 3 = C, 4 = P, 5 = Q in every array (enzyme model: E, S, ES, P);
// index 0 is unused. Times are in the selected time unit (TU), rate constants contain it,
// concentrations are in mol/L.
#pragma once

#include "engine/diagram_state.h"
#include "engine/experimental_data.h"
#include "engine/simulation_state.h"
#include "platform/colour.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zorvant {

inline constexpr int kSpecies = 5;
inline constexpr int kModels = 20;
/// Grid intervals of a calculated course.
inline constexpr int kCurveIntervals = 200;

/// Indexed by species slot 1..5.
using SpeciesArray = std::array<double, kSpecies + 1>;
/// Rate constants k1..k3 at 1..3.
using ConstantArray = std::array<double, 4>;
/// Stoich[reaction 1..3][species 1..5].
using StoichMatrix = std::array<std::array<float, kSpecies + 1>, 4>;

/// Akima tables: entry 0 of X holds the number of knots; Y and the coefficients by species slot.
struct AkimaTables {
    std::vector<double> SplineX;
    std::vector<std::array<double, kSpecies + 1>> SplineY, SplineA, SplineB, SplineC, SplineD;
};

struct ProjectState : ExpDataSet,
                      AkimaTables,
                      ResidenceState,
                      GameState,
                      BloodAlcoholState,
                      ProtocolState {
    // --- model and parameters
    int ModelId = 2;
    ConstantArray k{};
    SpeciesArray c0{};
    SpeciesArray cEnd{};
    std::array<double, 4> Ksi{}; ///< extents of reaction 1..3, mol/L
    float OrderN = 1.5F;
    double UA = 0;       ///< conversion of A
    double tMax = 0;     ///< TU
    double tVerweil = 0; ///< reaction time or mean residence time, TU
    double VPunkt = 0;   ///< volume flow, m^3/TU
    int NKask = 0;
    int CalcMode = 3;
    int BatchInput = 0; ///< 0 the reaction time is given, 1 the conversion
    std::string TimeUnitText = "s";
    int TimeUnitIdx = 0;
    int TimeUnitOldIdx = 1; ///< unit before the latest change
    std::string UnitNotice; ///< what a loaded file's unit has converted, until the next change
    /// TimeFactor[i][j]: length of unit i in unit j.
    std::array<std::array<double, 5>, 5> TimeFactor{};

    // --- properties of the model
    bool SingleReaction = false;
    bool ReversibleA = false;
    bool EquilibriumModel = false;
    bool NumericModel = false;
    std::string SpeciesMask = "10010";
    std::string RateMask = "100";
    StoichMatrix Stoich{};
    std::array<std::string, kModels + 1> ModelName;

    // --- calculated courses, index 0..NPoints
    int NPoints = kCurveIntervals;
    std::vector<double> tSim;
    std::vector<double> cSimA, cSimB, cSimC, cSimP, cSimQ;
    std::vector<float> rSimA, rSimB, rSimC, rSimP, rSimQ;
    float tHalfA = 0, tHalfB = 0; ///< TU; 0: not reached
    float AkimaSmoothing = 0;

    // --- diagram control
    int DiagramKind = 0;
    bool RateDiagram = false;
    bool WithExpPoints = false;
    bool AddCurves = false;
    bool ScaleOneSpecies = false;
    int ScaleSpecies = 1;
    bool IsTubular = false, IsCSTR = false, IsCascade = false;
    bool CascadeTimeAxis = false;
    bool MMDiagram = false;
    bool MMNormalized = true;
    double KM = 0;       ///< mol/L
    float S0Max = 0.15F; ///< mol/L
    bool RcSMode = true;
    int FitMode = 0;
    int kTFunction = 1;
    bool DiagramOfRc = false, DiagramOfTk = false;
    bool PointLegend = false;
    bool TwoSpeciesEqual = false;
    bool LambdaMode = false;
    int SingleSpecies = 1;
    int CurvesToDraw = 0;
    int CurveCount = 0;
    Colour PresetColor = kBlack;
    double vRohr = 0;     ///< flow velocity, m/TU
    float BacTimeMax = 0; ///< end of the blood-alcohol diagram's time axis, min
    /// The blood-alcohol curve at the whole minutes 0..n, g/kg. Whoever knows that model puts it
    /// here; calc_diagram_function calls it.
    std::function<std::vector<float>(int n)> BacCurve;
    KoordMemory Memory;
    DiaKoord Frame;
    PointBuffer CurveBuf, ManualBuf;
    std::vector<float> TracerBuf;        ///< element 0: the count
    int DiagramLeft = 0, DiagramTop = 0; ///< twips

    // --- fitting
    std::array<double, 4> FitParam{};  ///< 1..3, meaning by FitMode
    std::array<double, 4> FitStdDev{}; ///< of FitParam; -10000: not computed
    std::array<int, 4> FitFixed{};     ///< not 0: the user holds the parameter fixed
    std::array<bool, 6> FitSpecies{};  ///< species slots whose deviations count
    bool LimitReached = false;         ///< the last fit was stopped by a limit
    double ArrA = 100;                 ///< pre-exponential factor, unit of k
    double ArrEA = 100;                ///< J/mol
    double EyrB = 0;                   ///< factor of T exp(-h#/(R T)), unit of k per K
    double EyrH = 0;                   ///< J/mol
    double EyrS = 0;                   ///< J/(mol K)

    // --- files and texts
    std::string ProgramDir; ///< the folder of the executable
    std::string ProjectDir, XYDir, GraphDir, TableDir;
    std::string LastSessionFile;
    std::string ProjectFile, ProjectTitle;
    std::string ProjectComment;
    std::string XYFile;
    int XYCount = 0; ///< lines in the list of the X-Y editor
    std::string CsvSep = ";";
    std::string ProtocolFile;
    bool ProtocolOpen = false;
    bool DecimalComma = false;
    bool Busy = false;
    int WaitDepth = 0;
};

/// The course of species slot 1..5.
std::vector<double>& cSim(ProjectState& ps, int slot);
const std::vector<double>& cSim(const ProjectState& ps, int slot);
std::vector<float>& rSim(ProjectState& ps, int slot);
const std::vector<float>& rSim(const ProjectState& ps, int slot);

/// Fills the state with the start values of the program (model 2, unit "s", defaults of k); the
/// program's folder is taken from the host.
void InitProjectState(ProjectState& ps);

/// Whether slot 1..5 takes part by a mask of five digits.
bool InMask(const std::string& mask, int slot);

/// The counted hourglass.
void BeginWait(ProjectState& ps);
void EndWait(ProjectState& ps);
/// Waits by polling the clock, serving events.
void Wait(double seconds);

/// Holds the hourglass for a scope.
class WaitScope {
public:
    explicit WaitScope(ProjectState& ps) : ps_(ps) { BeginWait(ps_); }
    ~WaitScope() { EndWait(ps_); }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    ProjectState& ps_;
};

} // namespace zorvant
