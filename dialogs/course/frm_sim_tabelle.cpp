#include "dialogs/course/frm_sim_tabelle.h"

#include "dialogs/common/names.h"
#include "engine/sim_table.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

namespace zorvant {
namespace {

constexpr int kHelpTable = 7002;

std::string WithoutSeparator(std::string directory) {
    if (directory.size() > 1 && (directory.back() == '/' || directory.back() == '\\'))
        directory.pop_back();
    return directory;
}

} // namespace

frmSimTabelle::frmSimTabelle(Workspace& state)
    : Form(name::kTable, "Result of the Calculation"), ps(state) {
    helpTopic = kHelpTable;
    left = 400;
    top = 120;
    txtSimTabelle.locked = true;
    txtSimTabelle.multiLine = true;
    cmdSaveTable.toolTip = " .TXT-file with delimiter \"Tab\" ";
    cmdCloseSimTab.isCancel = true;
    // The arrays behind the table change with the next calculation; the text stays what was asked.
    onLoad = [this] { txtSimTabelle.text = SimTableText(ps); };
    cmdClipboard.onClick = [this] { cmdClipboard_Click(*this); };
    cmdSaveTable.onClick = [this] { cmdSaveTable_Click(*this); };
    cmdPrint.onClick = [this] { cmdPrint_Click(*this); };
    cmdCloseSimTab.onClick = [this] { UnloadForm(ps.desktop, *this); };
    Declare();
}

void cmdClipboard_Click(frmSimTabelle& form) {
    host().setClipboardText(form.txtSimTabelle.text);
}

void cmdSaveTable_Click(frmSimTabelle& form) {
    Workspace& ps = form.ps;
    const auto choice = host().chooseFile({.save = true,
                                           .title = "Save table as ...",
                                           .directory = ps.TableDir,
                                           .name = {},
                                           .extension = ".TXT",
                                           .filters = {{"Text (*.TXT)", "*.TXT"}}});
    if (!choice)
        return;
    try {
        // one quoted item, as spreadsheets of the time read it
        WriteFileAtomically(choice->path,
                            EncodeText("\"" + form.txtSimTabelle.text + "\"" + kCrLf));
        ps.TableDir = WithoutSeparator(DirectoryOf(choice->path));
    } catch (const FileError& error) {
        ShowMessage(error.what(), "Execution not possible", Icon::Critical);
    }
}

void cmdPrint_Click(frmSimTabelle& form) {
    host().printText(form.txtSimTabelle.text, form.caption);
}

} // namespace zorvant
