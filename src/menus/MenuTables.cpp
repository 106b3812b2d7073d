#include "menus/MenuTables.h"

#include "link/Marks.h"
#include "link/Records.h"
#include "platform/PlainText.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

void Append(std::vector<std::string>& table, std::string_view entry) {
  if (table.size() >= MenuTables::kLast) throw RuntimeError(Failure::SubscriptOutOfRange);
  table.emplace_back(entry);
}

// Calls `take(attribute, number, isLast)` for every attribute, numbered from 1.
template <class Take>
void ForEachAttribute(const std::string& record, Take take) {
  std::size_t from = 0;
  int number = 1;
  const std::string_view text = record;
  for (auto mark = text.find(AM); mark != std::string_view::npos; mark = text.find(AM, from)) {
    take(text.substr(from, mark - from), number++, false);
    from = mark + 1;
  }
  take(text.substr(from), number, true);
}

void ReadIds(MenuTables& tables, const std::string& menuCommands) {
  ForEachAttribute(menuCommands, [&](std::string_view id, int number, bool last) {
    // The rest behind the last mark counts only if it is not empty; it counts even as the first.
    if (last ? !id.empty() : number > 1) Append(tables.OptionIds, id);
  });
}

// Only the last name is trimmed, and left out when nothing remains of it.
void ReadTabNames(MenuTables& tables, std::string_view names) {
  for (auto mark = names.find(VM); mark != std::string_view::npos; mark = names.find(VM)) {
    Append(tables.TabNames, names.substr(0, mark));
    names.remove_prefix(mark + 1);
  }
  const std::string_view last = Trimmed(names);
  if (!last.empty()) Append(tables.TabNames, last);
}

void ReadOption(MenuTables& tables, std::string_view option) {
  const auto mark = option.find(VM);
  const bool hasTab = mark != std::string_view::npos;
  Append(tables.OptionTexts, option.substr(0, mark));
  Append(tables.OptionTabs, hasTab ? option.substr(mark + 1) : std::string_view());
}

}  // namespace

MenuTables ReadMenu(const std::string& menuText, const std::string& menuCommands) {
  MenuTables tables;
  ReadIds(tables, menuCommands);
  ForEachAttribute(menuText, [&](std::string_view attribute, int number, bool last) {
    if (last) {
      if (!attribute.empty()) ReadOption(tables, attribute);
    } else if (number == 1) {
      tables.title = attribute;
      tables.hasTitle = true;
    } else if (number == 2) {
      ReadTabNames(tables, attribute);
    } else {
      ReadOption(tables, attribute);
    }
  });
  return tables;
}

std::string OptionIcon(const std::string& optionId) {
  if (optionId.size() >= 3 && optionId[2] == '*') return "Report";
  const std::string end = optionId.size() > 4 ? optionId.substr(optionId.size() - 4) : optionId;
  return UpperCase(end) == "MENU" ? "Menu" : "Program";
}

}  // namespace quorvel
