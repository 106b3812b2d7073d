#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvel {

// Between the program's bytes (Windows-1252) and the toolkit's Unicode. The five bytes that the
// code page leaves undefined stand for the control characters of the same number, so nothing is
// lost on the way there and back. NUL stays what it is.
QString ToUnicode(std::string_view bytes);
char16_t ToUnicode(unsigned char byte);

// Characters outside the code page become "?".
std::string ToBytes(const QString& text);

// Text that the user types: characters outside the code page are left out.
std::string ToTypedBytes(const QString& text);

// For captions, tips and rows of lists: NULs become blanks, and the text ends with "..." behind
// kLongestCaption characters. No window is wide enough for more, and laying text out costs time.
inline constexpr int kLongestCaption = 4000;
QString ToCaption(std::string_view bytes);

// For the caption of something that has a mnemonic: "&" ahead of a letter or digit marks it, "&&"
// is one "&", and so is any other "&" ("Smith & Sons").
QString ToMnemonic(std::string_view bytes);

// A file name or path: UTF-8 on the outside, whatever it holds.
QString PathToUnicode(const std::string& path);
std::string PathToBytes(const QString& path);

}  // namespace quorvel
