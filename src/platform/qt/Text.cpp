#include "platform/qt/Text.h"

#include <cctype>
#include <optional>

#include "platform/vt/CharacterSets.h"

namespace quorvel {
namespace {

// Of a character outside the code page: none.
std::optional<char> ByteOf(char16_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  for (int byte = 0x80; byte < 0xA0; ++byte) {
    if (vt::UnicodeOf(static_cast<unsigned char>(byte)) == code) return static_cast<char>(byte);
  }
  return std::nullopt;
}

bool IsWordCharacter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || byte >= 0x80;
}

}  // namespace

char16_t ToUnicode(unsigned char byte) {
  return vt::UnicodeOf(byte);
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
