#pragma once

#include <string>

#include "platform/controls/TextBox.h"

namespace quorvel {

// Why a text can't be kept as a value of the configuration file: a line break or NUL in it, or more
// characters than are read back. Empty when it can. Reads on from the name of the value: "has 300
// characters; ...".
std::string SettingFault(const std::string& text);

// Why a command string can't be expanded; reads on like the faults above.
inline constexpr char kCodeTooHigh[] = "has a code above 255; a character has one from 0 to 255.";

// Whether `box` can be kept (`fault` is empty). Otherwise the user is told, by the name of the box,
// and has the keyboard there.
bool IsKeepable(TextBox& box, const std::string& fault);

}  // namespace quorvel
