#include "platform/host.h"

#include "platform/encoding.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace zorvant {
namespace {

template <class T> T TakeFront(std::vector<T>& list, T otherwise) {
    if (list.empty())
        return otherwise;
    T front = std::move(list.front());
    list.erase(list.begin());
    return front;
}

Answer PresetAnswer(const MessageBox& box) {
    if (box.preset != Answer::Ok)
        return box.preset;
    return box.buttons == Buttons::Ok || box.buttons == Buttons::OkCancel ? Answer::Ok
                                                                          : Answer::Yes;
}

double SecondsSinceMidnight() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t whole = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&whole, &local);
    const double fraction =
        duration<double>(now.time_since_epoch()).count() - static_cast<double>(whole);
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + fraction;
}

std::string LocalDateAndTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return {text, length};
}

/// A program without a desktop: boxes go to standard error, questions take their preset.
Host BareHost() {
    Host bare;
    bare.messageBox = [](const MessageBox& box) {
        std::fprintf(stderr, "%s: %s\n", TerminalText(box.title).c_str(),
                     TerminalText(box.text).c_str());
        return PresetAnswer(box);
    };
    bare.chooseFile = [](const FileRequest&) { return std::nullopt; };
    bare.chooseColour = [](std::uint32_t) { return std::nullopt; };
    bare.chooseFont = [](const FontChoice&) { return std::nullopt; };
    bare.setClipboardText = [](const std::string&) {};
    bare.clipboardText = [] { return std::nullopt; };
    bare.printText = [](const std::string&, const std::string&) { return false; };
    bare.serviceEvents = [] {};
    bare.beep = [] {};
    bare.waitPointer = [](bool) {};
    bare.showHelp = [](int) {};
    bare.closeHelp = [] {};
    bare.startProgram = [](const std::string&) { return false; };
    bare.clockSeconds = SecondsSinceMidnight;
    bare.dateAndTime = LocalDateAndTime;
    bare.fileDate = [](const std::string&) { return std::string(); };
    bare.decimalComma = [] { return false; };
    bare.showForm = [](Form&) {};
    bare.closeForm = [](Form&) {};
    bare.hideForm = [](Form&) {};
    bare.popupMenu = [](MenuEntry&) {};
    bare.quit = [] {};
    return bare;
}

} // namespace

Host& host() {
    static Host theHost = BareHost();
    return theHost;
}

void ShowMessage(const std::string& text, const std::string& title, Icon icon) {
    host().messageBox({.text = text, .title = title, .icon = icon});
}

Answer Ask(const std::string& text, const std::string& title, Icon icon, Buttons buttons,
           Answer preset) {
    return host().messageBox(
        {.text = text, .title = title, .icon = icon, .buttons = buttons, .preset = preset});
}

ScriptedHost::ScriptedHost() : saved_(host()) {
    Host& h = host();
    h.messageBox = [this](const MessageBox& box) {
        boxes.push_back(box);
        return TakeFront(answers, PresetAnswer(box));
    };
    h.chooseFile = [this](const FileRequest& request) {
        fileRequests.push_back(request);
        return TakeFront<std::optional<FileChoice>>(files, std::nullopt);
    };
    h.chooseColour = [this](std::uint32_t) {
        return TakeFront<std::optional<std::uint32_t>>(colours, std::nullopt);
    };
    h.chooseFont = [this](const FontChoice&) {
        return TakeFront<std::optional<FontChoice>>(fonts, std::nullopt);
    };
    h.setClipboardText = [this](const std::string& text) { clipboard = text; };
    h.clipboardText = [this] { return clipboard; };
    h.printText = [this](const std::string& text, const std::string&) {
        printed.push_back(text);
        return true;
    };
    h.serviceEvents = [this] {
        ++services;
        if (onService)
            onService();
    };
    h.beep = [this] { ++beeps; };
    h.waitPointer = [this](bool on) { waitDepth += on ? 1 : -1; };
    h.showHelp = [this](int topic) { helpTopics.push_back(topic); };
    h.startProgram = [this](const std::string& path) {
        started.push_back(path);
        return true;
    };
    h.clockSeconds = [this] { return clock += 0.001; };
    h.dateAndTime = [] { return std::string("2000-01-01 12:00:00"); };
    h.fileDate = [](const std::string&) { return std::string("2000-01-01 12:00:00"); };
    h.popupMenu = [this](MenuEntry& entry) { popups.push_back(&entry); };
    h.quit = [this] { quitted = true; };
}

ScriptedHost::~ScriptedHost() {
    host() = saved_;
}

} // namespace zorvant
