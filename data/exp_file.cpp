#include "data/exp_file.h"

#include "data/exp_data.h"
#include "data/file_dialog.h"
#include "data/formats/zi3.h"
#include "data/previous_version.h"
#include "engine/time_units.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <span>

namespace zorvant {
namespace {

/// Runs what may fail for reasons that lie in the file. Returned: whether it went through; else a
/// box with the reason was shown.
template <class Action> bool Attempt(const char* title, const Action& action) {
    try {
        action();
        return true;
    } catch (const std::runtime_error& error) { // FileError, FormatError
        ShowMessage(error.what(), title, Icon::Critical);
        return false;
    }
}

/// Appended rows come into the unit of those that are there; others bring theirs.
void TakeUnit(ProjectState& ps, const Zi3File& file, bool append, std::size_t firstNew) {
    const std::string& word = file.head.timeUnit;
    if (!append || firstNew == 1) {
        TakeUnitOfRows(ps, word);
        return;
    }
    const int from = TimeUnitIndex(word), to = TimeUnitIndex(ps.TimeUnitText);
    if (word == ps.TimeUnitText || word != kTimeUnits[static_cast<std::size_t>(from)])
        return;
    for (std::size_t i = firstNew; i < ps.ExpData.size(); ++i)
        ps.ExpData[i].t = TimeColumnIn(ps, ps.ExpData[i].t, to, from);
    ps.UnitNotice = "appended data converted from " + word + " to " + ps.TimeUnitText;
}

void TakeRows(ProjectState& ps, const Zi3File& file, bool append) {
    const int present = append ? ps.ExpPointCount : 0;
    if (present + file.head.count > kMaxExpPoints)
        throw FormatError(kOverflowText);
    ps.ExpData.resize(static_cast<std::size_t>(present) + 1);
    ps.ExpData.insert(ps.ExpData.end(), file.rows.begin(), file.rows.end());
    TakeUnit(ps, file, append, static_cast<std::size_t>(present) + 1);
    if (ps.ExpData.size() < 2) // room for row 1, as at the start
        ps.ExpData.resize(2);
    ps.ExpPointCount = present + file.head.count;
    if (file.lambdaInf > 0)
        ps.LambdaInf = file.lambdaInf;
    if (!append)
        ps.ExpComment = file.head.comment;
    ps.ExpDataChanged = append && (ps.ExpDataChanged || file.head.count > 0);
}

} // namespace

void LoadExpFile(ProjectState& ps, const std::string& path, bool append, bool& ok) {
    ok = Attempt("message from Sub LoadExpFile",
                 [&] { TakeRows(ps, ParseZi3(ReadFile(path)), append); });
}

void WriteDataFile(const ProjectState& ps, const std::string& path, bool& ok) {
    ok = Attempt("message from WriteDataFile", [&] {
        const std::span rows =
            std::span(ps.ExpData).subspan(1, static_cast<std::size_t>(ps.ExpPointCount));
        const Zi3Head head{
            .comment = ps.ExpComment, .timeUnit = ps.TimeUnitText, .count = ps.ExpPointCount};
        WriteKeepingPrevious(path, WriteZi3(head, rows, ps.LambdaInf));
    });
}

void ViewExpFile(const std::string& path, std::string& comment, std::string& timeUnit, int& count,
                 bool& ok) {
    ok = Attempt("Message from Sub ViewExpFile", [&] {
        const Zi3Head head = ParseZi3Head(ReadFile(path));
        comment = head.comment;
        timeUnit = head.timeUnit;
        count = head.count;
    });
}

void LoadExpDialog(ProjectState& ps, bool append, bool& ok, bool& cancelled) {
    ok = false;
    std::string path = ps.DataFilePath, name, directory = ps.DataDir;
    FuFileDialog(path, name, directory, "*.ZI3",
                 append ? "Append data from selected file" : "Loading experimental data",
                 cancelled);
    if (cancelled)
        return;
    LoadExpFile(ps, path, append, ok);
    if (!ok) // the table stays, and its name with it
        return;
    ps.DataDir = directory;
    ps.DataFilePath = path;
    ps.DataFileTitle = name;
    FuCheckExpData(ps);
    ps.DataIsSession = UpperCase(name) == UpperCase(FileName(ps.LastSessionFile));
}

void SaveExpDialog(ProjectState& ps, std::string& file, bool& cancelled) {
    cancelled = true;
    const SavePlace place = PlaceToSave(ps, ps.DataFilePath, ps.DataDir, ".ZI3");
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = true,
        .title = "Exp. data file save as ...",
        .directory = place.directory,
        .name = place.name,
        .extension = ".ZI3",
        .filters = {{"Exp. data file (*.ZI3)", "*.ZI3"}},
        .overwritePrompt = true,
    });
    if (!choice || choice->path.empty())
        return;
    bool written = false;
    WriteDataFile(ps, choice->path, written);
    if (!written)
        return;
    cancelled = false;
    file = choice->path;
    ps.DataFilePath = choice->path;
    ps.DataFileTitle = FileName(choice->path);
    ps.DataDir = DirectoryOf(choice->path);
    ps.ExpDataChanged = false;
}

void AskSaveExpData(ProjectState& ps, std::string& file, bool& cancelled) {
    const std::string question =
        std::string("The experimental data were changed.") + kCrLf + "Save now?";
    const Answer answer = Ask(question, "WARNING", Icon::Warning, Buttons::YesNoCancel);
    cancelled = answer == Answer::Cancel;
    if (answer == Answer::Yes)
        SaveExpDialog(ps, file, cancelled);
}

} // namespace zorvant
