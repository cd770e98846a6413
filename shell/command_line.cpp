#include "shell/command_line.h"

#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zorvant {
namespace {

constexpr double kLargestScale = 8;
constexpr int kLeastWidth = 200, kLeastHeight = 150; ///< logical pixels that a diagram needs
constexpr std::array<const char*, 6> kPictureEndings{".PNG", ".SVG", ".PDF",
                                                     ".BMP", ".WMF", ".EMF"};

void CheckPicture(const std::string& path) {
    const std::string name = UpperCase(FileName(path));
    for (const char* ending : kPictureEndings)
        if (name.size() > std::string_view(ending).size() && EndsWith(name, ending))
            return;
    throw UsageError("\"" + path +
                     "\" is no picture: it must end in .png, .svg, .pdf, "
                     ".bmp, .wmf or .emf");
}

/// "1200x800"
void ReadSize(CommandLine& line, const std::string& value) {
    const std::size_t by = value.find_first_of("xX");
    const auto side = [&](const std::string& text, int least) {
        const auto number = ParseInteger(text);
        if (!number || *number < least || *number > kLargestSide)
            throw UsageError("--size " + value + ": write it as WIDTHxHEIGHT, from " +
                             std::to_string(kLeastWidth) + "x" + std::to_string(kLeastHeight) +
                             " on, each up to " + std::to_string(kLargestSide));
        return static_cast<int>(*number);
    };
    line.width = side(value.substr(0, by), kLeastWidth);
    line.height =
        side(by == std::string::npos ? std::string() : value.substr(by + 1), kLeastHeight);
}

void ReadScale(CommandLine& line, const std::string& value) {
    const auto number = ParseNumber(value);
    if (!number || !(*number > 0) || *number > kLargestScale)
        throw UsageError("--scale " + value + ": a number above 0 and up to 8");
    line.scale = *number;
}

using Setter = void (*)(CommandLine&, const std::string&);
struct OptionRow {
    const char* name;
    const char* value; ///< its name in the help; nullptr: the option has none
    const char* help;
    Setter set;
};

const std::array<OptionRow, 8>& Options() {
    static const std::array<OptionRow, 8> table{
        {{"--export", "FILE",
          "draw the course of the project (.png, .svg, .pdf, .bmp, .wmf\n"
          "                  or .emf)",
          [](CommandLine& line, const std::string& value) {
              CheckPicture(value);
              line.picture = value;
          }},
         {"--table", "FILE", "write the course as a table",
          [](CommandLine& line, const std::string& value) { line.table = value; }},
         {"--rates", nullptr, "reaction rates instead of concentrations",
          [](CommandLine& line, const std::string&) { line.rates = true; }},
         {"--michaelis", nullptr, "enzyme model: r(P) against c(S) instead of a course",
          [](CommandLine& line, const std::string&) { line.michaelis = true; }},
         {"--size", "WxH", "size of the picture (900x600), at least 200x150", ReadSize},
         {"--scale", "N", "pixels of a .png or .bmp to each pixel of the size (1)", ReadScale},
         {"--help", nullptr, "this text",
          [](CommandLine& line, const std::string&) { line.task = Task::Help; }},
         {"--version", nullptr, "the program's version",
          [](CommandLine& line, const std::string&) { line.task = Task::Version; }}}};
    return table;
}

const OptionRow& FindOption(const std::string& name) {
    for (const OptionRow& option : Options())
        if (option.name == name)
            return option;
    throw UsageError("unknown option " + name);
}

} // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!argument.starts_with("--")) {
            line.project += (line.project.empty() ? "" : " ") + argument;
            continue;
        }
        const OptionRow& option = FindOption(argument);
        if (option.value != nullptr && ++i == arguments.size())
            throw UsageError(argument + " needs a value: " + argument + " " + option.value);
        if (option.value != nullptr && arguments[i].empty())
            throw UsageError(argument + " needs a value that is not empty");
        option.set(line, option.value != nullptr ? arguments[i] : std::string());
    }
    std::erase(line.project, '"');
    if (line.task != Task::Window)
        return line;
    if (!line.picture.empty() || !line.table.empty()) {
        line.task = Task::Export;
        if (line.project.empty())
            throw UsageError("--export and --table need a project: zorvant --export FILE "
                             "PROJECT.ZC3");
    }
    const double largest = std::max(line.width, line.height) * line.scale;
    const double pixels = line.width * line.scale * line.height * line.scale;
    if (std::lround(largest) > kLargestSide || pixels > kMostPixels)
        throw UsageError("the picture would be larger than " + std::to_string(kLargestSide) +
                         " pixels on a side or 150 million in all");
    return line;
}

std::string HelpText() {
    std::string text = "zorvant [PROJECT.ZC3]\n"
                       "    opens the workbench, with the project.\n"
                       "zorvant [--export FILE] [--table FILE] [options] PROJECT.ZC3\n"
                       "    draws or tabulates the course of the project without opening it, with "
                       "its\n    measured points.\n\n";
    for (const OptionRow& option : Options()) {
        std::string left = std::string("  ") + option.name;
        if (option.value != nullptr)
            left += std::string(" ") + option.value;
        left.resize(std::max<std::size_t>(left.size() + 2, 18), ' ');
        text += left + option.help + "\n";
    }
    return text + "\nErrors go to standard error; the exit status is then 2.\n";
}

} // namespace zorvant
