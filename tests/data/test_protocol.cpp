#include "data/protocol.h"
#include "data/protocol_name.h"
#include "data/protocol_text.h"

#include "engine/reaction_catalogue.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <set>

namespace zorvant {
namespace {

/// A state whose program folder is empty and its own; it goes with the test.
struct LogState : ProjectState {
    LogState() {
        std::string name = (std::filesystem::temp_directory_path() / "zorvant_log_XXXXXX").string();
        if (mkdtemp(name.data()) != nullptr)
            ProgramDir = name;
        InitProjectState(*this);
        ProgramDir = name;
        FuMaskenSetzen(*this, ModelId);
        ProtocolFile = "first.csv";
    }
    ~LogState() { std::filesystem::remove_all(ProgramDir); }
};

void SetResult(ProjectState& ps, std::size_t row,
               std::initializer_list<std::pair<int, float>> put) {
    for (const auto& [column, value] : put)
        ps.ProtokollDaten[row][static_cast<std::size_t>(column)] = value;
}

TEST(ResultLog, FileHoldsHeadsAndTheColumnsInUse) {
    LogState ps;
    ps.TimeUnitText = "min";
    ClearProtokollDaten(ps);
    // B takes no part in A => P, whatever stands in its columns; P does, though it is 0.
    SetResult(
        ps, 0,
        {{1, 1.5F}, {2, 7.0F}, {6, 0.25F}, {9, 1.25F}, {11, 0.001F}, {14, 0.8333F}, {15, 60}});
    RecordProtocolRows(ps, false);
    SetResult(ps, 0, {{15, 1e-7F}, {20, -0.5F}});
    RecordProtocolRows(ps, false);
    EXPECT_TRUE(ps.ProtocolOpen);
    EXPECT_EQ(ps.ProtokollRows, 2);
    EXPECT_EQ(ProtocolText(ps, CalcTask::Batch, "1.2.2003"),
              "ZORVANT: Kinetics of chemical reactions\r\n"
              "Record from 1.2.2003\r\n"
              "Calculation of a Batch Reactor\r\n"
              "kinetic model: A => P   (n = 1)\r\n"
              "units: [c(i)] = mol/L   [k_1stO] = 1/min    [k_2ndO] = L/(mol min)   [U(A)] = 1    "
              "[t] = min\r\n"
              "         [l] = m     [V] = m^3     [v] = m/min    [V*} = m^3/min    "
              "[ksi()] = mol/L\r\n"
              "\r\n"
              "c_beg(A);c_beg(P);c_end(A);c_end(P);k1;U(A);t; ksi(1);\r\n"
              "1.5;0;0.25;1.25;0.001;0.8333;60;0;\r\n"
              "1.5;0;0.25;1.25;0.001;0.8333;1E-07;-0.5;\r\n");
}

TEST(ResultLog, ASeriesOfTanksAddsOneRowEach) {
    LogState ps;
    ps.NKask = 3;
    ClearProtokollDaten(ps, 3);
    for (std::size_t tank = 0; tank < 3; ++tank)
        SetResult(ps, tank, {{0, static_cast<float>(tank + 1)}});
    RecordProtocolRows(ps, true);
    ASSERT_EQ(ps.ProtokollRows, 3);
    EXPECT_EQ(ps.ProtokollTabelle[2][0], 3);
    RecordProtocolRows(ps, false);
    EXPECT_EQ(ps.ProtokollRows, 4);
    ps.NKask = 50; // changed after the calculation
    RecordProtocolRows(ps, true);
    EXPECT_EQ(ps.ProtokollRows, 7);
    ps.ProtokollDaten.clear();
    ps.NKask = -1;
    RecordProtocolRows(ps, true);
    EXPECT_EQ(ps.ProtokollRows, 8);
}

TEST(ResultLog, NeverWritesWhatIsNoNumber) {
    LogState ps;
    ClearProtokollDaten(ps);
    SetResult(ps, 0, {{1, std::nanf("")}, {15, HUGE_VALF}, {20, 1}});
    RecordProtocolRows(ps, false);
    const std::string text = ProtocolText(ps, CalcTask::Batch, "");
    EXPECT_TRUE(text.ends_with("c_beg(A);c_beg(P);c_end(A);c_end(P);t; ksi(1);\r\n;0;0;0;;1;\r\n"))
        << text;
}

TEST(ResultLog, AutomaticNamesCountTheFilesOfTheDay) {
    std::set<std::string> files;
    const auto next = [&files] {
        return NextProtocolName({2009, 3, 7},
                                [&files](const std::string& name) { return files.contains(name); });
    };
    EXPECT_EQ(next(), "09030701.CSV");
    while (files.size() < 8)
        files.insert(next());
    EXPECT_EQ(next(), "09030709.CSV");
    files.insert(next());
    EXPECT_EQ(next(), "09030710.CSV");
    files.erase("09030704.CSV");
    EXPECT_EQ(next(), "09030704.CSV");
    while (files.size() < 99)
        files.insert(next());
    EXPECT_EQ(next(), "090307100.CSV");
    EXPECT_THROW(NextProtocolName({2009, 3, 7}, [](const std::string&) { return true; }),
                 FileError);
}

TEST(ResultLog, ClosingWritesTheFileFillsTheClipboardAndBeginsANewLog) {
    LogState ps;
    ClearProtokollDaten(ps);
    SetResult(ps, 0, {{1, 2}, {15, 5}});
    RecordProtocolRows(ps, false);
    const std::string expected = ProtocolText(ps, CalcTask::Batch, "today");
    const std::string path = ProtocolPath(ps);
    EXPECT_EQ(path, JoinPath(ps.ProgramDir, "first.csv"));
    const std::string clipboard = CloseProtocol(ps, CalcTask::Batch, "today");
    EXPECT_EQ(ReadFile(path), expected);
    EXPECT_NE(clipboard.find("c_beg(A)\tc_beg(P)\t"), std::string::npos);
    EXPECT_EQ(clipboard.find(';'), std::string::npos);
    EXPECT_FALSE(ps.ProtocolOpen);
    EXPECT_EQ(ps.ProtokollRows, 0);
    EXPECT_EQ(ps.ProtocolFile, NextProtocolName(ps));
    const std::string empty = ProtocolPath(ps);
    WriteFileAtomically(empty, "");
    EXPECT_TRUE(CloseProtocol(ps, CalcTask::Batch, "today").empty()) << "nothing waits";
    EXPECT_FALSE(FileExists(empty));
}

TEST(ResultLog, AFailedWriteKeepsTheRowsThatWait) {
    LogState ps;
    ps.ProtocolFile = ps.ProgramDir + "/no/such/folder.csv";
    RecordProtocolRows(ps, false);
    EXPECT_THROW(CloseProtocol(ps, CalcTask::Batch, "today"), FileError);
    EXPECT_TRUE(ps.ProtocolOpen);
    EXPECT_EQ(ps.ProtokollRows, 1);
}

TEST(ResultLog, AnEmptyFileIsDeletedAFullOneStays) {
    LogState ps;
    const std::string path = ProtocolPath(ps);
    WriteFileAtomically(path, "");
    DeleteEmptyProtocol(ps);
    EXPECT_FALSE(FileExists(path));
    WriteFileAtomically(path, "x");
    DeleteEmptyProtocol(ps);
    EXPECT_TRUE(FileExists(path));
    ps.ProtocolFile.clear();
    DeleteEmptyProtocol(ps);
    EXPECT_TRUE(std::filesystem::is_directory(ps.ProgramDir));
}

} // namespace
} // namespace zorvant
