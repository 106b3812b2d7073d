#include "settings/SettingFaults.h"

#include "platform/ProfileFile.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

std::string SettingFault(const std::string& text) {
  using namespace std::string_literals;
  if (text.find_first_of("\r\n\0"s) != std::string::npos) {
    return "holds a line break; a setting is one line.";
  }
  if (text.size() <= ProfileFile::kLongestValue) return {};
  std::string fault = "has ";
  fault += std::to_string(text.size());
  fault += " characters; a setting has at most ";
  fault += std::to_string(ProfileFile::kLongestValue);
  return fault + ".";
}

bool IsKeepable(TextBox& box, const std::string& fault) {
  if (fault.empty()) return true;
  desktop().MsgBox(box.AccessibleName() + " " + fault, MessageBoxStyle::kExclamation);
  box.SetFocus();
  return false;
}

}  // namespace quorvel
