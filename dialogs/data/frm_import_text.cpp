#include "dialogs/data/frm_import_text.h"

#include "data/pasted_table.h"
#include "dialogs/common/names.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>
#include <ranges>

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

/// Heads by which a field is told. They are compared without what stands behind a "/" or "[", and
/// without blanks; those of one letter with regard to case, since t is the time and T the
/// temperature.
struct FieldHeads {
    int field;
    const char* heads; ///< blanks between them
};
constexpr FieldHeads kFieldHeads[] = {
    {kExpTime, "t time zeit r(P) r rate"},
    {1, "c(A) cA A c c(E) conc"},
    {2, "c(B) cB B c(S) cS S"},
    {3, "c(C) cC C c(ES) cES ES"},
    {4, "c(P) cP P product produkt"},
    {5, "c(Q) cQ Q"},
    {kExpLambda, "lambda signal absorbance extinction abs"},
    {kExpTemperature, "T temperature temperatur temp"},
    {kExpRate, "k k1 k(1) rateconstant"},
};

std::size_t Index(int i) {
    return static_cast<std::size_t>(i);
}

std::string PlainHead(const std::string& head) {
    std::string plain = head.substr(0, head.find_first_of("/["));
    std::erase(plain, ' ');
    return plain;
}

/// Returned: -1 when the head names no field.
int FieldOfHead(const std::string& head) {
    const std::string plain = PlainHead(head);
    for (const FieldHeads& row : kFieldHeads)
        for (const auto word : std::views::split(std::string_view(row.heads), ' ')) {
            const std::string_view known(word.begin(), word.end());
            if (known.size() == 1 ? plain == known : UpperCase(plain) == UpperCase(known))
                return row.field;
        }
    return -1;
}

/// The time unit that the head of the column of times names: "Time/min", "t [h]"; empty: none.
std::string UnitOfTimes(const frmImportText& form) {
    const int column = form.cmbField(kExpTime).index - 1;
    if (column < 0 || Index(column) >= form.guess.heads.size())
        return {};
    const std::string& head = form.guess.heads[Index(column)];
    const std::size_t at = head.find_first_of("/[(");
    if (at == std::string::npos)
        return {};
    std::string word = Trim(head.substr(at + 1));
    while (word.ends_with(']') || word.ends_with(')'))
        word.pop_back();
    return std::ranges::find(kTimeUnits, word) == kTimeUnits.end() ? std::string() : word;
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

/// How much will be read, and what will not.
std::string CountText(const frmImportText& form) {
    std::string count = std::to_string(form.numbers.Rows()) + " rows";
    if (const std::string unit = UnitOfTimes(form); !unit.empty())
        count += "; times in " + unit;
    if (form.numbers.badCells > 0)
        count += "; " + std::to_string(form.numbers.badCells) +
                 " cells are no numbers and count as 0, first in line " +
                 std::to_string(form.numbers.firstBadLine);
    if (form.numbers.columnsCut)
        count += "; columns behind the " + std::to_string(kMaxColumns) + "th are left out";
    return count;
}

void ShowNumbers(frmImportText& form) {
    auto& grid = form.GridRead;
    std::vector<int> fields;
    grid.heads = {"row"};
    grid.columnWidths = {kNumberWidth};
    for (int field = 0; field < kExpColumns; ++field)
        if (form.cmbField(field).index > 0) {
            fields.push_back(field);
            grid.heads.emplace_back(kExpColumnNames[Index(field)]);
            grid.columnWidths.push_back(kTextWidth);
        }
    grid.cells.clear();
    for (std::size_t row = 0; row < std::min(form.numbers.Rows(), kPreviewRows); ++row) {
        const auto values = form.numbers.Row(row);
        std::vector<std::string> cells{std::to_string(row + 1)};
        for (const int field : fields) {
            const std::size_t column = Index(form.cmbField(field).index - 1);
            ExpPoint point;
            SetExpValue(point, field, column < values.size() ? values[column] : 0);
            cells.push_back(ExpCellText(point, field));
        }
        grid.cells.push_back(std::move(cells));
    }
    ++grid.revision;
    form.lblCount.text = CountText(form);
    form.cmdOK.enabled = form.numbers.Rows() > 0 && !fields.empty();
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
    form.optTarget(1).enabled = form.ps.ExpPointCount > 0;
    form.optTarget.selected = 0;
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
    for (int field = 0; field < kExpColumns; ++field)
        form.cmbField(field).onClick = [&form] { ShowNumbers(form); };
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

/// The field of each column of numbers, -1: none.
std::vector<int> FieldsOf(const frmImportText& form, std::size_t count) {
    std::vector<int> columns(count, -1);
    for (int field = 0; field < kExpColumns; ++field) {
        const int chosen = form.cmbField(field).index - 1;
        if (chosen >= 0 && Index(chosen) < count)
            columns[Index(chosen)] = field;
    }
    return columns;
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
    try {
        form.text = DecodeTableText(ReadFile(path));
    } catch (const FileError& error) {
        ShowMessage(error.what(), kRefused, Icon::Critical);
        return false;
    }
    form.lblFile.text = FileName(path);
    form.lblFile.toolTip = path;
    form.ps.DataDir = DirectoryOf(path);
    ShowGuess(form);
    ShowText(form);
    form.numbers = ReadTable(form.text, LayoutOf(form));
    const std::size_t columns = form.numbers.Columns();
    ListColumns(form, columns);
    AssignColumns(form, columns);
    ShowReading(form);
    return true;
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
    const std::vector<int> columns = FieldsOf(form, numbers->Columns());
    frmDatedit& editor = form.editor;
    const bool append = form.optTarget.selected == 1 && form.ps.ExpPointCount > 0;
    if (!editor.loaded) // its history must know the table before the import
        ShowForm(form.ps.desktop, editor);
    const bool done =
        append ? PutNumbers(editor, *numbers, columns, form.ps.ExpPointCount + 1, "importing")
               : ReplaceByNumbers(editor, *numbers, columns, "importing", UnitOfTimes(form));
    if (!done)
        return;
    UnloadForm(form.ps.desktop, form);
    ShowForm(form.ps.desktop, editor);
}

} // namespace zorvant
