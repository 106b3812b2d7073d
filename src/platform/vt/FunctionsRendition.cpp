#include <algorithm>
#include <array>

#include "platform/vt/Functions.h"

namespace quorvel::vt::functions {
namespace {

using Flags = Attributes;

struct FlagRow {
  int parameter;
  Attributes::Flag flag;
  bool on;
};
constexpr FlagRow kFlags[] = {
    {1, Flags::kBold, true},        {4, Flags::kUnderline, true}, {5, Flags::kBlink, true},
    {7, Flags::kReverse, true},     {8, Flags::kInvisible, true}, {22, Flags::kBold, false},
    {24, Flags::kUnderline, false}, {25, Flags::kBlink, false},   {27, Flags::kReverse, false},
    {28, Flags::kInvisible, false},
};

constexpr auto kFlagByParameter = [] {
  std::array<const FlagRow*, 30> rows{};
  for (const FlagRow& row : kFlags) rows[static_cast<std::size_t>(row.parameter)] = &row;
  return rows;
}();

// 38 or 48 at `at`: ";5;index" or ";2;red;green;blue". Returns the last parameter that was used.
std::size_t ExtendedColour(Arguments a, std::size_t at, Colour& colour) {
  const auto value = [&](std::size_t i) {
    return static_cast<std::uint8_t>(std::min(a.ValueAt(i), 255));
  };
  if (a.ValueAt(at + 1) == 5) {
    if (at + 2 < a.count) colour = Colour::Palette(value(at + 2));
    return at + 2;
  }
  if (a.ValueAt(at + 1) == 2) {
    if (at + 4 < a.count) colour = Colour::Direct(value(at + 2), value(at + 3), value(at + 4));
    return at + 4;
  }
  return at + 1;
}

// The colour that one parameter of `base` to `base` + 9 sets: 8 numbered ones, 39 or 49 the
// terminal's own. The bright ones begin at `bright`.
bool SimpleColour(int parameter, int base, int bright, Colour& colour) {
  if (parameter == base + 9) {
    colour = Colour();
  } else if (parameter >= base && parameter < base + 8) {
    colour = Colour::Palette(static_cast<std::uint8_t>(parameter - base));
  } else if (parameter >= bright && parameter < bright + 8) {
    colour = Colour::Palette(static_cast<std::uint8_t>(parameter - bright + 8));
  } else {
    return false;
  }
  return true;
}

void Reset(Attributes& pen) {
  const bool isProtected = pen.isProtected();  // DECSCA is no matter of SGR
  pen = {};
  pen.Set(Attributes::kProtected, isProtected);
}

// Works off the parameter at `at`; returns the last one that belonged to it.
std::size_t Apply(Attributes& pen, Arguments a, std::size_t at) {
  const int parameter = a.ValueAt(at);
  if (parameter == 0) {
    Reset(pen);
  } else if (parameter < 30) {
    const FlagRow* const row = kFlagByParameter[static_cast<std::size_t>(parameter)];
    if (row != nullptr) pen.Set(row->flag, row->on);
  } else if (parameter == 38) {
    return ExtendedColour(a, at, pen.fore);
  } else if (parameter == 48) {
    return ExtendedColour(a, at, pen.back);
  } else if (!SimpleColour(parameter, 30, 90, pen.fore)) {
    SimpleColour(parameter, 40, 100, pen.back);
  }
  return at;
}

}  // namespace

void GraphicRendition(Machine& m, Arguments a) {
  std::size_t at = 0;
  do {
    at = Apply(m.ink.attributes, a, at) + 1;
  } while (at < a.count);
}

void CharacterProtection(Machine& m, Arguments a) {
  const int what = a.ValueAt(0);
  if (what <= 2) m.ink.attributes.Set(Attributes::kProtected, what == 1);
}

// ESC ( ) * + designate sets of 94 characters into G0 to G3, ESC - . / those of 96 into G1 to G3.
// An unknown set, such as a soft one, leaves the old one in place.
void Designate(Machine& m, Arguments a) {
  const int intermediate = static_cast<int>(a.prefix);
  if (intermediate <= '+') {
    if (const auto set = SetOf94(a.final)) m.sets.Designate(intermediate - '(', *set);
  } else if (const auto set = SetOf96(a.final)) {
    m.sets.Designate(intermediate - '-' + 1, *set);
  }
}

void LockingShift(Machine& m, Arguments a) {
  switch (a.final) {
    case 'n':
      return m.sets.LockLeft(2);
    case 'o':
      return m.sets.LockLeft(3);
    case '~':
      return m.sets.LockRight(1);
    case '}':
      return m.sets.LockRight(2);
    default:
      return m.sets.LockRight(3);
  }
}

}  // namespace quorvel::vt::functions
