#pragma once

#include <string>
#include <vector>

namespace quorvel {

// The host's two menu records taken apart: parallel tables, in record order. RuntimeError 9 for
// more than 100 entries in one of them.
struct MenuTables {
  // Highest index of every table; positions count from 1.
  static constexpr int kLast = 100;

  std::string title;
  bool hasTitle = false;
  std::vector<std::string> TabNames;
  std::vector<std::string> OptionTexts;
  std::vector<std::string> OptionTabs;  // the tab name of each option
  std::vector<std::string> OptionIds;   // may be shorter or longer than the texts

  // The id of option `j` (from 0); empty where the host sent fewer ids than texts.
  std::string IdOf(std::size_t j) const { return j < OptionIds.size() ? OptionIds[j] : ""; }
};

// `menuText`: title, tab names, then an option an attribute, each its text and behind the first VM
// its tab name. `menuCommands`: attribute 1 is ignored, then an option id an attribute. The text
// behind the last AM is always an option; a text without any AM is one option and no title.
MenuTables ReadMenu(const std::string& menuText, const std::string& menuCommands);

// Name of the built-in picture that tells the kind of an option: "Report", "Menu" or "Program".
std::string OptionIcon(const std::string& optionId);

}  // namespace quorvel
