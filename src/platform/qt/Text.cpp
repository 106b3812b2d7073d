#include "platform/qt/Text.h"

#include <array>
#include <cctype>
#include <optional>

namespace quorvel {
namespace {

// 0x80 to 0x9F of Windows-1252 (0 where the code page has none).
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Of a character outside the code page: none.
std::optional<char> ByteOf(char16_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  for (unsigned i = 0; i < kUpperControls.size(); ++i) {
    const char16_t own = kUpperControls[i] ? kUpperControls[i] : static_cast<char16_t>(0x80 + i);
    if (own == code) return static_cast<char>(0x80 + i);
  }
  return std::nullopt;
}

bool IsWordCharacter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || byte >= 0x80;
}

}  // namespace

char16_t ToUnicode(unsigned char byte) {
  if (byte < 0x80 || byte > 0x9F) return byte;
  const char16_t code = kUpperControls[byte - 0x80u];
  return code ? code : byte;
}

QString ToUnicode(std::string_view bytes) {
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    text[static_cast<qsizetype>(i)] = QChar(ToUnicode(static_cast<unsigned char>(bytes[i])));
  }
  return text;
}

std::string ToBytes(const QString& text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar c : text) {
    if (!c.isLowSurrogate()) bytes += ByteOf(c.unicode()).value_or('?');  // a pair is one
  }
  return bytes;
}

std::string ToTypedBytes(const QString& text) {
  std::string bytes;
  for (const QChar c : text) {
    if (const auto byte = ByteOf(c.unicode())) bytes += *byte;
  }
  return bytes;
}

QString ToCaption(std::string_view bytes) {
  const bool cut = bytes.size() > kLongestCaption;
  QString text = ToUnicode(bytes.substr(0, kLongestCaption));
  text.replace(QChar(0), QChar(' '));
  return cut ? text + QStringLiteral("...") : text;
}

QString ToMnemonic(std::string_view bytes) {
  std::string text;
  const std::string_view all = bytes.substr(0, kLongestCaption + 1);
  for (std::size_t i = 0; i < all.size(); ++i) {
    text += all[i];
    if (all[i] != '&') continue;
    const char next = i + 1 < all.size() ? all[i + 1] : ' ';
    if (next == '&') ++i;
    if (!IsWordCharacter(next)) text += '&';
  }
  return ToCaption(text);
}

QString PathToUnicode(const std::string& path) {
  return QString::fromStdString(path);
}

std::string PathToBytes(const QString& path) {
  return path.toStdString();
}

}  // namespace quorvel
