// Pick lists and locators: what a field offers to choose from, and the search for records by words.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "demohost/Store.h"

namespace quorvel::demohost {

struct PickList {
  std::string title;
  std::vector<std::string> lines;
  bool wholeLine = false;         // the answer is the line; else its first word
  std::string place = "0,0,0,0";  // top, left, width, height in twips; zeros: in the middle
};

/// The list message, ~LISTBOX~ or ~LISTBOXF~.
std::string ListFrame(const PickList& list);

/// The list of this name; without lines if there is none.
PickList NamedList(Store& store, std::string_view name);

/// The records that hold the word and, unless empty, some word that begins with the limiter.
PickList LocatedList(Store& store, std::string_view locator, std::string_view word,
                     std::string_view limiter);

/// The cities of the customers, each once, in alphabetical order.
std::vector<std::string> Cities(Store& store);

/// A record of an index file, whose keys are words: attribute 1 lists the records that hold the
/// word. It is worked out of the data as it stands, so it is never out of date. Nothing if `file`
/// is no index file; empty if no record holds the word.
std::optional<std::string> IndexRecord(Store& store, std::string_view file, std::string_view word);

/// Creates the index files and writes the records of the file LOCATOR.
void SeedLocators(Store& store);

}  // namespace quorvel::demohost
