#include "data/protocol_text.h"

#include "data/protocol.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <array>

namespace zorvant {
namespace {

constexpr std::array<const char*, kProtocolColumns> kHeads{
    "no. casc", "c_beg(A)", "c_beg(B)", "c_beg(C)", "c_beg(P)",  " c_beg(Q)",
    "c_end(A)", "c_end(B)", "c_end(C)", "c_end(P)", " c_end(Q)", "k1",
    " k2",      " k3",      "U(A)",     "t",        " l",        " V",
    " V*",      "v",        " ksi(1)",  " ksi(2)"};

/// The line that names the reactor; nothing for a dialog that is none.
const char* ReactorLine(CalcTask caller) {
    switch (caller) {
    case CalcTask::Cstr:
        return "Calculation of a Continuous Stirred Tank Reactor (CSTR)";
    case CalcTask::Batch:
        return "Calculation of a Batch Reactor";
    case CalcTask::Tubular:
        return "Calculation of a Tubular Flow Reactor (TFR)";
    case CalcTask::Cascade:
        return "Calculation of a Stirred Tank-in-series Reactor";
    case CalcTask::None:
    case CalcTask::TimeDiagram:
    case CalcTask::Fitting:
        break;
    }
    return nullptr;
}

using ColumnsInUse = std::array<bool, kProtocolColumns>;

ColumnsInUse FindColumnsInUse(const ProjectState& ps) {
    ColumnsInUse inUse{};
    for (std::size_t column = 0; column < kProtocolColumns; ++column) {
        const int slot =
            static_cast<int>(column) - (column >= kFinalColumn ? kFinalColumn : kInitialColumn) + 1;
        if (column >= kInitialColumn && column < kConstantColumn) {
            inUse[column] = InMask(ps.SpeciesMask, slot);
            continue;
        }
        double sum = 0;
        for (const ProtocolRow& row : ps.ProtokollTabelle)
            sum += static_cast<double>(row[column]);
        inUse[column] = sum != 0;
    }
    return inUse;
}

} // namespace

std::string ProtocolText(const ProjectState& ps, CalcTask caller, std::string_view date) {
    const std::string& unit = ps.TimeUnitText;
    std::string text = "ZORVANT: Kinetics of chemical reactions";
    text.append(kCrLf).append("Record from ").append(date).append(kCrLf);
    if (const char* reactor = ReactorLine(caller))
        text.append(reactor).append(kCrLf);
    text += "kinetic model: " + ModelNameText(ps, ps.ModelId) + kCrLf;
    text += "units: [c(i)] = mol/L   [k_1stO] = 1/" + unit + "    [k_2ndO] = L/(mol " + unit +
            ")   [U(A)] = 1    [t] = " + unit;
    if (caller == CalcTask::Cascade)
        text += "  (time in each tank)";
    text += kCrLf;
    text += "         [l] = m     [V] = m^3     [v] = m/" + unit + "    [V*} = m^3/" + unit +
            "    [ksi()] = mol/L" + kCrLf + kCrLf;

    const ColumnsInUse inUse = FindColumnsInUse(ps);
    const auto appendLine = [&](const auto& field) {
        for (std::size_t column = 0; column < kProtocolColumns; ++column)
            if (inUse[column])
                text.append(field(column)).append(ps.CsvSep);
        text += kCrLf;
    };
    appendLine([](std::size_t column) { return std::string(kHeads[column]); });
    for (const ProtocolRow& row : ps.ProtokollTabelle)
        appendLine(
            [&row](std::size_t column) { return SingleText(static_cast<double>(row[column])); });
    return text;
}

std::string ProtocolClipboardText(std::string fileText, std::string_view separator) {
    if (separator.empty())
        return fileText;
    for (std::size_t at = fileText.find(separator); at != std::string::npos;
         at = fileText.find(separator, at + 1))
        fileText.replace(at, separator.size(), "\t");
    return fileText;
}

} // namespace zorvant
