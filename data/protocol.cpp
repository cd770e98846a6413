#include "data/protocol.h"

#include "engine/reaction_catalogue.h"
#include "platform/files.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>

namespace zorvant {

namespace {

/// Files of one day; whoever has so many finds the search slow first.
constexpr int kLastNumber = 99999;

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

int SeparatorEntry(const ProjectState& ps) {
    for (std::size_t i = 0; i < kProtocolSeparators.size(); ++i)
        if (ps.CsvSep == kProtocolSeparators[i].text)
            return static_cast<int>(i);
    return 0;
}

std::optional<MessageBox> CheckSeparator(const ProjectState& ps) {
    if (ps.CsvSep != "," || !ps.DecimalComma)
        return std::nullopt;
    return MessageBox{"for computer setting \"Germany\" (decimal character = Comma), \r\n"
                      "\"comma\" as delimiter character is not suitable; the clibpoard\r\n"
                      "content will be not Excel-compatible\r\n"
                      "semicolon recommended",
                      "WARNING", Icon::Warning};
}

void ClearProtokollDaten(ProjectState& ps, int rows) {
    ps.ProtokollDaten.assign(static_cast<std::size_t>(std::max(rows, 1)), ProtocolRow{});
}

void RecordProtocolRows(ProjectState& ps, bool series) {
    if (ps.ProtokollDaten.empty())
        ClearProtokollDaten(ps);
    const std::size_t wanted = series ? static_cast<std::size_t>(std::max(ps.NKask, 1)) : 1;
    const std::size_t taken = std::min(wanted, ps.ProtokollDaten.size());
    ps.ProtocolOpen = true;
    ps.ProtokollTabelle.insert(ps.ProtokollTabelle.end(), ps.ProtokollDaten.begin(),
                               ps.ProtokollDaten.begin() + static_cast<std::ptrdiff_t>(taken));
    ps.ProtokollRows = static_cast<int>(ps.ProtokollTabelle.size());
}

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

std::string ProtocolPath(const ProjectState& ps) {
    if (ps.ProtocolFile.find_first_of("\\/") != std::string::npos)
        return ps.ProtocolFile;
    return JoinPath(ps.ProgramDir, ps.ProtocolFile);
}

CalendarDay Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::string NextProtocolName(const CalendarDay& day,
                             const std::function<bool(const std::string&)>& exists) {
    for (int n = 1; n <= kLastNumber; ++n) {
        char name[64];
        std::snprintf(name, sizeof name, "%02d%02d%02d%02d.CSV", day.year % 100, day.month, day.day,
                      n);
        if (!exists(name))
            return name;
    }
    throw FileError("No free name for a protocol file.");
}

std::string NextProtocolName(const ProjectState& ps) {
    return NextProtocolName(Today(), [&ps](const std::string& name) {
        return FileExists(JoinPath(ps.ProgramDir, name));
    });
}

std::string CloseProtocol(ProjectState& ps, CalcTask caller, std::string_view date) {
    const std::string path = ProtocolPath(ps);
    if (ps.ProtocolOpen)
        WriteFileAtomically(path, EncodeText(ProtocolText(ps, caller, date)));
    DeleteEmptyProtocol(ps);
    std::string text;
    if (!ps.ProtocolFile.empty() && FileExists(path))
        text = ProtocolClipboardText(DecodeText(ReadFile(path)), ps.CsvSep);
    ps.ProtocolFile = NextProtocolName(ps);
    ps.ProtocolOpen = false;
    ps.ProtokollTabelle.clear();
    ps.ProtokollRows = 0;
    return text;
}

void DeleteEmptyProtocol(const ProjectState& ps) {
    if (ps.ProtocolFile.empty())
        return;
    std::error_code failed;
    const std::filesystem::path path(ProtocolPath(ps));
    if (std::filesystem::is_regular_file(path, failed) &&
        std::filesystem::file_size(path, failed) == 0 && !failed)
        std::filesystem::remove(path, failed);
}

} // namespace zorvant
