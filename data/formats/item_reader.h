// The items of a text that is read from front to back: whole lines, words and numbers. Items are
// separated by a comma or a line end; CR LF, LF and CR end a line.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace zorvant {

/// A text that is not of its format; what() says where and why.
struct FormatError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

inline constexpr const char* kPastEnd = "Input past end of file";
inline constexpr const char* kOverflowText = "Overflow";

class ItemReader {
public:
    /// The text must outlive the reader.
    explicit ItemReader(std::string_view text) : rest_(text) {}

    /// Names the place for messages: "row 3 of 12".
    void SetRow(int row, int rows) { row_ = row, rows_ = rows; }

    /// The rest of the line. Errors: FormatError when nothing follows.
    std::string Line(const char* what);
    /// A time unit: a Word of at most 40 characters.
    std::string TimeUnit();
    /// The text up to a comma or the line end, without blanks around it and without quotes; what
    /// follows the comma in this line is passed over.
    /// Errors: FormatError when nothing follows, or when the text ends without a line end: then it
    /// may have been cut off within the word.
    std::string Word(const char* what);
    /// The next item, 0 where there is nothing between two commas; empty lines are passed over.
    /// Errors: FormatError: nothing follows, not a finite number.
    double Number(const char* what);
    /// The same, within the range of a Single.
    float Single(const char* what);
    /// The same, rounded to an integer of 16 bits.
    int Integer(const char* what);
    /// Passes over empty items up to the end of the line, if there is nothing else.
    void EndRow();

    bool AtEnd() const { return rest_.empty(); }

private:
    std::string_view Item(const char* what);
    std::string_view TakeLine();
    void PassLineEnd();
    [[noreturn]] void Fail(const char* what, const std::string& why) const;

    std::string_view rest_;
    bool afterComma_ = false;
    int row_ = 0, rows_ = 0;
};

/// One line of a file from any text: line ends in it become blanks.
std::string OneLine(std::string_view text);

/// A piece of a foreign text for a message: short, and without control characters.
std::string Quoted(std::string_view text);

} // namespace zorvant
