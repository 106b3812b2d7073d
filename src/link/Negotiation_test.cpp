#include "link/Negotiation.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using namespace std::string_literals;

constexpr int kSub = 250, kWill = 251, kWont = 252, kDo = 253, kDont = 254;

TEST(Negotiation, AnswersEveryCommand) {
  const struct {
    int command, option;
    std::optional<TelnetAnswer> answer;
  } cases[] = {
      {kDo, 24, TelnetAnswer{kWill, 24, ""}},
      {kDo, 31, TelnetAnswer{kWill, 31, ""}},
      {kDo, 1, TelnetAnswer{kWont, 1, ""}},
      {kDo, 0, TelnetAnswer{kWont, 0, ""}},
      {kDont, 24, TelnetAnswer{kWont, 24, ""}},
      {kWill, 0, TelnetAnswer{kDo, 0, ""}},
      {kWill, 1, TelnetAnswer{kDo, 1, ""}},
      {kWill, 3, TelnetAnswer{kDont, 3, ""}},
      {kWill, 255, TelnetAnswer{kDont, 255, ""}},
      {kWont, 1, TelnetAnswer{kDont, 1, ""}},
      {kSub, 24, TelnetAnswer{kSub, 24, "\0vt220"s}},
      {kSub, 31, TelnetAnswer{kSub, 31, "\0P\0   "s}},  // 80 by 32, two blanks
      {kSub, 32, std::nullopt},
      {241, 24, std::nullopt},
      {0, 0, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(NegotiationAnswer(c.command, c.option), c.answer) << c.command << ' ' << c.option;
  }
}

}  // namespace
}  // namespace quorvel
