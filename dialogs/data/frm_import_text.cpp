#include "dialogs/data/frm_import_text.h"

#include "data/pasted_table.h"
#include "data/table_heads.h"
#include "dialogs/common/names.h"
#include "engine/reaction_catalogue.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr int kHelpImport = 10140;
constexpr const char* kRefused = "Execution not possible";
/// Lines that the previews show.
constexpr std::size_t kPreviewLines = 60, kPreviewRows = 60;
constexpr int kMostSkipped = 10000;
constexpr int kNumberWidth = 5, kTextWidth = 14;
/// Entries of cmbDecimal.
constexpr int kAsFound = 0, kPoint = 1;

struct Separator {
    const char* caption;
    char sign;
};
constexpr std::array<Separator, 4> kSeparators{
    {{"Tab", '\t'}, {"Semicolon ;", ';'}, {"Comma ,", ','}, {"Blanks", ' '}}};

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

/// The heading of the column that was chosen for a field.
std::string HeadOf(const frmImportText& form, int field) {
    const int column = form.cmbField(field).index - 1;
    return column >= 0 && Index(column) < form.guess.heads.size() ? form.guess.heads[Index(column)]
                                                                  : std::string();
}

bool Appends(const frmImportText& form) {
    return form.optTarget.selected == 1 && form.ps.ExpPointCount > 0;
}

/// The time unit that the list will have: its own when it is appended to, else that of the text.
std::string UnitOfList(const frmImportText& form) {
    const std::string unit = UnitOfHead(HeadOf(form, kExpTime), kExpTime).timeUnit;
    return unit.empty() || Appends(form) ? form.ps.TimeUnitText : unit;
}

/// A row's value for a field in the units of the list; 0 where the text holds none.
double ValueFor(const frmImportText& form, const TableNumbers& numbers, std::size_t row,
                int field) {
    const std::size_t column = Index(form.cmbField(field).index - 1);
    const std::size_t cell = numbers.rowStart[row] + column;
    if (cell >= numbers.rowStart[row + 1] || !numbers.filled[cell])
        return 0;
    return UnitOfHead(HeadOf(form, field), field).In(UnitOfList(form), numbers.values[cell]);
}

/// Entries "1: time/min" of the columns that can be chosen.
void ListColumns(frmImportText& form, std::size_t columns) {
    for (int field = 0; field < kExpColumns; ++field) {
        ComboBox& box = form.cmbField(field);
        box.items = {"-"};
        for (std::size_t column = 0; column < columns; ++column) {
            std::string entry = std::to_string(column + 1);
            if (column < form.guess.heads.size() && !Trim(form.guess.heads[column]).empty())
                entry += ": " + Trim(form.guess.heads[column]);
            box.items.push_back(entry);
        }
        box.index = std::clamp(box.index, 0, static_cast<int>(columns));
    }
}

/// Fields by their heads; without any known head in the order of the list.
void AssignColumns(frmImportText& form, std::size_t columns) {
    for (int field = 0; field < kExpColumns; ++field)
        form.cmbField(field).index = 0;
    bool any = false;
    for (std::size_t column = 0; column < std::min(columns, form.guess.heads.size()); ++column) {
        const int field = FieldOfHead(form.guess.heads[column]);
        if (field < 0 || form.cmbField(field).index != 0)
            continue;
        form.cmbField(field).index = static_cast<int>(column) + 1;
        any = true;
    }
    if (any)
        return;
    const bool couples = IsEnzymeModel(form.ps.ModelId) && form.ps.RcSMode;
    const int most = std::min(static_cast<int>(columns), kExpColumns);
    for (int column = 0; column < most; ++column) {
        const int field = couples && columns == 2 && column == 1 ? 2 : column;
        form.cmbField(field).index = column + 1;
    }
}

void ShowText(frmImportText& form) {
    const char separator = kSeparators.at(Index(std::max(form.cmbSep.index, 0))).sign;
    const auto lines = SplitTable(form.text, separator, kPreviewLines);
    std::size_t columns = 0;
    for (const auto& line : lines)
        columns = std::max(columns, line.size());
    auto& grid = form.Grid;
    grid.heads = {"line"};
    grid.columnWidths = {kNumberWidth};
    for (std::size_t column = 1; column <= columns; ++column) {
        grid.heads.push_back(std::to_string(column));
        grid.columnWidths.push_back(kTextWidth);
    }
    grid.cells.clear();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::vector<std::string> cells{std::to_string(i + 1)};
        cells.insert(cells.end(), lines[i].begin(), lines[i].end());
        cells.resize(columns + 1);
        grid.cells.push_back(std::move(cells));
    }
    ++grid.revision;
}

/// The fields that have a column.
std::vector<int> ChosenFields(const frmImportText& form) {
    std::vector<int> fields;
    for (int field = 0; field < kExpColumns; ++field)
        if (form.cmbField(field).index > 0)
            fields.push_back(field);
    return fields;
}

/// What happens to the units: "T in \u00B0C is converted", "c(A) in g/L is taken as it stands".
std::string UnitsText(const frmImportText& form) {
    std::string text;
    for (int field = 0; field < kExpColumns; ++field) {
        const HeadUnit unit = UnitOfHead(HeadOf(form, field), field);
        const std::string column = kExpColumnNames[Index(field)] + (" in " + unit.text);
        if (!unit.known)
            text += "; " + column + " is not known and taken as it stands";
        else if (unit.Converts(UnitOfList(form)))
            text += "; " + column + " is converted";
    }
    return text;
}

/// Columns of the text that no field takes.
std::string UnusedText(const frmImportText& form) {
    std::string text;
    for (std::size_t column = 0; column < form.numbers.Columns(); ++column) {
        const int entry = static_cast<int>(column) + 1;
        bool used = false;
        for (const ComboBox& box : form.cmbField.items)
            used = used || box.index == entry;
        if (!used)
            text += (text.empty() ? "" : ", ") + form.cmbField(0).items.at(Index(entry));
    }
    return text.empty() ? text : kCrLf + ("Columns not used: " + text);
}

/// How much will be read, and what will not.
std::string CountText(const frmImportText& form) {
    if (!form.numbers.AnyNumber())
        return "The text holds no numbers.";
    std::string text = std::to_string(form.numbers.Rows()) + " rows";
    if (form.cmbField(kExpTime).index > 0)
        text += "; times in " + UnitOfList(form);
    text += UnitsText(form);
    if (form.numbers.badCells > 0)
        text += "; " + std::to_string(form.numbers.badCells) +
                " cells are no numbers and count as 0, first in line " +
                std::to_string(form.numbers.firstBadLine);
    if (form.numbers.columnsCut)
        text += "; columns behind the " + std::to_string(kMaxColumns) + "th are left out";
    return text + UnusedText(form);
}

void ShowNumbers(frmImportText& form) {
    auto& grid = form.GridRead;
    const std::vector<int> fields = ChosenFields(form);
    grid.heads = {"row"};
    grid.columnWidths = {kNumberWidth};
    for (const int field : fields) {
        grid.heads.emplace_back(kExpColumnNames[Index(field)]);
        grid.columnWidths.push_back(kTextWidth);
    }
    grid.cells.clear();
    for (std::size_t row = 0; row < std::min(form.numbers.Rows(), kPreviewRows); ++row) {
        std::vector<std::string> cells{std::to_string(row + 1)};
        for (const int field : fields) {
            ExpPoint point;
            SetExpValue(point, field, ValueFor(form, form.numbers, row, field));
            cells.push_back(ExpCellText(point, field));
        }
        grid.cells.push_back(std::move(cells));
    }
    ++grid.revision;
    form.lblCount.text = CountText(form);
    form.cmdOK.enabled = form.numbers.AnyNumber() && !fields.empty();
}

/// The controls as the guess has it.
void ShowGuess(frmImportText& form) {
    form.guess = GuessTableLayout(form.text);
    for (std::size_t i = 0; i < kSeparators.size(); ++i)
        if (kSeparators[i].sign == form.guess.layout.separator)
            form.cmbSep.index = static_cast<int>(i);
    form.cmbDecimal.index = kAsFound;
    form.updSkip.value = std::min(form.guess.layout.skipLines, kMostSkipped);
    form.corrected = false;
    form.lblDoubt.text = form.guess.doubts.empty()
                             ? std::string()
                             : "This can be read in two ways. It is read:" + std::string(kCrLf) +
                                   DoubtText(form.guess);
}

bool AskForTextFile(frmImportText& form) {
    FileRequest request;
    request.title = "Import text/CSV";
    request.directory = form.ps.DataDir;
    request.filters.emplace_back("Text and CSV (*.csv *.txt *.dat *.tsv)",
                                 "*.csv *.txt *.dat *.tsv");
    request.filters.emplace_back("All files (*)", "*");
    const std::optional<FileChoice> choice = host().chooseFile(request);
    return choice && !choice->path.empty() && TakeFile(form, choice->path);
}

void Form_Load(frmImportText& form) {
    const std::string path = std::exchange(form.path, {});
    const std::string pasted = std::exchange(form.pasted, {});
    form.optTarget(1).enabled = form.ps.ExpPointCount > 0;
    form.optTarget.selected = 0;
    if (!pasted.empty()) {
        TakeText(form, pasted, "clipboard", "");
        return;
    }
    if (!(path.empty() ? AskForTextFile(form) : TakeFile(form, path)))
        UnloadForm(form.ps.desktop, form);
}

void SeparatorChosen(frmImportText& form) {
    form.corrected = true;
    ShowText(form);
    ShowReading(form);
    const std::size_t columns = form.numbers.Columns();
    ListColumns(form, columns);
    AssignColumns(form, columns);
    ShowNumbers(form);
}

void SetChoices(frmImportText& form) {
    for (const Separator& separator : kSeparators)
        form.cmbSep.items.emplace_back(separator.caption);
    form.cmbSep.index = 0;
    form.cmbDecimal.items = {"as found", "point", "comma"};
    form.cmbDecimal.index = kAsFound;
    form.cmbDecimal.toolTip = " as found: told for each column from its numbers ";
    form.updSkip.maximum = kMostSkipped;
    for (int field = 0; field < kExpColumns; ++field)
        form.lblField(field).text = kExpColumnNames[Index(field)];
}

void WireReading(frmImportText& form) {
    form.cmdFile.onClick = [&form] { AskForTextFile(form); };
    form.cmbSep.onClick = [&form] { SeparatorChosen(form); };
    form.cmbDecimal.onClick = [&form] {
        form.corrected = true;
        ShowReading(form);
    };
    form.updSkip.onChange = [&form] { ShowReading(form); };
    for (ComboBox& box : form.cmbField.items)
        box.onClick = [&form] { ShowNumbers(form); };
    form.optTarget.onClick = [&form](int) { ShowNumbers(form); };
}

void WireEnd(frmImportText& form) {
    form.cmdOK.isDefault = true;
    form.cmdOK.disabledTip = "no row of numbers, or no column for a field";
    form.cmdCancel.isCancel = true;
    form.cmdOK.onClick = [&form] { cmdOK_Click(form); };
    form.cmdCancel.onClick = [&form] { UnloadForm(form.ps.desktop, form); };
}

/// The numbers as the user wants them read, who is asked where there are two ways.
/// Returned: nothing when the user cancelled.
std::optional<TableNumbers> DecidedNumbers(const frmImportText& form) {
    if (form.corrected || form.guess.doubts.empty())
        return form.numbers;
    const Answer answer = AskWhichReading(
        "The text can be read in two ways. It will be read:", form.guess, "Import text/CSV");
    if (answer == Answer::Cancel)
        return std::nullopt;
    if (answer == Answer::Yes)
        return form.numbers;
    TableLayout other = OtherReading(form.guess);
    other.skipLines = form.updSkip.value;
    return ReadTable(form.text, other);
}

/// The numbers of these fields in the units of the list.
TableNumbers Converted(const frmImportText& form, const TableNumbers& numbers,
                       const std::vector<int>& fields) {
    TableNumbers table;
    for (std::size_t row = 0; row < numbers.Rows(); ++row) {
        for (const int field : fields)
            table.values.push_back(ValueFor(form, numbers, row, field));
        table.rowStart.push_back(static_cast<std::uint32_t>(table.values.size()));
    }
    return table;
}

} // namespace

frmImportText::frmImportText(Workspace& state, frmDatedit& dataEditor)
    : Form(name::kImportText, "Import text/CSV"), ps(state), editor(dataEditor) {
    modal = true;
    helpTopic = kHelpImport;
    onLoad = [this] { Form_Load(*this); };
    SetChoices(*this);
    WireReading(*this);
    WireEnd(*this);
    Declare();
}

bool TakeFile(frmImportText& form, const std::string& path) {
    std::string text;
    try {
        text = DecodeTableText(ReadFile(path));
    } catch (const FileError& error) {
        ShowMessage(error.what(), kRefused, Icon::Critical);
        return false;
    }
    form.ps.DataDir = DirectoryOf(path);
    TakeText(form, text, FileName(path), path);
    return true;
}

void TakeText(frmImportText& form, const std::string& text, const std::string& title,
              const std::string& toolTip) {
    form.text = text;
    form.lblFile.text = title;
    form.lblFile.toolTip = toolTip;
    ShowGuess(form);
    ShowText(form);
    form.numbers = ReadTable(form.text, LayoutOf(form));
    const std::size_t columns = form.numbers.Columns();
    ListColumns(form, columns);
    AssignColumns(form, columns);
    ShowReading(form);
}

/// Headings that contradict the columns from the cursor on, or units that are not the list's.
bool frmDatedit::PastedElsewhere(const std::string& text, int firstColumn) {
    Form* const form = FindForm(ps.desktop, name::kImportText);
    auto* const dialog = dynamic_cast<frmImportText*>(form);
    const std::vector<std::string> headings = GuessTableLayout(text).heads;
    const std::vector<int> fields = ColumnsForPaste(firstColumn, headings.size());
    std::string contradictions;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int field = FieldOfHead(headings[i]);
        if ((field >= 0 && field != fields[i]) ||
            UnitOfHead(headings[i], fields[i]).Converts(ps.TimeUnitText))
            contradictions += "    " + Trim(headings[i]) + " in the column of " +
                              kExpColumnNames[Index(fields[i])] + kCrLf;
    }
    if (dialog == nullptr || contradictions.empty())
        return false;
    const Answer answer = Ask(
        "The headings of the text do not fit the columns from the cursor on:" + std::string(kCrLf) +
            kCrLf + contradictions + kCrLf +
            "Open the import, which sorts columns and converts units? (No: paste as it stands)",
        "Insert clipboard content", Icon::Question, Buttons::YesNoCancel);
    if (answer == Answer::Yes) {
        dialog->pasted = text;
        ShowForm(ps.desktop, *dialog);
    }
    return answer != Answer::No;
}

TableLayout LayoutOf(const frmImportText& form) {
    TableLayout layout;
    layout.separator = kSeparators.at(Index(std::max(form.cmbSep.index, 0))).sign;
    layout.skipLines = form.updSkip.value;
    layout.decimals = form.guess.layout.decimals;
    if (form.cmbDecimal.index != kAsFound)
        layout.decimals.assign(std::max<std::size_t>(layout.decimals.size(), kPreviewLines),
                               form.cmbDecimal.index == kPoint ? DecimalSign::Point
                                                               : DecimalSign::Comma);
    return layout;
}

void ShowReading(frmImportText& form) {
    form.numbers = ReadTable(form.text, LayoutOf(form));
    form.lblDoubt.visible = !form.corrected && !form.guess.doubts.empty();
    ShowNumbers(form);
}

void cmdOK_Click(frmImportText& form) {
    const std::optional<TableNumbers> numbers = DecidedNumbers(form);
    if (!numbers)
        return;
    const std::vector<int> fields = ChosenFields(form);
    const TableNumbers table = Converted(form, *numbers, fields);
    frmDatedit& editor = form.editor;
    if (!editor.loaded) // its history must know the table before the import
        ShowForm(form.ps.desktop, editor);
    const bool done =
        Appends(form) ? PutNumbers(editor, table, fields, form.ps.ExpPointCount + 1, "importing")
                      : ReplaceByNumbers(editor, table, fields, "importing", UnitOfList(form));
    if (!done)
        return;
    UnloadForm(form.ps.desktop, form);
    ShowForm(form.ps.desktop, editor);
}

} // namespace zorvant
