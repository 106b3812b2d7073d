#include "app/sim/CommandLine.h"

#include <charconv>
#include <string_view>

namespace quorvel::sim {
namespace {

std::optional<std::uint64_t> NumberOf(std::string_view text) {
  std::uint64_t number = 0;
  const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || behind != text.data() + text.size()) return std::nullopt;
  return number;
}

bool ReadSeeds(Options& options, const std::string& text) {
  const auto dash = text.find('-');
  const auto from = NumberOf(std::string_view(text).substr(0, dash));
  const auto to = dash == std::string::npos ? from : NumberOf(text.substr(dash + 1));
  if (!from || !to || *to < *from) return false;
  options.from = *from;
  options.to = *to;
  return true;
}

bool ReadKind(Options& options, const std::string& text) {
  const KindRow* row = FindKind(text);
  if (row) options.kind = row->kind;
  return row != nullptr;
}

bool ReadActs(Options& options, const std::string& text) {
  options.acts = NumbersOf(text);
  return options.acts.has_value();
}

struct ValueRow {
  std::string_view word;
  bool (*read)(Options& options, const std::string& value);
};
constexpr ValueRow kWithValue[] = {
    {"--seeds", ReadSeeds}, {"--story", ReadKind}, {"--acts", ReadActs}};

struct SwitchRow {
  std::string_view word;
  bool Options::*field;
};
constexpr SwitchRow kSwitches[] = {
    {"--trace", &Options::trace}, {"--go-on", &Options::goOn}, {"--help", &Options::help}};

}  // namespace

std::optional<Options> ReadCommandLine(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    bool known = false;
    for (const SwitchRow& row : kSwitches) {
      if (words[i] != row.word) continue;
      options.*row.field = true;
      known = true;
    }
    for (const ValueRow& row : kWithValue) {
      if (words[i] != row.word || i + 1 == words.size()) continue;
      known = row.read(options, words[++i]);
      break;
    }
    if (!known) return std::nullopt;
  }
  return options;
}

std::string UsageText(const std::string& program) {
  std::string text =
      program +
      " [--seeds FROM-TO] [--story KIND] [--acts \"3 7 9\"] [--trace] [--go-on]\n\n"
      "Plays stories in virtual time and looks whether the rules hold. Without --story the kinds\n"
      "take turns, but for sessions. Status 1 when a rule has failed.\n\n"
      "  --seeds   the stories, from 1 to 1000 by default\n"
      "  --story   of this kind alone\n"
      "  --acts    with these acts alone\n"
      "  --trace   tell every act, every byte and every box\n"
      "  --go-on   count failures by what was seen, instead of stopping at the first\n\n"
      "Kinds:\n";
  for (const KindRow& row : Kinds()) {
    std::string name(row.name);
    name.resize(12, ' ');
    text += "  " + name + std::string(row.about) + "\n";
  }
  return text;
}

}  // namespace quorvel::sim
