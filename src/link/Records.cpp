#include "link/Records.h"

#include <algorithm>
#include <utility>

#include "link/Marks.h"
#include "platform/Numbers.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

constexpr auto npos = std::string_view::npos;

// The last field of a text. A delimiter is put behind the text before it is looked at, and the
// text's last characters may already begin one: "a:" and "::" give "a".
std::string_view LastField(std::string_view rest, std::string_view delimiter) {
  const std::size_t tail = std::min(rest.size(), delimiter.size() - 1);
  std::string joined(rest.substr(rest.size() - tail));
  joined += delimiter;
  return rest.substr(0, rest.size() - tail + joined.find(delimiter));
}

std::string_view FieldView(std::string_view text, std::string_view delimiter, std::int16_t n) {
  if (text.empty() || delimiter.empty() || n < 1) return {};
  std::size_t from = 0;
  for (int i = 1; i < n; ++i) {
    const auto hit = FindDelimiter(text, delimiter, from);
    if (hit == npos) return {};
    from = hit + delimiter.size();
  }
  const auto end = FindDelimiter(text, delimiter, from);
  if (end != npos) return text.substr(from, end - from);
  return LastField(text.substr(from), delimiter);
}

// Some pairs ("ab" by "bbaa") never end and grow, others ("ab" by "ba") take the square of the
// text. A pair that shrinks the text needs one replacement a character at most; beyond that, no
// record needs as many as this, nor grows to that size.
constexpr std::size_t kMostReplacements = std::size_t{1} << 20;
constexpr std::size_t kLargestResult = std::size_t{1} << 28;

}  // namespace

std::string FieldOf(std::string_view text, Delimiter delimiter, std::int16_t n) {
  return std::string(FieldView(text, delimiter, n));
}

std::int16_t CountOf(std::string_view text, Delimiter delimiter) {
  const std::string_view mark = delimiter;
  if (mark.empty()) throw RuntimeError(Failure::InvalidCall);
  std::int64_t count = 0;
  for (auto hit = FindDelimiter(text, mark, 0); hit != npos;
       hit = FindDelimiter(text, mark, hit + mark.size())) {
    ++count;
  }
  return CheckedInt16(count);
}

std::int16_t DCountOf(std::string_view text, Delimiter delimiter) {
  return CheckedInt16(std::int64_t{CountOf(text, delimiter)} + 1);
}

std::int16_t LocateIn(std::string_view value, std::string_view text, Delimiter delimiter) {
  const std::string_view mark = delimiter;
  if (mark.empty()) throw RuntimeError(Failure::InvalidCall);
  std::int64_t number = 0;
  const Fields fields(text, mark);
  for (auto field = fields.begin(); field != fields.end(); ++field) {
    ++number;
    const bool last = field.IsLast();
    if ((last ? LastField(*field, mark) : *field) == value) return CheckedInt16(number);
  }
  return -1;
}

const std::string& SwapAll(std::string_view from, std::string_view to, std::string& text) {
  if (from.empty()) return text;
  if (to.find(from) != npos) throw RuntimeError(Failure::InvalidCall);
  const std::size_t first = text.find(from);
  if (first == npos) return text;
  // The leftmost occurrence is the one that ends first: `out` never holds one, and what replaces
  // an occurrence is read once more, together with what follows.
  std::string out(text, 0, first);
  std::string again;  // to be read before the rest of the text, backward
  std::size_t replacements = 0;
  for (std::size_t next = first; next < text.size() || !again.empty();) {
    if (again.empty()) {
      // Nothing can end before the next last character of `from`.
      const std::size_t end = text.find(from.back(), next);
      const std::size_t count = std::min(end, text.size() - 1) + 1 - next;
      out.append(text, next, count);
      next += count;
    } else {
      out += again.back();
      again.pop_back();
    }
    if (!std::string_view(out).ends_with(from)) continue;
    out.resize(out.size() - from.size());
    again.append(to.rbegin(), to.rend());
    if (++replacements > text.size() + kMostReplacements ||
        out.size() + again.size() > std::max(text.size(), kLargestResult)) {
      throw RuntimeError(Failure::OutOfMemory);
    }
  }
  text = std::move(out);
  return text;
}

std::string ExtractOf(std::string_view record, std::int16_t attr, std::int16_t value,
                      std::int16_t subvalue) {
  std::string_view part = record;
  if (attr != 0) part = FieldView(part, std::string_view(&AM, 1), attr);
  if (value != 0) part = FieldView(part, std::string_view(&VM, 1), value);
  if (subvalue != 0) part = FieldView(part, std::string_view(&SVM, 1), subvalue);
  return std::string(part);
}

namespace {

// Replaces element `number` of `text` at the level of `marks[0]`, going down with the other
// numbers as long as they are not 0.
std::string ReplaceAt(std::string_view text, const char* marks, const std::int16_t* numbers,
                      int levels, std::string_view replacement) {
  if (levels == 0 || numbers[0] == 0) return std::string(replacement);
  const char mark = marks[0];
  std::string_view before, element, behind;
  std::string padding;
  if (numbers[0] == -1) {
    before = text;
    if (!text.empty() && text.back() != mark) padding = std::string(1, mark);
  } else {
    std::size_t from = 0;
    for (int i = 1; i < numbers[0]; ++i) {
      const auto hit = text.find(mark, from);
      if (hit == npos) {
        before = text;
        padding = std::string(static_cast<std::size_t>(numbers[0] - i), mark);
        break;
      }
      from = hit + 1;
    }
    if (padding.empty()) {
      const auto end = std::min(text.find(mark, from), text.size());
      before = text.substr(0, from);
      element = text.substr(from, end - from);
      behind = text.substr(end);
    }
  }
  std::string out(before);
  out += padding;
  out += ReplaceAt(element, marks + 1, numbers + 1, levels - 1, replacement);
  out += behind;
  return out;
}

}  // namespace

std::string ReplaceOf(std::string_view record, std::int16_t attr, std::int16_t value,
                      std::int16_t subvalue, std::string_view replacement) {
  if (attr == 0 && value == 0 && subvalue == 0) {
    std::string out(replacement);
    if (!record.empty()) out.append(1, AM).append(record);
    return out;
  }
  if (attr == 0) attr = 1;
  if (value == 0 && subvalue != 0) value = 1;
  constexpr char kMarks[] = {AM, VM, SVM};
  const std::int16_t numbers[] = {attr, value, subvalue};
  return ReplaceAt(record, kMarks, numbers, 3, replacement);
}

std::string ExpandCommandString(std::string_view text) {
  enum class State { Normal, FoundUp, GetAscii };
  State state = State::Normal;
  std::string out;
  std::string acc;
  for (const char c : text) {
    switch (state) {
      case State::Normal:
        if (c == '^') {
          state = State::FoundUp;
        } else {
          out += c;
        }
        break;
      case State::FoundUp:
        if (c == '[') {
          acc.clear();
          state = State::GetAscii;
        } else {
          out.append(1, '^').append(1, c);
          state = State::Normal;
        }
        break;
      case State::GetAscii:
        if (c >= '0' && c <= '9') {
          acc += c;
        } else if (c == ']') {
          if (acc.empty()) {
            out += "^[]";
          } else {
            const std::int16_t code = ToInt16(acc);
            if (code > 255) throw RuntimeError(Failure::InvalidCall);
            out += static_cast<char>(code);
          }
          state = State::Normal;
        } else if (c == '^') {
          out += "^[" + acc;
          state = State::FoundUp;
        } else {
          out += "^[" + acc + c;
          state = State::Normal;
        }
        break;
    }
  }
  if (state == State::FoundUp) out += "^";
  if (state == State::GetAscii) out += "^[" + acc;
  return out;
}

}  // namespace quorvel
