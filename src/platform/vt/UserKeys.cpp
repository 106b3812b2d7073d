#include "platform/vt/UserKeys.h"

#include <charconv>
#include <optional>

namespace quorvel::vt {
namespace {

// The number of a key in a definition is that of its own sequence, from 17 for F6; 22, 27 and 30
// belong to no key.
constexpr int kNumbers[] = {17, 18, 19, 20, 21, 23, 24, 25, 26, 28, 29, 31, 32, 33, 34};

std::optional<std::string> FromHex(std::string_view hex) {
  if (hex.size() % 2 != 0) return std::nullopt;
  std::string text;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    unsigned value = 0;
    const char* const end = hex.data() + i + 2;
    if (std::from_chars(hex.data() + i, end, value, 16).ptr != end) return std::nullopt;
    text += static_cast<char>(value);
  }
  return text;
}

}  // namespace

void UserKeys::Load(const Sequence& head, std::string_view body) {
  if (locked_) return;
  if (head.ValueAt(0) == 0) texts_.fill({});
  if (head.ValueAt(1) == 0) locked_ = true;
  while (!body.empty()) {
    const std::size_t end = std::min(body.find(';'), body.size());
    if (!LoadOne(body.substr(0, end))) return;
    body.remove_prefix(std::min(end + 1, body.size()));
  }
}

bool UserKeys::LoadOne(std::string_view definition) {
  const std::size_t slash = definition.find('/');
  if (slash == std::string_view::npos) return false;
  int number = 0;
  const char* const end = definition.data() + slash;
  if (std::from_chars(definition.data(), end, number).ptr != end) return false;
  const auto* const found = std::find(std::begin(kNumbers), std::end(kNumbers), number);
  const auto text = FromHex(definition.substr(slash + 1));
  if (found == std::end(kNumbers) || !text) return false;
  std::string& place = texts_[static_cast<std::size_t>(found - std::begin(kNumbers))];
  place.clear();
  if (Size() + text->size() > kMaxBytes) return false;
  place = *text;
  return true;
}

std::size_t UserKeys::Size() const {
  std::size_t size = 0;
  for (const std::string& text : texts_) size += text.size();
  return size;
}

const std::string& UserKeys::TextOf(Key key) const {
  static const std::string kNone;
  if (key < Key::F6 || key > Key::F20) return kNone;
  return texts_[static_cast<std::size_t>(key) - static_cast<std::size_t>(Key::F6)];
}

void UserKeys::Reset() {
  texts_.fill({});
  locked_ = false;
}

}  // namespace quorvel::vt
