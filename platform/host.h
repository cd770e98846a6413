// What the program asks of the machine and the desktop it runs on. The shell fills it with the
// toolkit's means; tests put a scripted one there.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvant {

struct Form;
struct MenuEntry;

enum class Icon { None, Information, Warning, Critical, Question };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

struct MessageBox {
    std::string text;
    std::string title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    Answer preset = Answer::Ok; ///< the button that Enter presses; Ok: the first one
};

struct FileRequest {
    bool save = false;
    std::string title;
    std::string directory;
    std::string name;      ///< preset
    std::string extension; ///< added where the user gives none, with its point
    /// Pairs of description and pattern: {"Text (*.TXT)", "*.TXT"}.
    std::vector<std::pair<std::string, std::string>> filters;
    bool overwritePrompt = true;
};
struct FileChoice {
    std::string path;
    int filter = 0; ///< index into FileRequest::filters
};

struct FontChoice {
    std::string family;
    double size = 10; ///< points
    bool bold = false;
    bool italic = false;
    bool operator==(const FontChoice&) const = default;
};

struct Host {
    std::function<Answer(const MessageBox&)> messageBox;
    std::function<std::optional<FileChoice>(const FileRequest&)> chooseFile;
    std::function<std::optional<std::uint32_t>(std::uint32_t present)> chooseColour;
    std::function<std::optional<FontChoice>(const FontChoice& present)> chooseFont;

    std::function<void(const std::string& utf8)> setClipboardText;
    std::function<std::optional<std::string>()> clipboardText;
    /// Prints plain text in a fixed pitch. Returned: false when the user cancelled.
    std::function<bool(const std::string& text, const std::string& title)> printText;

    std::function<void()> serviceEvents; ///< lets pending input and painting happen
    std::function<void()> beep;
    std::function<void(bool on)> waitPointer;
    std::function<void(int topic)> showHelp;
    std::function<void()> closeHelp;
    /// Starts a program that runs on its own. Returned: false when it can't be started.
    std::function<bool(const std::string& path)> startProgram;

    std::function<double()> clockSeconds;     ///< s since midnight, with fractions
    std::function<std::string()> dateAndTime; ///< for people, in the system's own form
    std::function<std::string(const std::string& path)> fileDate;
    std::function<bool()> decimalComma; ///< the system writes numbers with a comma

    std::function<void(Form&)> showForm; ///< make visible, bring to front
    std::function<void(Form&)> closeForm;
    std::function<void(Form&)> hideForm;
    /// Opens the entries below a menu entry at the pointer (its open event runs first).
    std::function<void(MenuEntry&)> popupMenu;
    std::function<void()> quit;

    std::string programDirectory; ///< the folder of the executable, without separator at its end
};

/// The one host of the process; every member is callable (at first each does nothing, message boxes
/// go to standard error).
Host& host();

/// A box with one button. Texts may use CR LF or LF.
void ShowMessage(const std::string& text, const std::string& title, Icon icon);
/// A box with a choice.
Answer Ask(const std::string& text, const std::string& title, Icon icon, Buttons buttons,
           Answer preset = Answer::Ok);

/// Restores the previous host when it goes out of scope, records every box, answers from a list.
class ScriptedHost {
public:
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    std::vector<MessageBox> boxes; ///< shown so far
    std::vector<Answer> answers;   ///< taken from the front; empty: the preset, or Ok/Yes
    std::vector<std::optional<FileChoice>> files; ///< taken from the front; empty: cancelled
    std::vector<FileRequest> fileRequests;
    std::vector<std::optional<std::uint32_t>> colours; ///< taken from the front
    std::vector<std::optional<FontChoice>> fonts;      ///< the same
    std::optional<std::string> clipboard;
    std::vector<std::string> printed;
    std::vector<int> helpTopics;
    std::vector<std::string> started; ///< programs
    int beeps = 0;
    int waitDepth = 0; ///< how often the wait pointer was set less how often it was taken away
    int services = 0;  ///< calls of the event service
    std::function<void()> onService; ///< what the user does meanwhile
    double clock = 0;
    bool quitted = false;
    std::vector<MenuEntry*> popups; ///< menus opened at the pointer

private:
    Host saved_;
};

} // namespace zorvant
