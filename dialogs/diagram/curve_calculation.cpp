#include "dialogs/diagram/curve_calculation.h"

#include "diagrams/straight_lines.h"
#include "dialogs/diagram/diagram_legend.h"
#include "dialogs/diagram/diagram_points.h"
#include "engine/akima_spline.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <cmath>
#include <string_view>

namespace zorvant {
namespace {

/// Steps of a straight line over the frame; more only cost time.
constexpr float kLineSteps = 120;
/// Blood serum against whole blood, g/mL: converts c into g/kg.
constexpr double kBloodDensity = 1.055;
constexpr std::string_view kSpeciesLetters = "ABCPQ";

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

std::string SpeciesLabel(const Workspace& ps, int slot, int species) {
    const std::string name = std::string("(") + SpeciesName(ps.ModelId, species) + ") ";
    if (ps.RateDiagram)
        return "r" + name;
    if (species == 1 && ps.FitMode >= kFirstTemperatureMode) {
        const auto at = static_cast<std::size_t>(slot);
        const float temperature = at < ps.Temperatures.size() ? ps.Temperatures[at] : 0;
        return "T/K = " + FormatNumber(static_cast<double>(temperature), "####,##");
    }
    return "c" + name;
}

/// Points 0..NPoints of two lists, as far as both reach.
template <class T>
void AddArrays(const Workspace& ps, const std::vector<T>& y, double divisor, PointBuffer& curve,
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

void SpeciesCurve(Workspace& ps, DiagramDocument& doc, int kind, int slot, PointBuffer& curve,
                  bool& outside) {
    const DiagramKindRow* row = FindDiagramKind(ModelOfKind(kind));
    const std::string_view sequence = row->species;
    const bool nonIsothermal = ps.FitMode >= kFirstTemperatureMode && sequence == "AP";
    const int species = nonIsothermal ? 1 : SpeciesToFetch(sequence, ps.CurvesToDraw);
    if (nonIsothermal)
        ps.CurvesToDraw = 0;
    curve.assign(1, {});
    if (species == 0)
        return;
    const bool saturation = species == 4 && ps.MMDiagram;
    if (saturation)
        outside = false;
    SetCurveLabel(doc, slot, saturation ? "" : SpeciesLabel(ps, slot, species));
    if (ps.RateDiagram || saturation)
        AddArrays(ps, rSim(ps, species), 1, curve, outside);
    else
        AddArrays(ps, cSim(ps, species), 1, curve, outside);
}

void StraightLine(Workspace& ps, DiagramDocument& doc, int kind, PointBuffer& curve, double& a,
                  double& b, float& r2, bool& outside) {
    const RegressionPoints points = CollectRegressionPoints(ps, kind);
    doc.RegressLeftOut = points.leftOut;
    if (points.leftOut > 0)
        doc.StatusBar2.toolTip = std::to_string(points.leftOut) +
                                 (points.leftOut == 1 ? " row was" : " rows were") +
                                 " left out: their logarithm or quotient does not exist";
    constexpr int kParameters = 2;
    constexpr int kLineType = 2;
    RegressionMatrix matrix;
    float sd = 0, relsd = 0;
    bool singular = false;
    FuRegression(points.RegressX, points.RegressY, points.RegressW, kParameters, kLineType, 0,
                 matrix, sd, relsd, r2, singular);
    FuRegressGerade(ps.Frame, kParameters, matrix, a, b, outside, curve);
    mnuAddPunkte_Click(ps, doc);
    const LineResult result =
        EvaluateLine(ps, kind, {.a = a, .b = b, .r2 = r2, .cA0 = points.cA0, .cB0 = points.cB0});
    if (result.storesK)
        ps.k[1] = result.k;
    doc.StatusBar2.text = result.text;
}

/// A spline through the measured points of one species, from x = 0 whatever the frame.
void SplineCurve(Workspace& ps, DiagramDocument& doc, PointBuffer& curve, bool& outside) {
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
    const float xStep = (xMax - ps.Frame.xMin) / static_cast<float>(doc.CurveSteps);
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

void TracerCurve(const Workspace& ps, PointBuffer& curve, bool& outside) {
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

bool IsResidenceKind(int kind) {
    return kind >= kKindResidenceFirst && kind <= kKindResidenceLast;
}

} // namespace

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

void CalcCurve(Workspace& ps, DiagramDocument& doc, int kind, int& slot, PointBuffer& curve,
               double& a, double& b, float& r2, std::string& note, bool& outside, bool& failed) {
    failed = false;
    note.clear();
    doc.StatusBar2.text.clear();
    doc.StatusBar2.toolTip.clear();
    doc.RegressLeftOut = 0;
    try {
        if (IsModelKind(kind))
            SpeciesCurve(ps, doc, kind, slot, curve, outside);
        else if (IsStraightLineKind(kind))
            StraightLine(ps, doc, kind, curve, a, b, r2, outside);
        else if (kind == kKindSingleSpecies)
            SplineCurve(ps, doc, curve, outside);
        else if (kind == kKindTracer)
            TracerCurve(ps, curve, outside);
        else if (IsResidenceKind(kind))
            outside = false;
        else if (kind == kKindBloodAlcohol)
            AddArrays(ps, ps.cSimA, kBloodDensity, curve, outside);
        else if (SeenInFrame(ps.Frame, curve))
            outside = false;
    } catch (const std::exception& error) {
        failed = true;
        note = JoinLines({error.what(), "Message from CalcCurve"});
    }
}

} // namespace zorvant
