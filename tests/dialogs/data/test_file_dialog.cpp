#include "data/folder_list.h"
#include "data/project_file.h"
#include "dialogs/data/frm_comment_input.h"
#include "dialogs/data/frm_z_cmn_dlg.h"
#include "platform/files.h"
#include "platform/host.h"
#include "tests/temp_folder.h"

#include <algorithm>
#include <filesystem>

namespace zorvant {
namespace {

namespace fs = std::filesystem;

/// A folder with a project, its data, another file and a folder below.
struct FileDialogTest : testing::Test {
    FileDialogTest() {
        InitProjectState(ps);
        fs::create_directories(folder / "older");
        WriteFileAtomically((folder / "run.ZI3").string(),
                            "run 12\r\nmin\r\nhead\r\n1\r\n0,1,0,0,0,0,0,0,0,0,0,0,0\r\n");
        WriteFileAtomically((folder / "note.txt").string(), "x");
        ps.DataFilePath = (folder / "run.ZI3").string();
        ps.ProjectComment = "of the file";
        FuSaveProjectFile(ps, (folder / "Run.zc3").string());
        ps.ProjectComment = "in memory";
        question.directory = folder.string();
        question.title = "Load";
    }
    /// Asks while the user does what `act` does.
    void Ask(const std::string& pattern, std::function<void()> act) {
        question.pattern = pattern;
        zorvant::host().showForm = [act](Form&) { act(); };
        AskForFile(dialog, question);
    }
    void Select(const std::string& name) {
        const auto& files = dialog.filOpenList.items;
        dialog.filOpenList.index = static_cast<int>(std::ranges::find(files, name) - files.begin());
        dialog.filOpenList.onClick();
    }

    ScriptedHost host;
    Workspace ps;
    frmZCmnDlg dialog{ps};
    FileQuestion question;
    const TempFolder temp; // tests run side by side
    const fs::path folder = fs::path(temp.Path()).parent_path();
};

TEST_F(FileDialogTest, ShowsWhatAFileHoldsAndLeavesTheProjectAsItIs) {
    Ask("*.ZI3", [&] {
        EXPECT_EQ(dialog.filOpenList.items, std::vector<std::string>{"run.ZI3"});
        EXPECT_EQ(dialog.dirOpenList.items, (std::vector<std::string>{"..", "older"}));
        Select("run.ZI3");
        EXPECT_EQ(dialog.fraView.text, "File Information");
        EXPECT_EQ(dialog.Text1.text, "run 12");
        EXPECT_EQ(dialog.Label7.text, " 1 Measuring points");
        Press(dialog.cmdOpenCancel);
    });
    EXPECT_TRUE(question.cancelled);
    Ask("*.ZC3", [&] {
        dialog.dirOpenList.index = 1; // a folder was clicked before; OK means the file
        Select("Run.zc3");
        EXPECT_EQ(dialog.fraView.text, "Project Information");
        EXPECT_EQ(dialog.Text1.text, "of the file");
        EXPECT_TRUE(dialog.Label7.text.starts_with(" run.ZI3   from  "));
        Press(dialog.cmdOpenOK);
    });
    EXPECT_FALSE(question.cancelled);
    EXPECT_EQ(question.fullPath, (folder / "Run.zc3").string());
    EXPECT_EQ(ps.ProjectComment, "in memory");
}

TEST_F(FileDialogTest, ATypedPatternFiltersAndATypedNameIsLookedUp) {
    Ask("*.ZI3", [&] {
        dialog.txtOpenFile.text = "*.TXT";
        Press(dialog.cmdOpenOK);
        EXPECT_TRUE(dialog.loaded);
        EXPECT_EQ(dialog.filOpenList.items, std::vector<std::string>{"note.txt"});
        dialog.txtOpenFile.text = "missing.ZI3";
        Press(dialog.cmdOpenOK);
        EXPECT_TRUE(dialog.loaded);
        EXPECT_EQ(host.boxes.back().text, "File not found");
        EXPECT_EQ(host.boxes.back().title, "Load");
        dialog.txtOpenFile.text = "note.txt";
        Press(dialog.cmdOpenOK);
    });
    EXPECT_EQ(question.fileName, "note.txt");
}

TEST_F(FileDialogTest, FindsThePresetInItsCapitals) {
    question.fullPath = (folder / "note.txt").string();
    Ask("*.*", [&] {
        EXPECT_EQ(dialog.txtOpenFile.text, "NOTE.TXT");
        Press(dialog.cmdOpenOK);
    });
    EXPECT_EQ(question.fullPath, (folder / "note.txt").string());
}

TEST_F(FileDialogTest, WalksIntoFoldersAndBack) {
    Ask("*.ZI3", [&] {
        dialog.dirOpenList.index = 1;
        dialog.dirOpenList.onDoubleClick();
        EXPECT_TRUE(dialog.directory.ends_with("/older"));
        EXPECT_TRUE(dialog.filOpenList.items.empty());
        Press(dialog.cmdReturn);
        EXPECT_EQ(dialog.filOpenList.items.size(), 1U);
        dialog.filOpenList.index = 0;
        dialog.filOpenList.onDoubleClick();
    });
    EXPECT_EQ(question.fullPath, (folder / "run.ZI3").string());
}

TEST_F(FileDialogTest, DeletesAFileOnlyAfterAsking) {
    Ask("*.*", [&] {
        host.answers = {Answer::No, Answer::Yes};
        for (int answer = 0; answer < 2; ++answer) {
            Select("note.txt");
            int key = 127;
            dialog.filOpenList.onKeyPress(key);
            EXPECT_EQ(fs::exists(folder / "note.txt"), answer == 0);
        }
        EXPECT_EQ(host.boxes.front().text, "File note.txt Really delete?");
        EXPECT_EQ(dialog.txtOpenFile.text, "");
    });
}

TEST_F(FileDialogTest, AFolderThatIsGoneDoesNotTrapTheUser) {
    question.directory = (folder / "never").string();
    Ask("*.ZI3", [&] {
        EXPECT_FALSE(dialog.directory.empty());
        EXPECT_FALSE(host.boxes.empty());
    });
}

TEST(FileNames, FitPatternsWithoutRegardToCase) {
    struct Case {
        const char* name;
        const char* pattern;
        bool fits;
    };
    for (const Case& c :
         {Case{"run.zi3", "*.ZI3", true}, Case{"run.zi3", "*.ZC3", false},
          Case{"a.XY", "*.XY;*.LRG", true}, Case{"b.lrg", "*.XY;*.LRG", true},
          Case{"noending", "*.*", true}, Case{"abc", "a?c", true}, Case{"abbc", "a?c", false},
          Case{"aXbXc", "a*b*c", true}, Case{"abcd", "a*c", false}, Case{"", "*", true}})
        EXPECT_EQ(FitsPattern(c.name, c.pattern), c.fits) << c.name << " " << c.pattern;
}

TEST(ShortPath, KeepsTheBeginningAndTheEnd) {
    const std::string path = "/home/student/measurements/2026/november/esters/run/run12.ZI3";
    EXPECT_EQ(FuShortPath(path, 80), path);
    EXPECT_EQ(FuShortPath(path, 30), "/ho.../esters/run/run12.ZI3");
    EXPECT_LE(FuShortPath(path, 40).size(), 40U);
}

TEST(CommentDialog, TakesOneLineAndCancelMeansNone) {
    ScriptedHost host;
    Workspace ps;
    InitProjectState(ps);
    ps.ProjectComment = "before";
    frmCommentInput dialog(ps);
    ShowForm(ps.desktop, dialog);
    EXPECT_EQ(dialog.txtDatComm.text, "before");
    SetText(dialog.txtDatComm, "two\r\nlines");
    Press(dialog.cmdOK);
    EXPECT_EQ(ps.ProjectComment, "twolines");
    ShowForm(ps.desktop, dialog);
    Press(dialog.cmdAbort);
    EXPECT_EQ(ps.ProjectComment, "");
}

} // namespace
} // namespace zorvant
