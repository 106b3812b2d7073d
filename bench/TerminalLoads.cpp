#include "bench/TerminalLoads.h"

#include <string_view>

namespace quorvel::bench {
namespace {

constexpr int kColumns = 80;
constexpr int kRows = 24;

// Numbers that look random and are the same in every run (a linear congruential generator).
class Dice {
 public:
  int Below(int limit) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33) % static_cast<unsigned>(limit));
  }

 private:
  unsigned long long state_ = 1;
};

std::string At(int row, int column) {
  return "\x1B[" + std::to_string(row) + ";" + std::to_string(column) + "H";
}

template <class Piece>
std::string Repeat(std::size_t size, Piece piece) {
  std::string text;
  text.reserve(size + 4096);
  while (text.size() < size) text += piece();
  return text;
}

}  // namespace

std::string PlainLines(std::size_t size) {
  constexpr std::string_view kWords =
      "10452 Harbour Chandlers Ltd      net 30 days   shipped 12/04   4,810.25  open order  qty 17";
  Dice dice;
  return Repeat(size, [&] {
    return std::string(kWords.substr(0, 20U + static_cast<std::size_t>(dice.Below(57)))) + "\r\n";
  });
}

std::string Rewrites(std::size_t size) {
  int turn = 0;
  return Repeat(size, [&] {
    return "\x1B[H" +
           std::string(std::size_t{kColumns} * kRows, static_cast<char>('A' + turn++ % 26));
  });
}

std::string ShortLines(std::size_t size) {
  return Repeat(size, [] { return std::string("y\r\n"); });
}

std::string CursorMoves(std::size_t size) {
  Dice dice;
  return Repeat(size, [&] {
    return At(1 + dice.Below(kRows), 1 + dice.Below(kColumns)) +
           static_cast<char>('a' + dice.Below(26));
  });
}

std::string DenseColours(std::size_t size) {
  Dice dice;
  int cell = 0;
  return Repeat(size, [&] {
    std::string text = cell++ % (kColumns * kRows) == 0 ? "\x1B[H" : "";
    text += "\x1B[" + std::to_string(dice.Below(2)) + ";" + std::to_string(30 + dice.Below(8)) +
            ";" + std::to_string(40 + dice.Below(8)) + "m";
    return text + static_cast<char>('a' + dice.Below(26));
  });
}

std::string EntryForms(std::size_t size) {
  constexpr std::string_view kPrompts[] = {"Customer", "Name",   "Address", "Town",    "Country",
                                           "Terms",    "Credit", "Balance", "Contact", "Telephone"};
  Dice dice;
  return Repeat(size, [&] {
    std::string text = "\x1B[2J\x1B[H\x1B[7m" + std::string(22, ' ') + "CUSTOMER MAINTENANCE" +
                       std::string(38, ' ') + "\x1B[m";
    text += At(2, 1) + "\x1B(0l" + std::string(kColumns - 2, 'q') + "k\x1B(B";
    int row = 3;
    for (const std::string_view prompt : kPrompts) {
      text += At(row, 1) + "\x1B(0x\x1B(B " + std::string(prompt) +
              std::string(14 - prompt.size(), '.') + ": \x1B[1m" +
              std::string(8U + static_cast<std::size_t>(dice.Below(30)),
                          static_cast<char>('a' + dice.Below(26))) +
              "\x1B[m" + At(row, kColumns) + "\x1B(0x\x1B(B";
      row += 2;
    }
    text += At(23, 1) + "\x1B(0m" + std::string(kColumns - 2, 'q') + "j\x1B(B";
    return text + At(24, 1) + "\x1B[7m F1 Help  F2 List  F3 Save  F4 Exit \x1B[m\x1B[K" + At(3, 18);
  });
}

}  // namespace quorvel::bench
