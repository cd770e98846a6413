#include "shell/project_status.h"

#include "data/exp_file.h"
#include "data/folder_list.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

namespace zorvant {
namespace {

constexpr int kShownPath = 60;
constexpr const char* kIndent = "    ";

std::string ProjectLine(const Workspace& ps) {
    if (ps.DataIsSession)
        return "    last session  ";
    if (ps.ProjectFile.empty())
        return "    (project still unnamed)";
    return kIndent + FuShortPath(UpperCase(ps.ProjectFile), kShownPath);
}

/// The lines of a data file that is there.
bool AddDataFile(std::string& text, const std::string& dataFile) {
    std::string comment, unit;
    int count = 0;
    bool ok = false;
    if (FileExists(dataFile))
        ViewExpFile(dataFile, comment, unit, count, ok);
    if (!ok)
        return false;
    for (const std::string& line :
         {"    data file " + UpperCase(FileName(dataFile)) + "    (file date  " +
              host().fileDate(dataFile) + ")",
          kIndent + ("with " + std::to_string(count)) + " measuring point",
          kIndent + ("time unit: " + unit),
          kIndent + ("comment: " + Shortened(comment, kShownComment)), std::string(),
          std::string("The table of the experimental data can be viewed at icon 5 (yellow)"),
          std::string("and at \"Data / Editor exper.data view/edit\""), std::string(),
          std::string("Now you can select the suited method for the evaluation"),
          std::string("of the loaded experimental data under \"Evaluation of experiments\".")})
        text += line + kCrLf;
    return true;
}

} // namespace

std::string ProjectStatusText(const Workspace& ps, const std::string& dataFile) {
    std::string text;
    const auto add = [&](const std::string& line) { text += line + kCrLf; };
    add("act. working directory of ZORVANT");
    add(kIndent + ps.ProgramDir);
    add("");
    add("Project");
    add(ProjectLine(ps));
    add("");
    add("selected kinetic model => cf. window \"Kinetic model\"");
    add("");
    add("exper. data");
    if (dataFile.empty() || !AddDataFile(text, dataFile)) {
        add("    no data file *.ZI3 loaded");
        add(ps.ExpPointCount > 0 ? "    a set of data with " + std::to_string(ps.ExpPointCount) +
                                       " measuring points available"
                                 : "    no set of exper. data available");
    }
    add("project comment:");
    add(ps.ProjectComment.empty() ? "   (none)"
                                  : kIndent + Shortened(ps.ProjectComment, kShownComment));
    add("   (comment can be changed when saving the project)");
    return text;
}

void ShowProjectStatus(const Workspace& ps, const std::string& dataFile,
                       const std::string& heading) {
    std::string text = ProjectStatusText(ps, dataFile);
    if (!heading.empty())
        text = heading + kCrLf + kCrLf + text;
    ShowMessage(text, "Status of the project", Icon::Information);
}

std::string StatusLine(const Workspace& ps) {
    const bool isModel = ps.ModelId != kKindBloodAlcohol;
    std::string line = isModel ? ModelCaption(ps) : "metabolism of blood alcohol";
    line += "     time unit: " + ps.TimeUnitText;
    if (!ps.UnitNotice.empty())
        line += " (" + ps.UnitNotice + ")";
    line += "     data: ";
    if (ps.ExpPointCount == 0)
        return line + "none";
    line += ps.DataFilePath.empty() ? "not yet saved" : FileName(ps.DataFilePath);
    return line + ", " + std::to_string(ps.ExpPointCount) +
           (ps.ExpPointCount == 1 ? " point" : " points") + (ps.ExpDataChanged ? ", changed" : "");
}

} // namespace zorvant
