// What both editors of lists do alike, told once and done with each: type, paste, mark, sort,
// remove, copy, take back.
#include "tests/dialogs/data/list_user.h"

namespace zorvant {
namespace {

using testing::HasSubstr;
using Numbers = std::vector<std::vector<double>>;

class BothEditors : public testing::TestWithParam<ListKind>, public ListUser {
protected:
    BothEditors() : ListUser(GetParam()) { bench.Show(list); }
    /// All rows: first two values and the mark.
    Numbers Rows() const {
        Numbers rows;
        for (int row = 1; row <= list.Rows(); ++row)
            rows.push_back({list.Value(row, 0), list.Value(row, 1), list.Value(row, list.Mark())});
        return rows;
    }
};

TEST_P(BothEditors, TakeEveryChangeBackAndMakeItAgain) {
    std::vector<Numbers> states{Rows()};
    const auto expect = [&](const std::string& name, const Numbers& rows) {
        EXPECT_EQ(Rows(), rows) << name;
        EXPECT_EQ(list.cmdUndo.text, "Undo " + name);
        states.push_back(rows);
    };
    EXPECT_EQ(Cell(0, 2), "empty list");
    TypeLine({"2", "4,5"});
    expect("input of line 1", {{2, 4.5, 0}});
    EXPECT_EQ(list.lblZeile.text, "line 2");
    Paste("3\t0.25\n1\t8\n5\t5\n"); // from the cursor on, which stands on the new line
    expect("pasting", {{3, .25, 0}, {1, 8, 0}, {5, 5, 0}});
    EXPECT_TRUE(list.EditMode);
    Select(1, 1);
    EXPECT_EQ(list.lblZeile.text, "line 2");
    Press(list.cmdAus);
    expect("switching of line 2", {{3, .25, 0}, {1, 8, -1}, {5, 5, 0}});
    SortRows(list, 0);
    expect("sorting", {{1, 8, -1}, {3, .25, 0}, {5, 5, 0}});
    EXPECT_EQ(Cell(0, 1), "-1");
    Edit(0, 1, "0");
    expect("switching of line 1", {{1, 8, 0}, {3, .25, 0}, {5, 5, 0}});
    Select(1, 1);
    Edit(1, 3, "2,5");
    expect("entry in line 2", {{1, 8, 0}, {3, 2.5, 0}, {5, 5, 0}});
    EXPECT_EQ(list.boxes[1]->text, " 2.5");
    bench.Retype(*list.boxes[0], "7");
    Press(list.OKinput);
    expect("editing of line 2", {{1, 8, 0}, {7, 2.5, 0}, {5, 5, 0}});
    Select(0, 1, 3, 3);
    Key(kKeyDel);
    expect("setting cells to 0", {{1, 0, 0}, {7, 0, 0}, {5, 5, 0}});
    Select(0, 1);
    bench.host.answers = {Answer::No, Answer::Yes};
    Press(list.cmdErase);
    EXPECT_EQ(list.Rows(), 3);
    Press(list.cmdErase);
    EXPECT_THAT(Box().text, testing::StartsWith("lines 1 to 2 "));
    expect("removing", {{5, 5, 0}});
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = states.size() - 1; i-- > 0;) {
            Press(list.cmdUndo);
            EXPECT_EQ(Rows(), states[i]) << i;
        }
        EXPECT_FALSE(list.cmdUndo.enabled);
        EXPECT_FALSE(ps.ExpDataChanged || points.XYChanged); // as it was opened
        for (std::size_t i = 1; i < states.size(); ++i) {
            Press(list.cmdRedo);
            EXPECT_EQ(Rows(), states[i]) << i;
        }
        EXPECT_FALSE(list.cmdRedo.enabled);
    }
    Press(list.cmdUndo);
    Press(list.optInputMode, 0);
    TypeLine({"6"}); // what had been taken back is forgotten
    EXPECT_FALSE(list.cmdRedo.enabled);
}

TEST_P(BothEditors, KeepAHundredSteps) {
    for (int i = 1; i <= 130; ++i)
        TypeLine({std::to_string(i)});
    int steps = 0;
    for (; list.cmdUndo.enabled && steps < 1000; ++steps)
        Press(list.cmdUndo);
    EXPECT_GE(steps, 100);
    EXPECT_EQ(list.Rows(), 130 - steps);
}

TEST_P(BothEditors, LetOnlyNumbersThroughAndTakeTheLineWithPlus) {
    Type(*list.boxes[0], "2x+"); // "+" takes the line, but not behind an exponent's E
    EXPECT_EQ(list.Value(1, 0), 2);
    Type(*list.boxes[0], "2E+1");
    EXPECT_EQ(list.Rows(), 1);
    Type(*list.boxes[0], "\r");
    EXPECT_EQ(list.setFocus, list.boxes[1]);
    Type(*list.boxes.back(), "\r");
    EXPECT_EQ(list.Value(2, 0), 20);
    for (const bool comma : {false, true}) {
        ps.DecimalComma = comma;
        for (const int key : {'.', ','})
            EXPECT_EQ(Key(key), comma ? ',' : '.');
    }
    EXPECT_EQ(Key('x'), 0);
    EXPECT_EQ(Key('7'), '7');
}

TEST_P(BothEditors, CopyWhatPastesBackUnchanged) {
    Paste("0.1\t1E-7\n3.333333\t-12345678\n");
    Select(0, 1);
    EXPECT_EQ(Key(kKeyCopy), 0);
    const std::string copied = bench.host.clipboard.value();
    const Numbers before = Rows();
    Select(1, 1, 0, 0); // two rows from the last one on: the list grows by one
    Paste(copied);
    EXPECT_EQ(Rows(), (Numbers{before[0], before[0], before[1]}));
    Select(1, 2);
    Key(kKeyCopy);
    EXPECT_EQ(bench.host.clipboard, copied);
}

TEST_P(BothEditors, CopyWithTheSystemsDecimalSign) {
    ps.DecimalComma = true;
    bench.host.answers = {Answer::No}; // 1125 is meant
    Paste("1,125\t0,5\n");
    Edit(0, 2, "1,125");
    Select(0, 0);
    Key(kKeyCopy);
    EXPECT_THAT(bench.host.clipboard.value(), testing::StartsWith("1,125\t"));
    const auto boxes = bench.host.boxes.size();
    Select(1, 1, 2, 2);
    Key(kKeyPaste);
    EXPECT_EQ(Rows().at(1), Rows().at(0));
    EXPECT_EQ(bench.host.boxes.size(), boxes); // its own text leaves nothing open
}

TEST_P(BothEditors, TakeRowsInTheEmptyOneAtTheEndAndInsertLines) {
    Paste("1\t2\n");
    Edit(1, 3, "5");
    EXPECT_EQ(Rows(), (Numbers{{1, 2, 0}, {0, 5, 0}}));
    EXPECT_EQ(list.Grid.cells.size(), 3U);
    EXPECT_EQ(Cell(2, 1) + Cell(2, 2), "");
    Select(2, 2, 2, 2);
    Paste("7\t8\n");
    Select(1, 1);
    Press(list.cmdInsert);
    EXPECT_EQ(Rows(), (Numbers{{1, 2, 0}, {0, 0, 0}, {0, 5, 0}, {7, 8, 0}}));
    EXPECT_EQ(list.CurrentRow, 2);
    Edit(1, 2, "");
    Select(4, 4); // the empty row alone is nothing to remove
    Press(list.cmdErase);
    EXPECT_EQ(Box().text, "No marked item!");
}

TEST_P(BothEditors, AddAClickedRowOnlyWithAChangeAndWithAllItsDigits) {
    Paste("0.123456789\t3\n");
    Press(list.optInputMode, 0);
    Select(0, 0);
    Press(list.OKinput);
    EXPECT_EQ(list.Rows(), 1);
    bench.Retype(*list.boxes[1], "4");
    Press(list.OKinput);
    EXPECT_EQ(Rows().at(1), (std::vector<double>{Rows()[0][0], 4, 0}));
}

TEST_P(BothEditors, AskWhereAPastedTextIsOpenAndTellWhatIsLeftOut) {
    for (const Answer answer : {Answer::Cancel, Answer::Yes, Answer::No}) {
        bench.host.answers = {answer};
        Paste("0\t1,234\n1\t2,345\n");
        EXPECT_THAT(Box().text, HasSubstr("1,234"));
        ASSERT_EQ(list.Rows(), answer == Answer::Cancel ? 0 : 2);
        if (answer == Answer::Cancel)
            continue;
        EXPECT_NEAR(list.Value(1, 1), answer == Answer::Yes ? 1.234 : 1234, 1e-6);
    }
    const Numbers before = Rows();
    Paste("no numbers here");
    EXPECT_EQ(Box().text, "The clipboard holds no numbers.");
    EXPECT_EQ(Rows(), before);
    const int last = static_cast<int>(list.Grid.heads.size()) - 2;
    Select(0, 0, last, last);
    Paste("7\t8\t9\n");
    EXPECT_THAT(Box().text, HasSubstr("3 columns; from the cursor on the list has room for 2"));
}

TEST_P(BothEditors, RefuseWhatNeedsLinesOrMarks) {
    for (Button* button : {&list.cmdAus, &list.cmdErase, &list.cmdEraseSelected})
        button->onClick();
    EXPECT_EQ(bench.host.beeps, 3);
    TypeLine({"1", "2"});
    list.Grid.selection = {};
    Press(list.cmdErase);
    EXPECT_EQ(Box().text, "No marked item!");
    Select(0, 0);
    bench.host.answers = {Answer::Yes};
    Press(list.cmdErase);
    EXPECT_EQ(Cell(0, 2), "empty list");
    EXPECT_EQ(list.lblZeile.text, "line 1");
    Press(list.optInputMode, 1);
    EXPECT_FALSE(list.EditMode);
}

INSTANTIATE_TEST_SUITE_P(Lists, BothEditors, testing::Values(ListKind::Data, ListKind::Pairs));

} // namespace
} // namespace zorvant
