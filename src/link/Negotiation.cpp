#include "link/Negotiation.h"

#include <string_view>

namespace quorvel {
namespace {

using namespace std::string_view_literals;

// RFC 854
constexpr int kSub = 250;
constexpr int kWill = 251;
constexpr int kWont = 252;
constexpr int kDo = 253;
constexpr int kDont = 254;

constexpr int kBinary = 0;         // RFC 856
constexpr int kEcho = 1;           // RFC 857
constexpr int kTerminalType = 24;  // RFC 1091
constexpr int kWindowSize = 31;    // RFC 1073
constexpr int kAny = -1;

// RFC 1091: IS, then the type. The host's screens are made for this one, whatever the emulation
// is set to.
constexpr auto kTypeText = "\0vt220"sv;
// 80 columns by 32 rows, whatever the settings say; the host expects six characters.
constexpr auto kSizeText = "\0\x50\0\x20  "sv;

struct Row {
  int command;
  int option;
  int answer;
  std::string_view text;
};

// The first row that fits counts. WILL for anything above echo is refused on purpose, suppress-go-
// ahead (RFC 858) too.
constexpr Row kRows[] = {
    {kDo, kTerminalType, kWill, {}},
    {kDo, kWindowSize, kWill, {}},
    {kDo, kAny, kWont, {}},
    {kDont, kAny, kWont, {}},
    {kWill, kBinary, kDo, {}},
    {kWill, kEcho, kDo, {}},
    {kWill, kAny, kDont, {}},
    {kWont, kAny, kDont, {}},
    {kSub, kTerminalType, kSub, kTypeText},
    {kSub, kWindowSize, kSub, kSizeText},
};

}  // namespace

std::optional<TelnetAnswer> NegotiationAnswer(int command, int option) {
  for (const Row& row : kRows) {
    if (row.command != command || (row.option != kAny && row.option != option)) continue;
    return TelnetAnswer{row.answer, option, std::string(row.text)};
  }
  return std::nullopt;
}

}  // namespace quorvel
