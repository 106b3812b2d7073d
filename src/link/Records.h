#pragma once

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace quorvel {

// Helpers to take a multivalue record apart and to put it together. Comparison is binary; numbers
// are one-based. Counts and positions fit 16 bits with sign: RuntimeError 6 when they do not.

// One delimiter: a mark, or a text such as CR LF.
class Delimiter {
 public:
  Delimiter(const char& mark) : text_(&mark, 1) {}     // NOLINT: a mark is a delimiter
  Delimiter(std::string_view text) : text_(text) {}    // NOLINT
  Delimiter(const std::string& text) : text_(text) {}  // NOLINT
  Delimiter(const char* text) : text_(text) {}         // NOLINT
  operator std::string_view() const { return text_; }  // NOLINT

 private:
  std::string_view text_;
};

// The n-th field of the text; empty for one that is not there, for n below 1 too. A trailing
// delimiter makes no extra field.
std::string FieldOf(std::string_view text, Delimiter delimiter, std::int16_t n);

// Occurrences of the delimiter, found left to right without overlap. RuntimeError 5 for an empty
// delimiter.
std::int16_t CountOf(std::string_view text, Delimiter delimiter);

// CountOf plus one: an empty text is one field, and a trailing delimiter has an empty one behind.
std::int16_t DCountOf(std::string_view text, Delimiter delimiter);

// Number of the first field that equals `value` exactly; -1 if there is none.
std::int16_t LocateIn(std::string_view value, std::string_view text, Delimiter delimiter);

// Replaces every occurrence of `from`, also those that a replacement has formed with what stands
// around it, and returns the text. RuntimeError 5 when `to` holds `from`: that would never end;
// RuntimeError 7 when it takes millions of replacements more than the text has characters, or more
// than 256 MiB. The text is unchanged then.
const std::string& SwapAll(std::string_view from, std::string_view to, std::string& text);

// The attribute, value or subvalue of a record; 0 at a level takes it whole.
std::string ExtractOf(std::string_view record, std::int16_t attr, std::int16_t value,
                      std::int16_t subvalue);

// The record with that element replaced by `replacement`, and as many marks added as it takes.
// -1 at a level appends there.
std::string ReplaceOf(std::string_view record, std::int16_t attr, std::int16_t value,
                      std::int16_t subvalue, std::string_view replacement);

// A command string with its notation replaced: "^[13]" is the character with that decimal code;
// what is malformed stays as it is. RuntimeError for a code above 255.
std::string ExpandCommandString(std::string_view text);

// Where `delimiter` stands next, at or behind `from`; npos if nowhere. string_view::find looks for
// a text of one character at two thirds of the speed of a character.
inline std::size_t FindDelimiter(std::string_view text, std::string_view delimiter,
                                 std::size_t from) {
  return delimiter.size() == 1 ? text.find(delimiter[0], from) : text.find(delimiter, from);
}

// The fields of a text in order, DCountOf of them, walking it once:
// `for (std::string_view field : Fields(text, AM))`. The text must outlive the loop.
class Fields {
 public:
  Fields(std::string_view text, Delimiter delimiter) : text_(text), delimiter_(delimiter) {}

  class Iterator {
   public:
    using value_type = std::string_view;
    using difference_type = std::ptrdiff_t;
    Iterator() = default;
    Iterator(std::string_view rest, std::string_view delimiter)
        : rest_(rest), delimiter_(delimiter), done_(false) {
      Cut();
    }
    std::string_view operator*() const { return field_; }
    bool IsLast() const { return last_; }
    Iterator& operator++() {
      if (last_) {
        done_ = true;
      } else {
        rest_.remove_prefix(field_.size() + delimiter_.size());
        Cut();
      }
      return *this;
    }
    bool operator==(const Iterator& other) const { return done_ == other.done_; }

   private:
    void Cut() {
      const auto hit =
          delimiter_.empty() ? std::string_view::npos : FindDelimiter(rest_, delimiter_, 0);
      last_ = hit == std::string_view::npos;
      field_ = rest_.substr(0, hit);
    }
    std::string_view rest_;
    std::string_view delimiter_;
    std::string_view field_;
    bool last_ = false;
    bool done_ = true;
  };

  Iterator begin() const { return {text_, delimiter_}; }
  Iterator end() const { return {}; }

 private:
  std::string_view text_;
  std::string delimiter_;
};

}  // namespace quorvel
