#include "data/protocol.h"
#include "data/protocol_name.h"
#include "data/protocol_text.h"
#include "engine/reaction_catalogue.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace zorvant {
namespace {

class ResultLog : public testing::Test {
protected:
    ResultLog() {
        InitProjectState(ps);
        ps.ProgramDir = folder.Path();
        FuMaskenSetzen(ps, ps.ModelId);
        ps.ProtocolFile = "first.csv";
        ClearProtokollDaten(ps, 3);
    }
    void SetResult(std::size_t row, std::initializer_list<std::pair<int, float>> put) {
        for (const auto& [column, value] : put)
            ps.ProtokollDaten[row][static_cast<std::size_t>(column)] = value;
    }

    TempFolder folder;
    ProjectState ps;
};

TEST_F(ResultLog, FileHoldsHeadsAndTheColumnsInUse) {
    ps.TimeUnitText = "min";
    // B takes no part in A => P, whatever stands in its columns; P does, though it is 0.
    SetResult(
        0, {{1, 1.5F}, {2, 7.0F}, {6, 0.25F}, {9, 1.25F}, {11, 0.001F}, {14, 0.8333F}, {15, 60}});
    RecordProtocolRows(ps, false);
    SetResult(0, {{1, std::nanf("")}, {15, 1e-7F}, {20, -0.5F}}); // what is no number stays empty
    RecordProtocolRows(ps, false);
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
              ";0;0.25;1.25;0.001;0.8333;1E-07;-0.5;\r\n");
}

TEST_F(ResultLog, ASeriesOfTanksAddsOneRowEach) {
    int rows = 0;
    for (const auto& [tanks, series, added] :
         {std::tuple{3, true, 3}, {3, false, 1}, {50, true, 3}, {-1, true, 1}}) {
        ps.NKask = tanks; // may have changed after the calculation
        RecordProtocolRows(ps, series);
        EXPECT_EQ(ps.ProtokollRows, rows += added) << tanks;
    }
}

TEST_F(ResultLog, AutomaticNamesCountTheFilesOfTheDay) {
    std::set<std::string> files;
    const auto next = [&files] {
        return NextProtocolName({2009, 3, 7},
                                [&files](const std::string& name) { return files.contains(name); });
    };
    for (const auto& [present, name] :
         {std::pair{0, "09030701.CSV"}, {9, "09030710.CSV"}, {99, "090307100.CSV"}}) {
        while (files.size() < static_cast<std::size_t>(present))
            files.insert(next());
        EXPECT_EQ(next(), name);
    }
    files.erase("09030704.CSV");
    EXPECT_EQ(next(), "09030704.CSV");
    EXPECT_THROW(NextProtocolName({2009, 3, 7}, [](const std::string&) { return true; }),
                 FileError);
}

TEST_F(ResultLog, ClosingWritesTheFileFillsTheClipboardAndBeginsANewLog) {
    SetResult(0, {{1, 2}, {15, 5}});
    RecordProtocolRows(ps, false);
    ps.ProtocolFile = folder / "no/such/folder.csv";
    EXPECT_THROW(CloseProtocol(ps, CalcTask::Batch, "today"), FileError);
    EXPECT_TRUE(ps.ProtocolOpen); // the rows still wait
    EXPECT_EQ(ps.ProtokollRows, 1);
    ps.ProtocolFile = "first.csv";
    const std::string expected = ProtocolText(ps, CalcTask::Batch, "today");
    const std::string clipboard = CloseProtocol(ps, CalcTask::Batch, "today");
    EXPECT_EQ(ReadFile(folder / "first.csv"), expected);
    EXPECT_THAT(clipboard, testing::HasSubstr("c_beg(A)\tc_beg(P)\t"));
    EXPECT_THAT(clipboard, testing::Not(testing::HasSubstr(";")));
    EXPECT_FALSE(ps.ProtocolOpen);
    EXPECT_EQ(ps.ProtokollRows, 0);
    const std::string empty = ProtocolPath(ps); // the next one's
    EXPECT_NE(empty, folder / "first.csv");
    WriteFileAtomically(empty, "");
    EXPECT_TRUE(CloseProtocol(ps, CalcTask::Batch, "today").empty()) << "nothing waits";
    EXPECT_FALSE(FileExists(empty));
}

TEST_F(ResultLog, AnEmptyFileIsDeletedAFullOneStays) {
    for (const bool full : {false, true}) {
        WriteFileAtomically(ProtocolPath(ps), full ? "x" : "");
        DeleteEmptyProtocol(ps);
        EXPECT_EQ(FileExists(ProtocolPath(ps)), full);
    }
    ps.ProtocolFile.clear();
    DeleteEmptyProtocol(ps);
    EXPECT_TRUE(FileExists(folder.Path()));
}

} // namespace
} // namespace zorvant
