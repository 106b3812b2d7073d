#pragma once

#include <string>

namespace quorvel {

// Styles and answers of a message box, with the classic numbers. A style is the sum of one button
// set and one icon.
namespace MessageBoxStyle {
inline constexpr int kOkOnly = 0;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kButtonMask = 15;
inline constexpr int kIconMask = 112;
}  // namespace MessageBoxStyle

enum class MessageBoxAnswer : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

// One message box: plain text, never markup; LF separates lines.
struct MessageBoxRequest {
  std::string text;
  std::string title;
  int style = MessageBoxStyle::kOkOnly;

  bool operator==(const MessageBoxRequest&) const = default;
};

}  // namespace quorvel
