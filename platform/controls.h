// Records of what a dialog shows: one per kind of control, each with its contents and its events.
// Dialogs, calculations and tests work on these records alone; the shell connects them to widgets
// of the same names. Nothing here knows a toolkit.
#pragma once

#include "platform/colour.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace zorvant {

using Handler = std::function<void()>;
using IndexHandler = std::function<void(int)>;
/// The codes of keys that are no characters, as handlers of key presses hear them.
enum Key : int {
    kKeyCopy = 3,
    kKeyBackspace = 8,
    kKeyCtrlEnter = 10,
    kKeyEnter = 13,
    kKeyPaste = 22,
    kKeyCut = 24,
    kKeyEsc = 27,
    kKeyDel = 127 ///< in grids and lists
};

/// A key press before it takes effect: the handler may change the code, 0 drops the key. The code
/// is one of Key or the character. An edit that came without a key (Del, cut, undo, a paste by
/// mouse) arrives as backspace, so that it counts as typed.
using KeyHandler = std::function<void(int&)>;

/// Result fields and locked fields, so that they differ from what the user may type into.
inline constexpr Colour kPaleYellow = 0xFFFFC0;

enum class Kind {
    Label,
    Frame,
    TextField,
    Button,
    CheckBox,
    OptionGroup,
    ComboBox,
    ListBox,
    Slider,
    UpDown,
    Grid,
    TabPanel,
    Timer,
    MenuEntry,
    Picture
};

struct Form;

/// What every control has. A form goes back to these as declared each time it is loaded.
struct CommonContents {
    std::string text;
    std::string toolTip;
    bool visible = true;
    bool enabled = true;
    bool bold = false;
    Colour backColour = kStyleColour;
    Colour foreColour = kStyleColour;
    bool available = true;   ///< false: what it does is not there; disabled whatever `enabled` says
    std::string disabledTip; ///< why it can't be used; shown in place of the tip while that is so
    bool operator==(const CommonContents&) const = default;
};

/// The common part of the controls. It enters itself into its form, in order of declaration, under
/// the name that its widget has too; members of an array are called name_index.
struct Control : CommonContents {
    Control(Form& owner, Kind controlKind, std::string controlName, std::string controlText);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// Keeps the present contents as those of a freshly loaded form / brings them back.
    virtual void Declare() = 0;
    virtual void Reset() = 0;

    Form& form;
    const Kind kind;
    const std::string name;
};

struct NoContents {};

/// A control of kind K with contents of its own beside the common ones.
template <Kind K, class Own = NoContents> struct ControlOf : Control, Own {
    explicit ControlOf(Form& owner, std::string controlName, std::string controlText = {})
        : Control(owner, K, std::move(controlName), std::move(controlText)) {}
    void Declare() override {
        declaredCommon_ = *this;
        declaredOwn_ = *this;
    }
    void Reset() override {
        static_cast<CommonContents&>(*this) = declaredCommon_;
        static_cast<Own&>(*this) = declaredOwn_;
    }

private:
    CommonContents declaredCommon_;
    Own declaredOwn_;
};

struct Label : ControlOf<Kind::Label> {
    using ControlOf::ControlOf;
    Handler onClick;
};

/// A titled frame, or a floating panel; what stands in it is the layout's business.
struct Frame : ControlOf<Kind::Frame> {
    using ControlOf::ControlOf;
};

struct TextFieldContents {
    bool locked = false;    ///< shows a value, takes no typing
    bool multiLine = false; ///< Enter makes a line
    int maxLength = 0;      ///< characters, 0: no limit
    bool selectAll = false; ///< a handler's request, taken by the binder
};
struct TextField : ControlOf<Kind::TextField, TextFieldContents> {
    using ControlOf::ControlOf;
    KeyHandler onKeyPress;
    Handler onChange; ///< the user's editing, or SetText; never a handler's plain writing
    Handler onGotFocus;
    Handler onLostFocus;
};

struct ButtonContents {
    bool isDefault = false; ///< Enter presses it
    bool isCancel = false;  ///< Esc presses it
    std::string shortcut;   ///< a key that presses it within its dialog: "Ctrl+Z"; empty: none
};
struct Button : ControlOf<Kind::Button, ButtonContents> {
    using ControlOf::ControlOf;
    Handler onClick;
};

struct CheckBoxContents {
    bool checked = false;
};
struct CheckBox : ControlOf<Kind::CheckBox, CheckBoxContents> {
    using ControlOf::ControlOf;
    Handler onClick;
};

struct Option {
    std::string text;
    std::string toolTip;
    bool visible = true;
    bool enabled = true;
    bool bold = false;
};
struct OptionGroupContents {
    std::vector<Option> options; ///< widget i is called name_(first + i)
    int selected = -1;           ///< index of the chosen option, counted from `first`; -1: none
};
/// Options of which one is chosen.
struct OptionGroup : ControlOf<Kind::OptionGroup, OptionGroupContents> {
    OptionGroup(Form& owner, std::string controlName, std::initializer_list<const char*> texts,
                int firstIndex = 0);
    Option& operator()(int index) { return options.at(static_cast<std::size_t>(index - first)); }
    const int first;
    IndexHandler onClick;
};

struct ListContents {
    std::vector<std::string> items;
    int index = -1; ///< chosen entry, -1: none
};
/// A drop-down list; with `editable` the text is free and the entries are suggestions.
struct ComboBoxContents : ListContents {
    bool editable = false;
    bool selectAll = false;
};
struct ComboBox : ControlOf<Kind::ComboBox, ComboBoxContents> {
    using ControlOf::ControlOf;
    Handler onClick;  ///< an entry was chosen
    Handler onChange; ///< the text was edited
    KeyHandler onKeyPress;
    Handler onGotFocus;
};
struct ListBox : ControlOf<Kind::ListBox, ListContents> {
    using ControlOf::ControlOf;
    Handler onClick; ///< another entry was chosen
    Handler onDoubleClick;
    KeyHandler onKeyPress;
};

struct RangeContents {
    int value = 0;
    int minimum = 0;
    int maximum = 100;
    int step = 1;
};
struct Slider : ControlOf<Kind::Slider, RangeContents> {
    using ControlOf::ControlOf;
    Handler onChange;
};
/// A number with arrows.
struct UpDown : ControlOf<Kind::UpDown, RangeContents> {
    using ControlOf::ControlOf;
    Handler onChange;
};

struct GridRange {
    int firstRow = 0, firstColumn = 0, lastRow = -1, lastColumn = -1; ///< lastRow < 0: nothing
    bool operator==(const GridRange&) const = default;
};
struct GridContents {
    std::vector<std::string> heads;              ///< one per column
    std::vector<std::vector<std::string>> cells; ///< cells[row][column]
    std::vector<int> columnWidths;               ///< characters; missing ones: as wide as needed
    std::vector<bool> editableColumns;
    /// Columns of check boxes; their cells read "0", "-1" (and the row is grey), or nothing: no
    /// box.
    std::vector<bool> checkColumns;
    std::vector<bool> paleColumns; ///< columns that hold nothing: their cells "0" are pale
    int row = -1, column = -1;     ///< current cell
    GridRange selection;
    std::uint64_t revision = 0; ///< raised by whoever changes heads or cells
};
struct Grid : ControlOf<Kind::Grid, GridContents> {
    using ControlOf::ControlOf;
    Handler onSelect;                                ///< another cell became current
    std::function<void(int row, int column)> onEdit; ///< a cell took an edited text
    std::function<void(int row, int column, int&)> onKeyPress;
    std::function<void(int column)> onHeadClick;
    Handler onDoubleClick; ///< on the current cell
    Handler onContextMenu;
};

struct TabPage {
    std::string text;
    bool visible = true;
    bool enabled = true;
};
struct TabPanelContents {
    std::vector<TabPage> pages;
    int selected = 0;
};
struct TabPanel : ControlOf<Kind::TabPanel, TabPanelContents> {
    TabPanel(Form& owner, std::string controlName, std::initializer_list<const char*> texts);
    IndexHandler onClick;
};

struct TimerContents {
    int interval = 0; ///< ms; 0: off
};
struct Timer : ControlOf<Kind::Timer, TimerContents> {
    using ControlOf::ControlOf;
    Handler onTick;
};

struct MenuEntryContents {
    bool checked = false;
    int helpTopic = 0;
};
struct MenuEntry : ControlOf<Kind::MenuEntry, MenuEntryContents> {
    using ControlOf::ControlOf;
    Handler onClick;
    Handler onOpen; ///< runs before the entries below it are shown
};
/// A row of a menu table: the tree of a menu bar from top to bottom. Captions may mark a letter by
/// "&"; a caption "-" is a separating line.
struct MenuRow {
    int level; ///< 1: stands in the bar
    const char* control;
    const char* caption;
    int helpTopic = 0;
    const char* shortcut = ""; ///< "Ctrl+O"
};

struct PictureContents {
    std::string file; ///< name of the drawing, empty: painted by the dialog's painter
};
struct Picture : ControlOf<Kind::Picture, PictureContents> {
    using ControlOf::ControlOf;
    Handler onClick;
};

/// N controls of one name, addressed by index from First on:
/// Array<TextField, 17> Inp{*this, "Inp"}.
template <class T, int N, int First = 0> struct Array {
    Array(Form& owner, const std::string& base)
        : Array(owner, base, std::make_integer_sequence<int, N>{}) {}
    T& operator()(int index) { return items.at(static_cast<std::size_t>(index - First)); }
    const T& operator()(int index) const {
        return items.at(static_cast<std::size_t>(index - First));
    }
    static constexpr int kFirst = First;
    static constexpr int kLast = First + N - 1;
    std::array<T, static_cast<std::size_t>(N)> items;

private:
    template <int... I>
    Array(Form& owner, const std::string& base, std::integer_sequence<int, I...>)
        : items{T(owner, base + "_" + std::to_string(I + First))...} {}
};

/// The base of every dialog record. The record lives as long as the program; `loaded` says whether
/// the dialog is open.
struct Form {
    explicit Form(std::string formName, std::string formCaption = {});
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    const std::string name;
    std::string caption;
    bool loaded = false;
    bool modal = false;
    bool enabled = true;
    bool hidden = false;       ///< loaded but not shown
    int left = 0, top = 0;     ///< twips (15 to a pixel); kept between openings
    int width = 0, height = 0; ///< twips; 0: as the layout wants
    int helpTopic = 0;
    std::vector<Control*> controls;
    std::span<const MenuRow> menu;     ///< the menu bar that the shell builds for the form
    const Control* setFocus = nullptr; ///< a handler's request, taken by the binder

    Handler onLoad;
    Handler onActivate;
    /// May write true to keep the dialog open.
    std::function<void(bool& cancel)> onQueryUnload;
    Handler onUnload;
    Handler onResize;
    Handler onEscape;          ///< in place of the button that Esc presses
    Handler onRefresh;         ///< before the contents are shown, so often: texts made of the state
    Handler onModelChanged;    ///< another model was selected
    Handler onTimeUnitChanged; ///< times and constants were converted

    /// Called at the end of the concrete form's constructor: what the controls hold now is what
    /// they hold again after each loading.
    void Declare();
    void Reset();
    Control* Find(const std::string& controlName);
    /// Takes a control of a common part out of a form that lacks it; it is then never shown.
    void Omit(Control& control);

private:
    bool declared_ = false;
    std::string declaredCaption_;
};

/// The dialogs that exist. Each record enters itself once; who must be refreshed asks here.
struct Desktop {
    std::vector<Form*> forms;
    std::vector<Form*> order; ///< loaded dialogs, the frontmost last
};

/// Opens a dialog (contents as declared, then its load event), or brings the open one forward; its
/// activate event runs in both cases.
void ShowForm(Desktop& desktop, Form& form);
/// Closes a dialog unless its query-unload event refuses.
/// Returned: whether it is closed now; true when it was not open.
bool UnloadForm(Desktop& desktop, Form& form);
/// Hides an open dialog without closing it.
void HideForm(Form& form);
/// Whether a dialog of this name is open.
bool IsFormLoaded(const Desktop& desktop, const std::string& formName);
Form* FindForm(const Desktop& desktop, const std::string& formName);
/// Enables or disables a control of another form by names; nothing happens when there is none. This
/// is how a dialog switches commands of the main window without knowing it.
void EnableControl(const Desktop& desktop, const std::string& formName,
                   const std::string& controlName, bool enabled);

/// What a user does, for handlers and tests alike. A disabled or invisible control does nothing.
void Press(Button& button);
void Press(MenuEntry& entry);
void Press(OptionGroup& group, int index);
void Press(CheckBox& box, bool checked);
/// Choosing an entry of a list.
void Choose(ComboBox& box, int index);
void Choose(TabPanel& panel, int index);
void Move(Slider& slider, int value);
void Move(UpDown& upDown, int value);
/// Typing at the end of a field, key by key: key press, then change.
void Type(TextField& field, const std::string& keys);
void Type(ComboBox& box, const std::string& keys);
void Enter(TextField& field);
/// Writes a field and runs its change handler.
void SetText(TextField& field, const std::string& text);
void SetText(ComboBox& box, const std::string& text);
/// Writes a check box and runs its click handler.
void SetChecked(CheckBox& box, bool checked);

} // namespace zorvant
