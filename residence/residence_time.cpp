// The tanks-in-series distributions are Poisson terms in y = N t/tm:
//     E tm = N p(N-1; y),   1 - F = sum(p(i; y), i = 0..N-1),   p(i; y) = y^i exp(-y) / i!
// A term is formed once through logarithms, where neither y^i nor i! can overflow, and its
// neighbours follow by multiplication, on the side where they decline.
#include "residence/residence_time.h"

#include "engine/arithmetic.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zorvant {

namespace {

/// Intervals of a drawn curve.
constexpr int kCurveSteps = 150;
/// End of a curve in a diagram without limits, in mean residence times: E of one tank has fallen
/// to exp(-6) there.
constexpr double kDefaultEnd = 6;
/// Size of an empty buffer of curves.
constexpr std::size_t kBufferPoints = 2000;
/// A term below this part of the sum no longer changes it.
constexpr double kNegligible = 1e-17;

constexpr const char* kWarning = "WARNING";
constexpr const char* kOutsideText =
    "curve outside the diagram limits\r\nenlarge the diagram coordinates\r\n"
    "(button \"coordinates\" in the graph menue or right-click on the diagram)";

/// p(n; y), for y >= 0. The error grows with the size of the logarithms: 1e-13 at n = 120.
double PoissonTerm(double n, double y) {
    if (y == 0)
        return n == 0 ? 1 : 0; // 0^0 counts as 1
    return std::exp(n * std::log(y) - y - std::lgamma(n + 1));
}

/// F as a function of y: from the terms above N - 1 where they decline upward, so that the small
/// beginnings of F keep their digits, else from those below N.
double SumTanks(double y, double N) {
    if (y < N) {
        double term = PoissonTerm(N, y);
        double sum = term;
        for (double i = N + 1; term > kNegligible * sum; ++i) {
            term *= y / i;
            sum += term;
        }
        return std::min(sum, 1.0);
    }
    double term = PoissonTerm(N - 1, y);
    double sum = term;
    for (double i = N - 1; i > 0 && term > kNegligible * sum; --i) {
        term *= i / y;
        sum += term;
    }
    return 1 - sum;
}

/// t in units of the residence time ti of one tank, or nothing where there is no such number.
std::optional<double> InTankTimes(double t, int N, double ti) {
    if (N < 1 || !(ti > 0) || !std::isfinite(ti))
        return std::nullopt;
    const double y = t / ti;
    if (!std::isfinite(y))
        return std::nullopt;
    return y;
}

/// Sets err and gives 0 when a value does not exist or is not finite.
double Checked(std::optional<double> value, bool& err) {
    err = !value || !std::isfinite(*value);
    return err ? 0 : *value;
}

double FOfTanks(double t, int N, double tm, bool& err) {
    const std::optional<double> y = InTankTimes(t, N, tm / N);
    if (!y)
        return Checked(std::nullopt, err);
    return Checked(*y > 0 ? SumTanks(*y, N) : 0, err);
}

TmField FormTm(VerweilInput& input) {
    // The quotient of two Singles is a Single: 0.05/0.004 is 12.5, as on paper.
    const float tm = static_cast<float>(static_cast<double>(input.VRVerweil) / input.VPunktVerweil);
    if (!std::isfinite(tm))
        return TmField::Emptied;
    input.tmVerweil = tm;
    return TmField::Shown;
}

using Distribution = double (*)(double t, int N, double tm, bool& err);

struct CurveRecipe {
    Distribution overTime;
    Distribution overTheta;
    const char* overflowText;
    bool warnOutside;
};
constexpr CurveRecipe kRecipeE{EtKessel, EThetaKessel,
                               "Overflow\r\n\r\n... but the calculated parts of the curve will be "
                               "drawn",
                               true};
constexpr CurveRecipe kRecipeF{FtKessel, FThetaKessel,
                               "Overflow\r\n\r\n(the calculated parts of the curve will be drawn)",
                               false};

bool IsInside(const DiaKoord& frame, const CurvePoint& point) {
    return point.x > frame.xMin && point.x < frame.xMax && point.y > frame.yMin &&
           point.y < frame.yMax;
}

void Tell(VerweilCurve& curve, const char* text, Icon icon) {
    MessageBox& box = curve.messages.emplace_back();
    box.text = text;
    box.title = kWarning;
    box.icon = icon;
}

VerweilCurve DrawDistribution(ProjectState& ps, const VerweilInput& input,
                              const CurveRecipe& recipe) {
    const double tm = input.tmVerweil;
    const double xMax = ps.Frame.xMax;
    double tEnd = kDefaultEnd * tm;
    if (xMax != 0)
        tEnd = input.xAchseZeit ? xMax : xMax * tm;
    const Distribution value = input.xAchseZeit ? recipe.overTime : recipe.overTheta;

    VerweilCurve result;
    result.outside = recipe.warnOutside;
    ClearCurveBuf(ps);
    int count = 0;
    for (int i = 0; i <= kCurveSteps; ++i) {
        const double t = tEnd * i / kCurveSteps;
        const double y = value(t, ps.NVerweil, tm, result.overflow);
        const CurvePoint point{NearestSingle(input.xAchseZeit ? t : t / tm), static_cast<float>(y)};
        result.overflow = result.overflow || !std::isfinite(point.y);
        if (result.overflow)
            break;
        ps.CurveBuf[static_cast<std::size_t>(++count)] = point;
        if (IsInside(ps.Frame, point))
            result.outside = false;
    }
    ps.CurveBuf[0].x = static_cast<float>(count);
    ps.CurvesToDraw = 1;

    if (result.overflow)
        Tell(result, recipe.overflowText, Icon::Critical);
    if (result.outside)
        Tell(result, kOutsideText, Icon::Warning);
    return result;
}

} // namespace

double Fakultaet(int n) {
    if (n < 0)
        return -1;
    double product = 1;
    for (int i = 2; i <= n; ++i) {
        product *= i;
        if (!std::isfinite(product))
            return -1;
    }
    return product;
}

double EtKessel(double t, int N, double tm, bool& err) {
    const double ti = static_cast<float>(tm / N);
    const std::optional<double> y = InTankTimes(t, N, ti);
    if (!y)
        return Checked(std::nullopt, err);
    return Checked(*y < 0 ? 0 : PoissonTerm(N - 1, *y) / ti, err);
}

double EThetaKessel(double t, int N, double tm, bool& err) {
    const std::optional<double> y = InTankTimes(t, N, tm / N);
    if (!y)
        return Checked(std::nullopt, err);
    return Checked(*y < 0 ? 0 : N * PoissonTerm(N - 1, *y), err);
}

double FtKessel(double t, int N, double tm, bool& err) {
    return FOfTanks(t, N, tm, err);
}

double FThetaKessel(double t, int N, double tm, bool& err) {
    return FOfTanks(t, N, tm, err);
}

TmField SetVRVerweil(VerweilInput& input, double volume) {
    input.VRVerweil = NearestSingle(volume);
    return input.VPunktVerweil > 0 ? FormTm(input) : TmField::Emptied;
}

TmField SetVPunktVerweil(VerweilInput& input, double flow) {
    input.VPunktVerweil = NearestSingle(flow);
    if (!(input.VPunktVerweil > 0))
        return TmField::Emptied;
    return input.VRVerweil > 0 ? FormTm(input) : TmField::Unchanged;
}

TankNumber ReadNVerweil(std::string_view text) {
    return ReadTankNumber(text, kMaxTanks, "N has to be between 1 and 120. ");
}

int EtDiagramKind(const VerweilInput& input) {
    return input.xAchseZeit ? 112 : 113;
}

int FtDiagramKind(const VerweilInput& input) {
    return input.xAchseZeit ? 114 : 115;
}

VerweilCurve Berechne_EtKurve(ProjectState& ps, const VerweilInput& input) {
    return DrawDistribution(ps, input, kRecipeE);
}

VerweilCurve Berechne_FtKurve(ProjectState& ps, const VerweilInput& input) {
    return DrawDistribution(ps, input, kRecipeF);
}

void ClearCurveBuf(ProjectState& ps) {
    ps.CurveBuf.assign(kBufferPoints, CurvePoint{});
}

} // namespace zorvant
