#pragma once

#include <QLineEdit>
#include <algorithm>
#include <climits>
#include <string>

namespace quorvel {

// MaxLength (in characters; 0: none) limits typing only. The widget would cut what the program
// sets as well, so it allows for the text that is there: a longer one can be shortened by typing,
// never grow.
inline void LimitLine(QLineEdit& line, int maxLength, const std::string& text) {
  const int present = static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX / 2));
  line.setMaxLength(maxLength > 0 ? std::max(maxLength, present) : INT_MAX / 2);
}

}  // namespace quorvel
