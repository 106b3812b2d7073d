// Output for the workstation rather than the terminal: captured reports, pass-through printing.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "demohost/Program.h"

namespace quorvel::demohost {

struct Printout {
  std::string opening;  // frame that goes ahead, in a write of its own
  std::string closing;  // frame that goes behind
  /// Appends the next line or lines, with their line ends; false when there are no more. Called as
  /// the link takes them, so that a long report is never in memory whole.
  std::function<bool(std::string& text)> next;
  /// True: the closing frame stands in the write of the last lines. A client loses these.
  bool joined = false;
};

/// The programs that print on the workstation, show a picture or start a program there; nothing if
/// there is none of this id.
std::optional<Option> FindWorkstationOption(std::string_view id);

}  // namespace quorvel::demohost
