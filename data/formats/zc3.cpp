#include "data/formats/zc3.h"

#include "engine/project_state.h"
#include "platform/encoding.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr int kFirstModel = 2; ///< of a fresh program

void ReadHead(ItemReader& reader, Zc3File& file) {
    file.date = reader.Line("date");
    file.comment = reader.Line("comment");
    std::string name = reader.Line("name of the data file");
    std::erase(name, '"');
    if (std::ranges::any_of(name, [](unsigned char c) { return c < 0x20 || c == 0x7F; }))
        throw FormatError("the name of the data file has control characters: " + Quoted(name));
    file.dataFile = name;
}

/// One number that has a line to itself.
double NumberLine(ItemReader& reader, const char* what) {
    const double number = reader.Number(what);
    reader.EndRow();
    return number;
}
int IntegerLine(ItemReader& reader, const char* what) {
    const int number = reader.Integer(what);
    reader.EndRow();
    return number;
}
void PassNumbers(ItemReader& reader, int count) {
    for (int i = 0; i < count; ++i)
        (void)reader.Number("reserved number");
    reader.EndRow();
}

int ReadModel(ItemReader& reader) {
    const int model = IntegerLine(reader, "model number");
    if ((model < 1 || model > kModels) && model != kEnzymeWithRcS)
        throw FormatError("there is no model " + std::to_string(model));
    return model;
}

void ReadConcentrations(ItemReader& reader, Zc3File& file) {
    const int count = IntegerLine(reader, "number of concentrations");
    if (count < 0 || count > kSpecies)
        throw FormatError("the number of concentrations is " + std::to_string(count));
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        file.c0[i] = NumberLine(reader, "concentration");
}

void ReadLines(ItemReader& reader, Zc3File& file) {
    ReadHead(reader, file);
    file.model = ReadModel(reader);
    for (auto& k : file.k)
        k = reader.Number("rate constant");
    reader.EndRow();
    PassNumbers(reader, 1); // the open window
    ReadConcentrations(reader, file);
    // A species that does not exist would be a wrong place in every table.
    const int species = IntegerLine(reader, "species of the scale");
    file.scaleSpecies = species >= 1 && species <= kSpecies ? species : 1;
    file.scaleOneSpecies = IntegerLine(reader, "scale by one species") == -1;
    PassNumbers(reader, 4);
    file.tMax = NumberLine(reader, "end of the time axis");
    file.tVerweil = NumberLine(reader, "residence time");
    PassNumbers(reader, 2);
    file.timeUnit = reader.TimeUnit();
    // The last line is empty and reserved; that it was written shows in the end of the line before.
}

} // namespace

Zc3Reading ParseZc3(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    ItemReader reader(text);
    Zc3Reading reading;
    try {
        ReadLines(reader, reading.file);
    } catch (const FormatError& error) {
        reading.error = error.what();
    }
    return reading;
}

Zc3File ParseZc3Head(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    ItemReader reader(text);
    Zc3File file;
    ReadHead(reader, file);
    return file;
}

std::string WriteZc3(const Zc3File& file) {
    const auto number = [](const std::optional<double>& value) {
        return FileText(value.value_or(0));
    };
    std::string text;
    const auto line = [&text](const std::string& content) { text += OneLine(content) + kCrLf; };
    line(file.date.value_or(""));
    line(file.comment.value_or(""));
    line(file.dataFile.value_or(""));
    line(std::to_string(file.model.value_or(kFirstModel)));
    line(number(file.k[0]) + "," + number(file.k[1]) + "," + number(file.k[2]));
    line(std::to_string(file.window));
    line(std::to_string(kSpecies));
    for (const auto& c : file.c0)
        line(number(c));
    line(std::to_string(file.scaleSpecies.value_or(1)));
    line(file.scaleOneSpecies.value_or(false) ? "-1" : "0");
    line("0,0,0,0");
    line(number(file.tMax));
    line(number(file.tVerweil));
    line("0,0");
    line(file.timeUnit.value_or("s"));
    line("");
    return EncodeText(text);
}

} // namespace zorvant
