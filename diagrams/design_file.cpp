#include "diagrams/design_file.h"

#include "platform/encoding.h"
#include "platform/exact_number.h"
#include "platform/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zorvant {
namespace {

constexpr std::string_view kFirstLine = "ZORVANT diagram design, version 1";
constexpr std::string_view kLastLine = "end";

// What a file may ask for. Every diagram that the program makes stays far below.
constexpr int kMostSeries = 200, kMostLabels = 200;
constexpr int kMostPoints = 10'000'000;
constexpr std::size_t kLongestText = 10'000; ///< characters
constexpr int kMostPixels = 10'000;
constexpr double kLargestFont = 1000; ///< points
constexpr double kLargestShare = 100; ///< of the picture's width or height
constexpr double kLargestLimit = std::numeric_limits<float>::max(); ///< of an axis
constexpr std::string_view kHoleWord = "-";

// --- the words of the lists of choices

template <class E> struct Word {
    E value;
    std::string_view text;
};
template <class E> struct Words;
template <> struct Words<bool> {
    static constexpr Word<bool> all[] = {{false, "no"}, {true, "yes"}};
};
template <> struct Words<LinePattern> {
    static constexpr Word<LinePattern> all[] = {{LinePattern::None, "none"},
                                                {LinePattern::Solid, "solid"},
                                                {LinePattern::Dotted, "dotted"},
                                                {LinePattern::Dashed, "dashed"},
                                                {LinePattern::DashDot, "dash-dot"}};
};
template <> struct Words<SymbolShape> {
    static constexpr Word<SymbolShape> all[] = {{SymbolShape::Dot, "dot"},
                                                {SymbolShape::Circle, "circle"},
                                                {SymbolShape::Cross, "cross"},
                                                {SymbolShape::Square, "square"},
                                                {SymbolShape::Star, "star"},
                                                {SymbolShape::Triangle, "triangle"},
                                                {SymbolShape::Box, "box"},
                                                {SymbolShape::Diamond, "diamond"},
                                                {SymbolShape::VerticalLine, "vertical-line"},
                                                {SymbolShape::HorizontalLine, "horizontal-line"},
                                                {SymbolShape::Hidden, "hidden"}};
};
template <> struct Words<SeriesDisplay> {
    static constexpr Word<SeriesDisplay> all[] = {{SeriesDisplay::Shown, "shown"},
                                                  {SeriesDisplay::Hidden, "hidden"},
                                                  {SeriesDisplay::Excluded, "excluded"}};
};
template <> struct Words<TextRotation> {
    static constexpr Word<TextRotation> all[] = {{TextRotation::Horizontal, "horizontal"},
                                                 {TextRotation::Vertical, "vertical"}};
};
template <> struct Words<Orientation> {
    static constexpr Word<Orientation> all[] = {{Orientation::Horizontal, "horizontal"},
                                                {Orientation::Vertical, "vertical"}};
};
template <> struct Words<Placement> {
    static constexpr Word<Placement> all[] = {
        {Placement::Min, "minimum"}, {Placement::AtZero, "zero"}, {Placement::Max, "maximum"}};
};
template <> struct Words<BorderType> {
    static constexpr Word<BorderType> all[] = {{BorderType::None, "none"},
                                               {BorderType::ThreeD, "3D"},
                                               {BorderType::Plain, "plain"},
                                               {BorderType::Etched, "etched"}};
};
template <> struct Words<LabelAnchor> {
    static constexpr Word<LabelAnchor> all[] = {
        {LabelAnchor::North, "N"},      {LabelAnchor::NorthEast, "NE"},
        {LabelAnchor::East, "E"},       {LabelAnchor::SouthEast, "SE"},
        {LabelAnchor::South, "S"},      {LabelAnchor::SouthWest, "SW"},
        {LabelAnchor::West, "W"},       {LabelAnchor::NorthWest, "NW"},
        {LabelAnchor::Centre, "centre"}};
};
template <> struct Words<Attachment> {
    static constexpr Word<Attachment> all[] = {
        {Attachment::None, "free"}, {Attachment::Point, "point"}, {Attachment::Coord, "place"}};
};

// --- an item of a line: a value and the range that it may have

struct Whole {
    int& value;
    int least, most;
};
struct Number {
    double& value;
    double least, most;
};
/// A coordinate of a point: any number, or a hole.
struct Coordinate {
    double& value;
};
struct Tint {
    Colour& value;
};
struct Text {
    std::string& value;
};
template <class E> struct Choice { E& value; };
template <class E> Choice(E&) -> Choice<E>;

Whole Pixels(int& value) {
    return {value, 0, kMostPixels};
}
Number Share(double& value) {
    return {value, -kLargestShare, kLargestShare};
}
Number Limit(double& value) {
    return {value, -kLargestLimit, kLargestLimit};
}

// --- writing: each line is a word and its items

class Writer {
public:
    static constexpr bool kReads = false;

    template <class... Items> void Line(std::string_view word, Items... items) {
        text_ += word;
        ((text_ += text_.ends_with('\n') || text_.empty() ? "" : " ", Put(items)), ...);
        text_ += kCrLf;
    }
    std::string Take() { return std::move(text_); }

private:
    void Put(Whole item) { text_ += std::to_string(item.value); }
    void Put(Number item) { text_ += ExactText(item.value); }
    void Put(Coordinate item) {
        const bool hole = item.value == kHole || !std::isfinite(item.value);
        text_ += hole ? std::string(kHoleWord) : ExactText(item.value);
    }
    void Put(Tint item) {
        if (item.value > kWhite) {
            text_ += "style";
            return;
        }
        text_ += '#';
        for (int shift = 20; shift >= 0; shift -= 4)
            text_ += "0123456789ABCDEF"[(item.value >> shift) & 0xF];
    }
    void Put(Text item) {
        const std::string text =
            Shortened(IsUtf8(item.value) ? item.value : DecodeText(item.value), kLongestText);
        text_ += '"';
        for (const char c : text) {
            const auto code = static_cast<unsigned char>(c);
            if (c == '"' || c == '\\')
                (text_ += '\\') += c;
            else if (c == '\n')
                text_ += "\\n";
            else if (code < 0x20 || code == 0x7F)
                ((text_ += "\\x") += "0123456789ABCDEF"[code >> 4]) +=
                    "0123456789ABCDEF"[code & 15];
            else
                text_ += c;
        }
        text_ += '"';
    }
    template <class E> void Put(Choice<E> item) {
        for (const Word<E>& word : Words<E>::all)
            if (word.value == item.value)
                text_ += word.text;
    }

    std::string text_;
};

// --- reading: the same lines in the same order

class Reader {
public:
    static constexpr bool kReads = true;

    explicit Reader(std::string_view text) : rest_(text) {}

    template <class... Items> void Line(std::string_view word, Items... items) {
        NextLine();
        if (!word.empty() && Item() != Trimmed(word))
            Fail("\"" + std::string(word) + "\" is expected, not " + Quoted(line_));
        (Get(items), ...);
        if (!here_.empty())
            Fail(Quoted(here_) + " is too much");
    }
    void FirstLine() {
        NextLine();
        if (Trim(line_) != kFirstLine)
            Fail("the file is no diagram design of this program, or of a later version of it");
    }
    void LastLine() {
        Line(kLastLine);
        if (rest_.find_first_not_of("\r\n \t") != std::string_view::npos)
            Fail("text follows behind the end of the design");
    }
    [[noreturn]] void Fail(const std::string& why) const {
        throw FormatError("line " + std::to_string(number_) + ": " + why);
    }

private:
    static std::string_view Trimmed(std::string_view word) {
        return word.substr(word.find_first_not_of(' '));
    }
    void NextLine() {
        ++number_;
        if (rest_.empty())
            Fail("the file ends before the design is complete");
        const std::size_t end = rest_.find('\n');
        line_ = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        if (line_.ends_with('\r'))
            line_.remove_suffix(1);
        if (!IsUtf8(line_))
            Fail("the text is not in UTF-8");
        here_ = line_;
        PassBlanks();
    }
    void PassBlanks() {
        here_.remove_prefix(std::min(here_.find_first_not_of(" \t"), here_.size()));
    }
    std::string_view Item() {
        if (here_.empty())
            Fail("an item is missing at the end of " + Quoted(line_));
        const std::string_view item = here_.substr(0, here_.find_first_of(" \t"));
        here_.remove_prefix(item.size());
        PassBlanks();
        return item;
    }
    double FiniteNumber(std::string_view item) const {
        const std::optional<double> number = ParseNumber(item);
        if (!number)
            Fail(Quoted(item) + " is not a finite number");
        return *number;
    }
    void Get(Whole item) {
        const std::string_view text = Item();
        const std::optional<long long> number = ParseInteger(text);
        if (!number || *number < item.least || *number > item.most)
            Fail(Quoted(text) + " is not an integer from " + std::to_string(item.least) + " to " +
                 std::to_string(item.most));
        item.value = static_cast<int>(*number);
    }
    void Get(Number item) {
        const std::string_view text = Item();
        const double number = FiniteNumber(text);
        if (number < item.least || number > item.most)
            Fail(Quoted(text) + " is out of the range from " + ExactText(item.least) + " to " +
                 ExactText(item.most));
        item.value = number;
    }
    void Get(Coordinate item) {
        const std::string_view text = Item();
        item.value = text == kHoleWord ? kHole : FiniteNumber(text);
    }
    void Get(Tint item) {
        const std::string_view text = Item();
        if (text == "style") {
            item.value = kStyleColour;
            return;
        }
        const char* const end = text.data() + text.size();
        const bool shaped = text.size() == 7 && text.front() == '#';
        if (!shaped || std::from_chars(text.data() + 1, end, item.value, 16).ptr != end)
            Fail(Quoted(text) + " is not a colour like #00A0FF");
    }
    void Get(Text item) {
        if (!here_.starts_with('"'))
            Fail("a text in double quotes is expected, not " + Quoted(here_));
        here_.remove_prefix(1);
        item.value.clear();
        for (;;) {
            if (here_.empty())
                Fail("the closing quote of a text is missing");
            const char c = here_.front();
            here_.remove_prefix(1);
            if (c == '"')
                break;
            item.value += c == '\\' ? Escaped() : c;
            if (item.value.size() > 4 * kLongestText)
                break;
        }
        if (CountCharacters(item.value) > kLongestText + 1) // one for the ellipsis
            Fail("a text is longer than " + std::to_string(kLongestText) + " characters");
        PassBlanks();
    }
    char Escaped() {
        const char c = here_.empty() ? '\0' : here_.front();
        if (c == '"' || c == '\\' || c == 'n') {
            here_.remove_prefix(1);
            return c == 'n' ? '\n' : c;
        }
        unsigned code = 0;
        const std::string_view digits = here_.substr(std::min<std::size_t>(1, here_.size()), 2);
        const char* const end = digits.data() + digits.size();
        if (c != 'x' || digits.size() != 2 ||
            std::from_chars(digits.data(), end, code, 16).ptr != end || code > 0x7F)
            Fail("a backslash stands before what it can't stand before");
        here_.remove_prefix(3);
        return static_cast<char>(code);
    }
    template <class E> void Get(Choice<E> item) {
        const std::string_view text = Item();
        for (const Word<E>& word : Words<E>::all)
            if (word.text == text) {
                item.value = word.value;
                return;
            }
        std::string words;
        for (const Word<E>& word : Words<E>::all)
            words += (words.empty() ? "" : ", ") + std::string(word.text);
        Fail(Quoted(text) + " is none of " + words);
    }

    std::string_view rest_; ///< lines to come
    std::string_view line_; ///< the present one
    std::string_view here_; ///< its items to come
    int number_ = 0;
};

// --- what is in a file, once for both directions. The bindings name every member, so that a new
// one is not forgotten here.

template <class F> void Describe(F& f, LineStyle& style) {
    auto& [pattern, width, colour] = style;
    f.Line(" stroke", Choice{pattern}, Pixels(width), Tint{colour});
}
template <class F> void Describe(F& f, SymbolStyle& style) {
    auto& [shape, size, colour] = style;
    f.Line(" symbol", Choice{shape}, Pixels(size), Tint{colour});
}
template <class F> void Describe(F& f, Border& border) {
    auto& [type, width] = border;
    f.Line(" border", Choice{type}, Pixels(width));
}
template <class F> void Describe(F& f, Colours& colours) {
    auto& [back, fore, transparent] = colours;
    f.Line(" colours", Tint{back}, Tint{fore}, Choice{transparent});
}
template <class F> void Describe(F& f, Location& location) {
    auto& [x, y, automatic] = location;
    f.Line(" location", Share(x), Share(y), Choice{automatic});
}
template <class F> void Describe(F& f, FontChoice& font, std::string_view word) {
    auto& [family, size, bold, italic] = font;
    f.Line(word, Text{family}, Number{size, 1, kLargestFont}, Choice{bold}, Choice{italic});
}
template <class F> void Describe(F& f, Spacing& spacing, std::string_view word) {
    auto& [value, automatic] = spacing;
    f.Line(word, Number{value, 0, kLargestLimit}, Choice{automatic});
}
template <class F> void Describe(F& f, Margin& margin, std::string_view word) {
    auto& [width, automatic] = margin;
    f.Line(word, Pixels(width), Choice{automatic});
}

template <class F> void Describe(F& f, PlotSeries& series) {
    auto& [x, y, display, label, line, symbol] = series;
    f.Line("series", Choice{display}, Text{label});
    Describe(f, line);
    Describe(f, symbol);
    int count = static_cast<int>(std::min(x.size(), y.size()));
    f.Line(" points", Whole{count, 0, kMostPoints});
    for (int i = 0; i < count; ++i) {
        if constexpr (F::kReads) { // grows with what is there, not with what is announced
            x.push_back(0);
            y.push_back(0);
        }
        const auto at = static_cast<std::size_t>(i);
        f.Line("", Coordinate{x[at]}, Coordinate{y[at]});
    }
}

template <class F> void Describe(F& f, PlotLabel& label) {
    auto& [text, visible, attachment, group, series, point, x, y, offset, anchor, font, colours,
           border] = label;
    f.Line("label", Choice{visible}, Text{text});
    f.Line(" at", Choice{attachment}, Whole{group, kLines, kPoints}, Whole{series, 1, kMostSeries},
           Whole{point, 1, kMostPoints}, Coordinate{x}, Coordinate{y});
    f.Line(" beside", Choice{anchor}, Whole{offset, -kMostPixels, kMostPixels});
    Describe(f, font, " font");
    Describe(f, colours);
    Describe(f, border);
}

template <class F> void Describe(F& f, TextBlock& block, std::string_view word) {
    auto& [text, location, font, colours, border] = block;
    f.Line(word, Text{text});
    Describe(f, location);
    Describe(f, font, " font");
    Describe(f, colours);
    Describe(f, border);
}

template <class F> void Describe(F& f, PlotLegend& legend) {
    auto& [visible, orientation, border, font, colours, location] = legend;
    f.Line("legend", Choice{visible}, Choice{orientation});
    Describe(f, location);
    Describe(f, font, " font");
    Describe(f, colours);
    Describe(f, border);
}

template <class F> void Describe(F& f, PlotAxis& axis, std::string_view word) {
    auto& [min, max, dataMin, dataMax, log, visible, title, titleRotation, font, titleFont, colour,
           lineWidth, annotation, annotationRotation, origin, grid, tick, number, gridPattern,
           gridColour] = axis;
    f.Line(word, Choice{visible}, Text{title}, Choice{titleRotation});
    f.Line(" range", Limit(min), Limit(max), Limit(dataMin), Limit(dataMax));
    f.Line(" logarithmic", Choice{log});
    f.Line(" line", Pixels(lineWidth), Tint{colour}, Choice{origin});
    f.Line(" numbers", Choice{annotation}, Choice{annotationRotation});
    Describe(f, font, " font");
    Describe(f, titleFont, " title-font");
    Describe(f, number, " number-spacing");
    Describe(f, tick, " tick-spacing");
    Describe(f, grid, " grid-spacing");
    f.Line(" grid", Choice{gridPattern}, Tint{gridColour});
}

/// A list whose element 0 is unused.
template <class F, class T>
void DescribeList(F& f, std::vector<T>& list, std::string_view word, int most) {
    int count = std::max(0, static_cast<int>(list.size()) - 1);
    f.Line(word, Whole{count, 0, most});
    if constexpr (F::kReads)
        list.resize(1);
    for (int i = 1; i <= count; ++i) {
        if constexpr (F::kReads)
            list.emplace_back();
        Describe(f, list[static_cast<std::size_t>(i)]);
    }
}

template <class F> void Describe(F& f, PlotContents& contents) {
    auto& [series, labels, header, footer, legend, axes, chart, chartBorder, chartArea,
           chartAreaBox, plotArea, plotAreaFrame, plotAreaFrameWidth, margins] = contents;
    f.Line("picture");
    Describe(f, chart);
    Describe(f, chartBorder);
    auto& [left, top, width, height, automatic] = chartAreaBox;
    f.Line("chart-area", Share(left), Share(top), Share(width), Share(height), Choice{automatic});
    Describe(f, chartArea);
    f.Line("plot-area", Choice{plotAreaFrame}, Pixels(plotAreaFrameWidth));
    Describe(f, plotArea);
    auto& [leftMargin, rightMargin, topMargin, bottomMargin] = margins;
    Describe(f, leftMargin, " left");
    Describe(f, rightMargin, " right");
    Describe(f, topMargin, " top");
    Describe(f, bottomMargin, " bottom");
    Describe(f, header, "header");
    Describe(f, footer, "additional-text");
    Describe(f, legend);
    Describe(f, axes[0], "axis-x");
    Describe(f, axes[1], "axis-y");
    Describe(f, axes[2], "axis-y2");
    DescribeList(f, series[kLines], "lines", kMostSeries);
    DescribeList(f, series[kPoints], "point-sets", kMostSeries);
    DescribeList(f, labels, "labels", kMostLabels);
}

/// A label on a series that is not there would have no place.
void CheckLabels(const PlotContents& contents, const Reader& reader) {
    for (std::size_t i = 1; i < contents.labels.size(); ++i) {
        const PlotLabel& label = contents.labels[i];
        const auto count = contents.series.at(static_cast<std::size_t>(label.group)).size();
        if (label.attachment == Attachment::Point &&
            static_cast<std::size_t>(label.series) >= count)
            reader.Fail("label " + std::to_string(i) + " is attached to series " +
                        std::to_string(label.series) + ", which is not in the file");
    }
}

} // namespace

std::string WriteDesign(const PlotContents& contents) {
    Writer writer;
    writer.Line(kFirstLine);
    PlotContents copy = contents; // Describe serves both directions, reading writes into it
    Describe(writer, copy);
    writer.Line(kLastLine);
    return writer.Take();
}

PlotContents ParseDesign(std::string_view bytes) {
    if (bytes.size() > kLargestDesign)
        throw FormatError("the file is larger than any diagram design");
    Reader reader(bytes);
    PlotContents contents;
    reader.FirstLine();
    Describe(reader, contents);
    CheckLabels(contents, reader);
    reader.LastLine();
    return contents;
}

} // namespace zorvant
