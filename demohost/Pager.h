// Lines shown a page at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "demohost/Program.h"

namespace quorvel::demohost {

class Pager {
 public:
  /// Shows the first page: on each page a title, the headings in reverse, then body lines.
  void Start(Console& console, std::string title, std::string headings,
             std::vector<std::string> body);
  /// The user's answer to a page; shows the next one.
  void OnLine(Console& console, std::string_view line);
  /// True when the user has left or the last page has been answered.
  bool Done() const { return done_; }

 private:
  void ShowPage(Console& console);

  std::string title_;
  std::string headings_;
  std::vector<std::string> body_;
  std::size_t next_ = 0;
  int page_ = 0;
  bool done_ = true;
};

/// A program that shows one listing. `fill` is called when the program starts.
struct Listing {
  std::string title;
  std::string headings;
  std::vector<std::string> body;
};
std::unique_ptr<Program> MakeListing(std::function<Listing(Console&)> fill);

}  // namespace quorvel::demohost
