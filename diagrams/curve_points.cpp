#include "diagrams/curve_points.h"

#include "diagrams/diagram.h"
#include "diagrams/straight_lines.h"
#include "engine/akima_spline.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>
#include <string_view>

namespace zorvant {
namespace {

/// Steps of a straight line over the frame; more only cost time.
constexpr float kLineSteps = 120;
/// Blood serum against whole blood, g/mL: converts c into g/kg.
constexpr double kBloodDensity = 1.055;
constexpr std::string_view kSpeciesLetters = "ABCPQ";
constexpr int kSlotA = 1, kSlotP = 4;

/// Fills a curve point by point; its count stands in element 0 however the filling ends.
class CurveWriter {
public:
    explicit CurveWriter(PointBuffer& curve) : curve_(curve) { curve_.assign(1, {}); }
    ~CurveWriter() { curve_[0].x = static_cast<float>(curve_.size() - 1); }
    CurveWriter(const CurveWriter&) = delete;
    CurveWriter& operator=(const CurveWriter&) = delete;

    /// Errors: ArithmeticError "Overflow" for what a Single can't hold.
    void Add(double x, double y) { curve_.push_back({ToSingle(x), ToSingle(y)}); }

private:
    PointBuffer& curve_;
};

bool InFrameHeight(const DiaKoord& frame, double y) {
    return y >= static_cast<double>(frame.yMin) && y <= static_cast<double>(frame.yMax);
}

/// The slot of the species that is fetched when so many curves are left; 0: none.
int SpeciesToFetch(const std::string_view species, int left) {
    if (left < 1 || left > static_cast<int>(species.size()))
        return 0;
    const char letter = species[species.size() - static_cast<std::size_t>(left)];
    return static_cast<int>(kSpeciesLetters.find(letter)) + 1;
}

std::string SpeciesLabel(const ProjectState& ps, int slot, int species) {
    const std::string name = std::string("(") + SpeciesName(ps.ModelId, species) + ") ";
    if (ps.RateDiagram)
        return "r" + name;
    if (species == kSlotA && ps.FitMode >= kFirstTemperatureMode) {
        const auto at = static_cast<std::size_t>(slot);
        const float temperature = at < ps.Temperatures.size() ? ps.Temperatures[at] : 0;
        return "T/K = " + FormatNumber(static_cast<double>(temperature), "####,##");
    }
    return "c" + name;
}

/// Points 0..NPoints of two lists, as far as both reach.
template <class T>
void AddArrays(const ProjectState& ps, const std::vector<T>& y, double divisor, PointBuffer& curve,
               bool& outside) {
    CurveWriter writer(curve);
    const std::size_t count =
        std::min({ps.tSim.size(), y.size(), static_cast<std::size_t>(std::max(0, ps.NPoints + 1))});
    for (std::size_t i = 0; i < count; ++i) {
        const double value = static_cast<double>(y[i]) / divisor;
        writer.Add(ps.tSim[i], value);
        if (InFrameHeight(ps.Frame, value))
            outside = false;
    }
}

void SpeciesCurve(const ProjectState& ps, int kind, int slot, PointBuffer& curve,
                  CurveCalculation& made) {
    const DiagramKindRow* row = FindDiagramKind(ModelOfKind(kind));
    const std::string_view sequence = row->species;
    const bool nonIsothermal = ps.FitMode >= kFirstTemperatureMode && sequence == "AP";
    const int species = nonIsothermal ? kSlotA : SpeciesToFetch(sequence, ps.CurvesToDraw);
    curve.assign(1, {});
    if (species == 0)
        return;
    const bool saturation = species == kSlotP && ps.MMDiagram;
    if (saturation)
        made.outside = false;
    made.label = saturation ? "" : SpeciesLabel(ps, slot, species);
    if (ps.RateDiagram || saturation)
        AddArrays(ps, rSim(ps, species), 1, curve, made.outside);
    else
        AddArrays(ps, cSim(ps, species), 1, curve, made.outside);
}

void StraightLine(const ProjectState& ps, int kind, PointBuffer& curve, CurveCalculation& made) {
    const RegressionPoints points = CollectRegressionPoints(ps, kind);
    made.leftOut = points.leftOut;
    constexpr int kParameters = 2;
    constexpr int kLineType = 2;
    RegressionMatrix matrix;
    float sd = 0, relsd = 0;
    bool singular = false;
    FuRegression(points.RegressX, points.RegressY, points.RegressW, kParameters, kLineType, 0,
                 matrix, sd, relsd, made.r2, singular);
    FuRegressGerade(ps.Frame, kParameters, matrix, made.a, made.b, made.outside, curve);
    made.line = true;
    const LineResult result = EvaluateLine(
        ps, kind, {.a = made.a, .b = made.b, .r2 = made.r2, .cA0 = points.cA0, .cB0 = points.cB0});
    if (result.storesK)
        made.k = result.k;
    made.result = result.text;
}

/// A spline through the measured points of one species, from x = 0 whatever the frame.
void SplineCurve(ProjectState& ps, int steps, PointBuffer& curve, bool& outside) {
    const int n = ps.ExpPointCount;
    const int s = ps.SingleSpecies;
    ReserveAkima(ps, n);
    ps.SplineX[0] = n;
    for (int i = 1; i <= n; ++i) {
        const auto at = static_cast<std::size_t>(i);
        ps.SplineX[at] = ps.ExpData.at(at).t;
        ps.SplineY[at].at(static_cast<std::size_t>(s)) = ps.ExpData[at].c(s);
    }
    AkimaKoeffizienten(ps, s, n, ps.AkimaSmoothing);

    CurveWriter writer(curve);
    const float xMax = ps.Frame.xMax;
    const float xStep = (xMax - ps.Frame.xMin) / static_cast<float>(steps);
    // A frame far from 0 asks for more steps than the buffer is meant for, or for steps that vanish
    // beside x; then the buffer's number of steps is spread over the whole stretch.
    const float step = std::max(xStep * 0.5F, xMax / static_cast<float>(kCurveBufferPoints));
    if (!(step > 0))
        return;
    for (float x = 0; x <= xMax; x += step) {
        const auto at = static_cast<double>(x);
        const double y = AkimaWert(ps, AkimaMode::Value, s, at, n);
        writer.Add(at, y);
        if (InFrameHeight(ps.Frame, y))
            outside = false;
    }
}

void TracerCurve(const ProjectState& ps, PointBuffer& curve, bool& outside) {
    const auto& signal = ps.TracerBuf;
    const std::size_t held = signal.empty() ? 0 : signal.size() - 1;
    const std::size_t n =
        held > 0 && signal[0] > 0 ? std::min(held, static_cast<std::size_t>(signal[0])) : 0;
    CurveWriter writer(curve);
    for (std::size_t i = 1; i <= n; ++i)
        writer.Add(100.0 * static_cast<double>(i) / static_cast<double>(n),
                   static_cast<double>(signal[i]));
    outside = n < 2;
}

} // namespace

int BufferCount(const PointBuffer& buffer) {
    if (buffer.empty() || !(buffer[0].x > 0))
        return 0;
    const auto held = static_cast<float>(buffer.size() - 1);
    return static_cast<int>(std::min(buffer[0].x, held));
}

CurvePoints PointsOf(const PointBuffer& buffer) {
    CurvePoints points;
    for (int i = 1; i <= BufferCount(buffer); ++i) {
        const auto& at = buffer[static_cast<std::size_t>(i)];
        points.x.push_back(static_cast<double>(at.x));
        points.y.push_back(static_cast<double>(at.y));
    }
    return points;
}

bool SeenInFrame(const DiaKoord& frame, const PointBuffer& curve) {
    for (int i = 1; i <= BufferCount(curve); ++i)
        if (InFrameHeight(frame, static_cast<double>(curve[static_cast<std::size_t>(i)].y)))
            return true;
    return false;
}

void FuRegressGerade(const DiaKoord& frame, int n, const RegressionMatrix& matrix, double& a,
                     double& b, bool& outside, PointBuffer& curve) {
    const auto rightSide = static_cast<std::size_t>(n) + 1;
    a = Finite(matrix.at(1).at(rightSide));
    b = Finite(matrix.at(2).at(rightSide));
    CurveWriter writer(curve);
    const float step = ToSingle(static_cast<double>((frame.xMax - frame.xMin) / kLineSteps));
    if (!(step > 0))
        return;
    const double end = static_cast<double>(frame.xMax) + static_cast<double>(step);
    for (double x = static_cast<double>(frame.xMin); x <= end; x += static_cast<double>(step)) {
        const double y = a + b * x;
        writer.Add(x, y);
        if (y > static_cast<double>(frame.yMin) && y < static_cast<double>(frame.yMax))
            outside = false;
    }
}

CurveCalculation CalcCurve(ProjectState& ps, int kind, int slot, int steps, PointBuffer& curve) {
    CurveCalculation made;
    try {
        if (IsModelKind(kind))
            SpeciesCurve(ps, kind, slot, curve, made);
        else if (IsStraightLineKind(kind))
            StraightLine(ps, kind, curve, made);
        else if (kind == kKindSingleSpecies)
            SplineCurve(ps, steps, curve, made.outside);
        else if (kind == kKindTracer)
            TracerCurve(ps, curve, made.outside);
        else if (IsResidenceKind(kind))
            made.outside = false;
        else if (kind == kKindBloodAlcohol)
            AddArrays(ps, ps.cSimA, kBloodDensity, curve, made.outside);
        else
            made.outside = !SeenInFrame(ps.Frame, curve);
    } catch (const std::exception& error) {
        made.failed = true;
        made.note = JoinLines({error.what(), "Message from CalcCurve"});
    }
    return made;
}

void StretchToTube(const ProjectState& ps, PointBuffer& curve) {
    const auto velocity = static_cast<double>(ps.vRohr);
    for (int i = 1; i <= BufferCount(curve); ++i) {
        float& x = curve[static_cast<std::size_t>(i)].x;
        x = ToSingle(static_cast<double>(x) * velocity);
    }
}

PointBuffer WithoutPoint(const PlotSeries& series, int point) {
    PointBuffer rest(1);
    for (std::size_t i = 0; i < series.x.size(); ++i)
        if (static_cast<int>(i) + 1 != point)
            rest.push_back({static_cast<float>(series.x[i]), static_cast<float>(series.y[i])});
    rest[0].x = static_cast<float>(rest.size() - 1);
    return rest;
}

} // namespace zorvant
