#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/vt/ParserTable.h"
#include "platform/vt/Sequence.h"

namespace quorvel::vt {

// Cuts a byte stream into text, controls and sequences. It may be fed in pieces of any size.
//
// The sink gets: Print(first, last) a run of printable bytes; Execute(byte) a C0 or C1 control;
// EscapeDispatch(sequence), CsiDispatch(sequence); StringStart(sequence), StringPut(byte),
// StringEnd(), StringAbort() for a device control string; Vt52Dispatch(final, row, column).
// When it answers WantsRawBytes() with true after one of these, the parser stops there.
class Parser {
 public:
  // A string that nobody ends is given up after this many bytes, so that a lost terminator can't
  // silence a session for good. No font or key definition of a VT220 is near it.
  static constexpr std::size_t kMaxString = 65536;

  // The state to rest in: Ground, Vt52Ground or PlainGround. A sequence under way is dropped.
  void SetGround(State ground, C1Bytes c1) {
    table_ = &kParserTables[static_cast<std::size_t>(c1)];
    state_ = ground;
    ground_ = ground;
  }

  // Returns how many bytes were used: all of them unless the sink wants the rest raw.
  template <class Sink>
  std::size_t Feed(std::string_view bytes, Sink& sink);

 private:
  using Byte = unsigned char;

  const StateRow& RowOf(State state) const { return (*table_)[static_cast<std::size_t>(state)]; }
  const Byte* EndOfText(const Byte* from, const Byte* end) const;
  const Byte* TakeParameters(const Byte* from, const Byte* end);
  // Takes a few numbers of one to three digits with separators between them. Returns behind them,
  // or null when there is something else, or the piece ends too early.
  const Byte* TakeShortParameters(const Byte* at, const Byte* end);
  template <class Sink>
  const Byte* TakeWholeSequence(const Byte* from, const Byte* end, Sink& sink);
  template <class Sink>
  const Byte* TakeWholeEscape(const Byte* from, Sink& sink);
  void Clear();
  void Collect(Byte byte);
  void Swallow() {
    if (++stringBytes_ > kMaxString) state_ = ground_;
  }
  template <class Sink>
  void Act(Action action, Byte byte, Sink& sink);
  template <class Sink>
  void ActOnString(Action action, Byte byte, Sink& sink);

  const ParserTable* table_ = &kParserTables[static_cast<std::size_t>(C1Bytes::Controls)];
  State state_ = State::Ground;
  State ground_ = State::Ground;
  Sequence sequence_;
  bool hasParameter_ = false;
  std::size_t stringBytes_ = 0;
  int vt52Row_ = -1;
};

// How many bytes of `word`, which lie in memory from its low end on, are plain ASCII text: not
// below 0x20, not 0x7F, the upper bit clear. Each of the three terms sets the top bit of a byte
// that is not; what a borrow or carry may disturb lies behind the first such byte.
inline int PlainBytesOf(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  constexpr std::uint64_t kTops = 0x8080808080808080U;
  const std::uint64_t others = (word | (word - kOnes * 0x20) | (word + kOnes)) & kTops;
  return std::countr_zero(others) / 8;
}

// Text begins at `from`; returns where to look for more. Runs of plain ASCII are found eight bytes
// at a time, other text by the table. That one character stands alone is asked first, since a
// guessed branch costs less than counting, on which all that follows would wait.
inline const Parser::Byte* Parser::EndOfText(const Byte* from, const Byte* end) const {
  const Byte* const begin = from;
  if (end - from >= 2 && from[1] < 0x20) return from + 1;
  if constexpr (std::endian::native == std::endian::little) {
    while (end - from >= 8) {
      std::uint64_t word;
      std::memcpy(&word, from, sizeof word);
      const int plain = PlainBytesOf(word);
      from += plain;
      if (plain < 8) break;
    }
    if (from != begin) return from;
  }
  const StateRow& row = RowOf(state_);
  while (from != end && row[*from].action == Action::Print) ++from;
  return from;
}

inline void Parser::Clear() {
  sequence_.count = 0;
  sequence_.prefix = 0;
  hasParameter_ = false;
  stringBytes_ = 0;
  vt52Row_ = -1;
}

inline void Parser::Collect(Byte byte) {
  const std::uint32_t code = byte & 0x7FU;
  int shift = 0;
  while (shift < 24 && (sequence_.prefix >> shift) != 0) shift += 8;
  sequence_.prefix = shift < 24 ? sequence_.prefix | code << shift : Sequence::kLongPrefix;
}

// Digits and separators stay in the same state, so a run of them needs no table either.
inline const Parser::Byte* Parser::TakeParameters(const Byte* from, const Byte* end) {
  if (!hasParameter_) {
    hasParameter_ = true;
    sequence_.count = 1;
    sequence_.parameters[0] = 0;
  }
  for (; from != end; ++from) {
    const unsigned code = *from & 0x7FU;
    const bool known = sequence_.count <= Sequence::kMaxParameters;
    if (code - '0' <= 9) {
      if (!known) continue;
      int& value = sequence_.parameters[sequence_.count - 1];
      value = std::min(value * 10 + static_cast<int>(code - '0'), Sequence::kMaxValue);
    } else if (code == ';') {
      if (known && ++sequence_.count <= Sequence::kMaxParameters) {
        sequence_.parameters[sequence_.count - 1] = 0;
      }
    } else {
      break;
    }
  }
  return from;
}

// Eight bytes of a sequence, the first in the low end of each of these words.
struct ParameterBytes {
  static constexpr std::ptrdiff_t kLength = 8;
  static constexpr std::uint64_t kOnes = 0x0101010101010101U;

  explicit ParameterBytes(const unsigned char* at) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    word ^= kOnes * '0';  // a digit becomes its value, from 0 to 9
    others = (word | ((word & kOnes * 0x7F) + kOnes * (0x80 - 10))) & kOnes * 0x80;
    digits = word & ~((others << 1) - (others >> 7));
    pairs = digits + (digits << 8) * 10;
  }
  std::uint64_t others;  // the top bit of each byte that is no digit
  std::uint64_t digits;  // their values; 0 in the other bytes
  std::uint64_t pairs;   // the value of each digit together with the one before it
};

// Most of what is no text is a plain sequence in one piece: ESC [, numbers of one to three digits,
// a final byte; or ESC, an intermediate and a final byte. It goes this way at once, with the result
// that the table would have; anything else is left to the table. Returns behind the sequence, or
// `from` when it is none of these. Only for the ground state.
//
// Whether a number has one digit or two decides no branch and no further reading: it varies from
// one sequence to the next, and a branch guessed wrongly costs as much as the rest of a sequence.
// (Measured: half of the time of cursor addressing.)
template <class Sink>
const Parser::Byte* Parser::TakeWholeSequence(const Byte* from, const Byte* end, Sink& sink) {
  if constexpr (std::endian::native != std::endian::little) return from;
  constexpr std::ptrdiff_t kShortest = 3;
  if (end - from < kShortest || from[0] != 0x1B) return from;
  if (from[1] != '[') return TakeWholeEscape(from, sink);
  const Byte* at = from + 2;
  sequence_.count = 0;
  if (*at < '@') {
    at = TakeShortParameters(at, end);
    if (at == nullptr) return from;
  }
  if (*at < 0x40 || *at > 0x7E) return from;
  sequence_.prefix = 0;
  sequence_.final = static_cast<char>(*at);
  sink.CsiDispatch(sequence_);
  return at + 1;
}

inline const Parser::Byte* Parser::TakeShortParameters(const Byte* at, const Byte* end) {
  constexpr int kByte = 8;  // bits
  constexpr std::size_t kMostAtOnce = ParameterBytes::kLength / 2;
  std::size_t count = 0;
  while (end - at >= ParameterBytes::kLength && count <= Sequence::kMaxParameters - kMostAtOnce) {
    const ParameterBytes bytes(at);
    int start = 0;  // of a number, in bits from `at`
    for (std::uint64_t others = bytes.others; others != 0; others &= others - 1) {
      const int stop = std::countr_zero(others) - (kByte - 1);
      const int size = stop - start;
      if (size < kByte || size > 3 * kByte) return nullptr;
      auto value = static_cast<int>(bytes.pairs >> (stop - kByte) & 0xFF);
      if (size == 3 * kByte) value += static_cast<int>(bytes.digits >> start & 0xFF) * 100;
      sequence_.parameters[count++] = value;
      if (at[stop / kByte] != ';') {
        sequence_.count = count;
        return at + stop / kByte;
      }
      start = stop + kByte;
    }
    if (start == 0) return nullptr;
    at += start / kByte;
  }
  return nullptr;
}

// Three bytes can be read at `from`.
template <class Sink>
const Parser::Byte* Parser::TakeWholeEscape(const Byte* from, Sink& sink) {
  if (from[1] < 0x20 || from[1] > 0x2F || from[2] < 0x30 || from[2] > 0x7E) return from;
  sequence_.count = 0;
  sequence_.prefix = from[1];
  sequence_.final = static_cast<char>(from[2]);
  sink.EscapeDispatch(sequence_);
  return from + 3;
}

template <class Sink>
std::size_t Parser::Feed(std::string_view bytes, Sink& sink) {
  const Byte* const begin = reinterpret_cast<const Byte*>(bytes.data());
  const Byte* const end = begin + bytes.size();
  const Byte* at = begin;
  while (at != end) {
    const Byte byte = *at;
    const Transition cell = RowOf(state_)[byte];
    if (cell.action == Action::Print) {
      const Byte* const text = at;
      at = EndOfText(at, end);
      sink.Print(text, at);
      continue;
    }
    if (state_ == State::Ground && cell.action == Action::Clear) {
      const Byte* const after = TakeWholeSequence(at, end, sink);
      if (after != at) {
        at = after;
        if (sink.WantsRawBytes()) break;
        continue;
      }
    }
    state_ = cell.next;
    if (cell.action == Action::Parameter) {
      at = TakeParameters(at, end);
      continue;
    }
    ++at;
    if (cell.action == Action::Ignore) continue;
    Act(cell.action, byte, sink);
    if (sink.WantsRawBytes()) break;
  }
  return static_cast<std::size_t>(at - begin);
}

template <class Sink>
void Parser::Act(Action action, Byte byte, Sink& sink) {
  switch (action) {
    case Action::Execute:
      sink.Execute(byte);
      break;
    case Action::Clear:
      Clear();
      break;
    case Action::Collect:
      Collect(byte);
      break;
    case Action::EscapeDispatch:
    case Action::CsiDispatch:
      sequence_.final = static_cast<char>(byte & 0x7F);
      sequence_.count = std::min(sequence_.count, Sequence::kMaxParameters);
      if (action == Action::CsiDispatch) {
        sink.CsiDispatch(sequence_);
      } else {
        sink.EscapeDispatch(sequence_);
      }
      break;
    case Action::Vt52Dispatch:
      sink.Vt52Dispatch(static_cast<char>(byte), 0, 0);
      break;
    case Action::Vt52Coordinate:
      if (vt52Row_ < 0) {
        vt52Row_ = byte - 0x20;
      } else {
        sink.Vt52Dispatch('Y', vt52Row_, byte - 0x20);
      }
      break;
    default:
      ActOnString(action, byte, sink);
      break;
  }
}

template <class Sink>
void Parser::ActOnString(Action action, Byte byte, Sink& sink) {
  switch (action) {
    case Action::StringStart:
      sequence_.final = static_cast<char>(byte & 0x7F);
      sequence_.count = std::min(sequence_.count, Sequence::kMaxParameters);
      sink.StringStart(sequence_);
      break;
    case Action::StringPut:
      Swallow();
      if (state_ == ground_) {
        sink.StringAbort();
      } else {
        sink.StringPut(static_cast<char>(byte));
      }
      break;
    case Action::StringEnd:
      sink.StringEnd();
      break;
    case Action::StringEndClear:
      sink.StringEnd();
      Clear();
      break;
    case Action::StringAbortExecute:
      sink.StringAbort();
      sink.Execute(byte);
      break;
    case Action::StringAbortClear:
      sink.StringAbort();
      Clear();
      break;
    case Action::Swallow:
      Swallow();
      break;
    default:
      break;
  }
}

}  // namespace quorvel::vt
