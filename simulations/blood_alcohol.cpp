#include "simulations/blood_alcohol.h"

#include "engine/arithmetic.h"
#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace zorvant {

namespace {

constexpr double kEthanolDensity = 0.789; ///< g/mL at 20 degrees C
constexpr double kMinutesPerHour = 60;
constexpr std::int32_t kMinutesPerDay = 1440;
/// Drink times beyond it (16-bit numbers) are cut; the table ends at 999 anyway.
constexpr std::int64_t kLargestTime = 32767;

constexpr float kStandardBodyMass = 73; ///< kg
constexpr float kStandardMen = 0.7F;    ///< L/kg
constexpr float kStandardWomen = 0.6F;  ///< L/kg
constexpr float kStandardAbs = 5;       ///< 1/h
constexpr int kStandardDeficit = 20;    ///< percent
constexpr float kStandardBeta = 0.15F;  ///< g/(L h)
constexpr float kStandardTimeMax = 600; ///< min
constexpr float kFirstVolume = 500;     ///< mL
constexpr float kFirstContent = 5;      ///< percent

constexpr const char* kNotPossible = "Execution not possible";

int WholeNumber(double value) {
    return static_cast<int>(std::clamp(RoundHalfEven(value), -kLargestTime - 1, kLargestTime));
}

std::size_t Row(int i) {
    if (i < 1 || i > kDrinks)
        throw std::out_of_range("drinks are counted from 1 to 8");
    return static_cast<std::size_t>(i);
}

/// Any drink beyond the table keeps it uncorrected.
bool HasDrinkBeyondTable(const ProjectState& ps) {
    return std::any_of(ps.DrinkTime.begin() + 1, ps.DrinkTime.end(),
                       [](int time) { return time > kBacMinutes; });
}

using BacValues = std::array<float, kBacMinutes + 1>;

/// Lifts what lies behind each drink that would begin below zero, and clears what is negative.
void CorrectBac(const ProjectState& ps, BacValues& bac, int N) {
    const auto value = [&bac](int t) -> float& { return bac[static_cast<std::size_t>(t)]; };
    int lastDrink = 0;
    for (int i = 1; i <= kDrinks; ++i)
        if (ps.AlcMass[Row(i)] > 0)
            lastDrink = i;
    for (int j = 2; j <= kDrinks; ++j) {
        const int start = ps.DrinkTime[Row(j)];
        if (!(ps.AlcMass[Row(j)] > 0) || start < 0 || start > N || !(value(start) < 0))
            continue;
        const float lift = -value(start);
        for (int t = start; t <= N; ++t)
            value(t) += lift;
        for (int t = start; t >= std::max(ps.DrinkTime[Row(j - 1)], 0); --t)
            value(t) = std::max(value(t), 0.0F);
    }
    // The bound is the number of the row, not its time: the curve cannot be below zero before.
    for (int t = N; t >= lastDrink; --t)
        value(t) = std::max(value(t), 0.0F);
}

/// A parameter and the range that it must keep.
struct BacRule {
    std::optional<BacPerson> person; ///< only for this group
    float lower, upper;
    float (*value)(const ProjectState&);
    void (*reset)(ProjectState&);
    const char* message;
    const char* standard;
    BacQuantity quantity;
};

constexpr auto kWidmarkOf = [](const ProjectState& ps) { return ps.rWidmark; };

const std::array<BacRule, 5>& BacRules() {
    static const std::array<BacRule, 5> kRules{
        {{BacPerson::Men, 0.68F, 0.8F, kWidmarkOf,
          [](ProjectState& ps) { ps.rWidmark = kStandardMen; },
          "WIDMARK factor r outside the valid range for men:\r\n0,68 <= r <= 0,8\r\n\r\n"
          "parameter is set to standard value",
          "0.7", BacQuantity::Widmark},
         {BacPerson::Women, 0.5F, 0.6F, kWidmarkOf,
          [](ProjectState& ps) { ps.rWidmark = kStandardWomen; },
          "WIDMARK factor r outside the valid range for women:\r\n\r\n0,5 <= r <= 0,6\r\n\r\n"
          "parameter is set to standard value",
          "0.6", BacQuantity::Widmark},
         {std::nullopt, 10, 30,
          [](const ProjectState& ps) { return static_cast<float>(ps.AbsDeficit); },
          [](ProjectState& ps) { ps.AbsDeficit = kStandardDeficit; },
          "Absorption deficit AD outside the valid range:\r\n10 % <= AD <= 30 %\r\n\r\n"
          "parameter is set to standard value",
          "20", BacQuantity::AbsDeficit},
         {std::nullopt, 0.1F, 0.2F, [](const ProjectState& ps) { return ps.beta60; },
          [](ProjectState& ps) { ps.beta60 = kStandardBeta; },
          "rate const. of eliminination beta60 outside the valid range:\r\n0.1 <= beta60 <= 0.2"
          "\r\n\r\nparameter is set to standard value",
          "0.15", BacQuantity::Beta60},
         {std::nullopt, 2, 20, [](const ProjectState& ps) { return ps.kAbs; },
          [](ProjectState& ps) { ps.kAbs = kStandardAbs; },
          "rate const. of absorption k(abs) outside the valid range:\r\n2 <= k(abs) <= 20\r\n\r\n"
          "parameter is set to standard value",
          "5", BacQuantity::Absorption}}};
    return kRules;
}

} // namespace

float FuBacAtTime(int t, float BodyMass, const PerDrink<float>& AlcMass,
                  const PerDrink<int>& DrinkTime, float kAbs, int AbsDeficit, float rWidmark,
                  float beta60) {
    const double distribution = static_cast<double>(BodyMass) * rWidmark; // m r, L
    double sum = 0;
    for (std::size_t i = 1; i <= kDrinks; ++i) {
        const int dt = t - DrinkTime[i];
        if (!(AlcMass[i] > 0) || DrinkTime[i] < 0 || dt <= 0)
            continue;
        sum += Divide(AlcMass[i], distribution) *
               (1 - CheckedExp(-static_cast<double>(kAbs) * dt / kMinutesPerHour));
    }
    sum *= (100.0 - AbsDeficit) / 100;
    return ToSingle(sum - t * static_cast<double>(beta60) / kMinutesPerHour);
}

void FuBacCurve(ProjectState& ps, int N) {
    const int end = std::clamp(N, 0, kBacMinutes);
    BacValues bac = ps.BacTable;
    bool belowZero = false;
    for (int t = 0; t <= end; ++t) {
        const float value = FuBacAtTime(t, ps.BodyMass, ps.AlcMass, ps.DrinkTime, ps.kAbs,
                                        ps.AbsDeficit, ps.rWidmark, ps.beta60);
        bac[static_cast<std::size_t>(t)] = value;
        belowZero = belowZero || value < 0;
    }
    if (belowZero && !HasDrinkBeyondTable(ps))
        CorrectBac(ps, bac, end);
    ps.BacTable = bac;
}

void ConnectBloodAlcohol(ProjectState& ps) {
    ps.BacCurve = [&ps](int N) {
        FuBacCurve(ps, N);
        const auto points = std::clamp(N, 0, kBacMinutes) + 1;
        return std::vector<float>(ps.BacTable.begin(), ps.BacTable.begin() + points);
    };
}

float AlcMassOf(double volume, double content) {
    if (!(volume > 0) || !(content > 0))
        return 0;
    return NearestSingle(volume * content * kEthanolDensity / 100);
}

void SetGlassVolume(ProjectState& ps, int i, double volume) {
    const std::size_t row = Row(i);
    ps.GlassVolume[row] = NearestSingle(volume);
    if (ps.GlassVolume[row] == 0) {
        ps.AlcContent[row] = 0;
        ps.DrinkHour[row] = ps.DrinkMinute[row] = kNoClock;
        ps.DrinkTime[row] = -1;
    } else if (row == 1 && ps.DrinkTime[row] < 0) {
        ps.DrinkTime[row] = 0;
    }
    ps.AlcMass[row] = AlcMassOf(ps.GlassVolume[row], ps.AlcContent[row]);
}

void SetAlcContent(ProjectState& ps, int i, double content) {
    const std::size_t row = Row(i);
    ps.AlcContent[row] = content > 100 ? 0 : NearestSingle(content);
    ps.AlcMass[row] = AlcMassOf(ps.GlassVolume[row], ps.AlcContent[row]);
}

std::string AlcMassText(float mass) {
    return FormatNumber(mass, "##0.0#");
}

void FuDrinkClock(ProjectState& ps, DrinkClocks& rows, int i) {
    const std::size_t row = Row(i);
    if (rows.txt_h[row] == kNoClock) {
        rows.txtStartZeit[row].clear();
        ps.DrinkTime[row] = -1;
        return;
    }
    if (rows.txt_m[row] == kNoClock)
        rows.txt_m[row] = "00";
    rows.clock[row] = WholeNumber(Val(rows.txt_h[row])) * 60 + WholeNumber(Val(rows.txt_m[row]));
    int time = rows.clock[row] - rows.clock[1];
    if (time < 0)
        time += kMinutesPerDay;
    ps.DrinkTime[row] = WholeNumber(time);
    ps.DrinkHour[row] = rows.txt_h[row];
    ps.DrinkMinute[row] = rows.txt_m[row];
    rows.txtStartZeit[row] = PlainText(ps.DrinkTime[row]);
}

int DrinkTimeOf(std::string_view text) {
    return text.empty() ? -1 : WholeNumber(Val(text));
}

void SetAbsDeficit(ProjectState& ps, double percent) {
    ps.AbsDeficit = WholeNumber(percent);
}

void SetBacTimeMax(ProjectState& ps, double minutes) {
    ps.BacTimeMax = static_cast<float>(std::clamp(WholeNumber(minutes), 0, kBacMinutes));
}

bool FuCheckBacParameters(ProjectState& ps, BacPerson person, BacFailure& failure) {
    for (const BacRule& rule : BacRules()) {
        if (rule.person && *rule.person != person)
            continue;
        const float value = rule.value(ps);
        if (value >= rule.lower && value <= rule.upper)
            continue;
        rule.reset(ps);
        failure.message = MessageBox{rule.message, kNotPossible, Icon::Critical};
        failure.quantity = rule.quantity;
        failure.standard = rule.standard;
        return false;
    }
    return true;
}

std::optional<BacFailure> CheckBacDrawing(const ProjectState& ps) {
    const bool hasMass = ps.BodyMass > 0 && std::isfinite(ps.BodyMass);
    if (hasMass && ps.BacTimeMax >= 1)
        return std::nullopt;
    BacFailure failure;
    failure.message = MessageBox{"no valid input", kNotPossible, Icon::Critical};
    failure.quantity = hasMass ? BacQuantity::TimeMax : BacQuantity::BodyMass;
    return failure;
}

void SetBAKStandard(ProjectState& ps, BacPerson person) {
    ps.kAbs = kStandardAbs;
    ps.AbsDeficit = kStandardDeficit;
    ps.beta60 = kStandardBeta;
    ps.rWidmark = StandardWidmark(person);
}

float StandardWidmark(BacPerson person) {
    return person == BacPerson::Women ? kStandardWomen : kStandardMen;
}

BacPerson PrepareBacState(ProjectState& ps) {
    const bool men = ps.rWidmark == 0 || ps.rWidmark == kStandardMen;
    const BacPerson person = men ? BacPerson::Men : BacPerson::Women;
    ps.rWidmark = StandardWidmark(person);
    const auto preset = [](auto& field, auto standard) {
        if (!(field > 0))
            field = standard;
    };
    preset(ps.BodyMass, kStandardBodyMass);
    preset(ps.AbsDeficit, kStandardDeficit);
    preset(ps.kAbs, kStandardAbs);
    preset(ps.beta60, kStandardBeta);
    preset(ps.BacTimeMax, kStandardTimeMax);
    preset(ps.GlassVolume[1], kFirstVolume);
    preset(ps.AlcContent[1], kFirstContent);
    for (int i = 1; i <= kDrinks; ++i)
        SetGlassVolume(ps, i, std::max(ps.GlassVolume[Row(i)], 0.0F));
    ps.DrinkTime[1] = 0;
    return person;
}

MessageBox BacLegalNote() {
    return {"This calculation gives only approximate values.\r\n"
            "Individual particularities can lead to significant deviations from this.\r\n\r\n"
            "THESE CALCULATION RESULTS ARE NOT LEGALLY RELEVANT.\r\n",
            "Legal note", Icon::Warning};
}

} // namespace zorvant
