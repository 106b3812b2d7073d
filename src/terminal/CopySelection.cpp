#include "terminal/CopySelection.h"

#include <algorithm>

#include "link/Marks.h"
#include "link/Records.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

void CopySelection() {
  const SessionState& s = Session();
  Clipboard& clipboard = desktop().backend().clipboard();
  clipboard.Clear();
  const std::string& screen = s.SelectionScreen;
  const auto start = static_cast<std::size_t>(std::max(s.SelectionStart, 1)) - 1;
  const auto length = static_cast<std::size_t>(std::max(s.SelectionLength, 0));
  const std::string selected = start < screen.size() ? screen.substr(start, length) : std::string();
  std::string text;
  for (const std::string_view line : Fields(selected, CRLF)) {
    const auto last = line.find_last_not_of(' ');
    if (last != std::string_view::npos) text += line.substr(0, last + 1);
    text += CRLF;
  }
  clipboard.SetText(text);
}

}  // namespace quorvel
