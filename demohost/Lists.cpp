#include "demohost/Lists.h"

#include <algorithm>
#include <set>

#include "demohost/Format.h"
#include "demohost/Frames.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"
#include "demohost/Values.h"

namespace quorvel::demohost {
namespace {

constexpr std::size_t kLineLimit = 500;  // more lines than anybody reads

struct Column {
  int attribute;  // 0: the key
  std::size_t width;
};

struct ListForm {
  const char* name;
  const char* title;
  const char* file;
  const char* place;
  Column columns[3];  // those of width 0 are not shown
};

constexpr const char* kMiddle = "0,0,0,0";

constexpr ListForm kLists[] = {
    {"CUSTOMERS",
     "Customers",
     "CUSTOMERS",
     kMiddle,
     {{0, 8}, {customer::Name, 28}, {customer::City, 14}}},
    {"REPS", "Sales Reps", "REPS", kMiddle, {{0, 5}, {1, 20}, {2, 12}}},
    {"VENDORS", "Vendors", "VENDORS", kMiddle, {{0, 5}, {1, 22}, {2, 12}}},
    {"ORDERS", "Orders", "ORDERS", kMiddle, {{0, 8}, {order::Customer, 8}, {order::Status, 10}}},
    {"ITEMS", "Items", "ITEMS", kMiddle, {{0, 8}, {item::Name, 30}, {item::Group, 10}}},
};

// Keys of the file CODES: what kind of code, the code, the language of its meaning.
constexpr std::string_view kGroups = "GROUP*";

struct LocatorForm {
  const char* name;
  const char* list;   // whose lines show what was found
  const char* index;  // file
  int attributes[3];  // whose words count
};

constexpr LocatorForm kLocators[] = {
    {"CUSTOMERS",
     "CUSTOMERS",
     "CUSTOMERS.WORDS",
     {customer::Name, customer::City, customer::Terms}},
    {"ITEMS", "ITEMS", "ITEMS.WORDS", {item::Name, item::Group, item::Vendor}},
};

constexpr int kIndexAttribute = 2;  // of a LOCATOR record

const ListForm* FindList(std::string_view name) {
  const auto* form = std::find_if(std::begin(kLists), std::end(kLists),
                                  [name](const ListForm& l) { return l.name == name; });
  return form == std::end(kLists) ? nullptr : form;
}

std::string Line(const ListForm& form, const std::string& key, const std::string& record) {
  std::string line;
  for (const auto& column : form.columns) {
    if (column.width != 0)
      line += Left(column.attribute == 0 ? key : Attribute(record, column.attribute), column.width);
  }
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

bool WordCharacter(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || code >= 0xC0;
}

// The words of a record in upper case: runs of letters and digits.
std::set<std::string> Words(const LocatorForm& form, const std::string& record) {
  std::set<std::string> words;
  for (const int attribute : form.attributes) {
    std::string word;
    for (const char c : Upper(Attribute(record, attribute)) + ' ') {
      if (WordCharacter(c) && static_cast<unsigned char>(c) < 250) {
        word += c;
      } else if (!word.empty()) {
        words.insert(std::move(word));
        word.clear();
      }
    }
  }
  return words;
}

bool AnyBeginsWith(const std::set<std::string>& words, std::string_view beginning) {
  const auto first = words.lower_bound(std::string(beginning));
  return first != words.end() && first->starts_with(beginning);
}

PickList GroupList(Store& store) {
  PickList list{"Item Groups", {}, false, "900,1500,5200,3600"};
  store.ForEach("CODES", [&](const std::string& key, const std::string& record) {
    const auto parts = Split(key, '*');
    if (key.starts_with(kGroups) && parts.size() == 3 && parts[2] == "EN")
      list.lines.push_back(Left(parts[1], 10) + Clean(Attribute(record, 1)));
    return list.lines.size() < kLineLimit;
  });
  return list;
}

}  // namespace

std::string ListFrame(const PickList& list) {
  std::vector<std::string> fields{list.wholeLine ? "~LISTBOXF~" : "~LISTBOX~", list.title,
                                  list.place};
  fields.insert(fields.end(), list.lines.begin(), list.lines.end());
  return Frame(fields);
}

PickList NamedList(Store& store, std::string_view name) {
  if (name == "GROUPS") return GroupList(store);
  if (name == "CITIES") return {"Cities", Cities(store), true, kMiddle};
  const auto* form = FindList(name);
  if (form == nullptr) return {"There is no list " + std::string(name), {}, false, kMiddle};
  PickList list{form->title, {}, false, form->place};
  store.ForEach(form->file, [&](const std::string& key, const std::string& record) {
    list.lines.push_back(Line(*form, key, record));
    return list.lines.size() < kLineLimit;
  });
  return list;
}

PickList LocatedList(Store& store, std::string_view locator, std::string_view word,
                     std::string_view limiter) {
  const auto wanted = Upper(Trim(word));
  const auto narrowed = Upper(Trim(limiter));
  PickList list{wanted + (narrowed.empty() ? "" : " with " + narrowed), {}, false, kMiddle};
  for (const auto& form : kLocators) {
    if (locator != form.name) continue;
    const auto* lines = FindList(form.list);
    store.ForEach(lines->file, [&](const std::string& key, const std::string& record) {
      const auto words = Words(form, record);
      if (words.contains(wanted) && AnyBeginsWith(words, narrowed))
        list.lines.push_back(Line(*lines, key, record));
      return list.lines.size() < kLineLimit;
    });
  }
  return list;
}

std::vector<std::string> Cities(Store& store) {
  std::set<std::string> cities;
  store.ForEach("CUSTOMERS", [&](const std::string&, const std::string& record) {
    if (auto city = Clean(Trim(Attribute(record, customer::City))); !city.empty())
      cities.insert(std::move(city));
    return cities.size() < kLineLimit;
  });
  return {cities.begin(), cities.end()};
}

std::optional<std::string> IndexRecord(Store& store, std::string_view file, std::string_view word) {
  for (const auto& form : kLocators) {
    if (file != form.index) continue;
    std::vector<std::string> keys;
    const std::string wanted(word);
    store.ForEach(FindList(form.list)->file,
                  [&](const std::string& key, const std::string& record) {
                    if (Words(form, record).contains(wanted)) keys.push_back(key);
                    return keys.size() < kLineLimit;
                  });
    return Join(keys, kVm);
  }
  return std::nullopt;
}

void SeedLocators(Store& store) {
  for (const auto& form : kLocators) {
    store.CreateFile(form.index);
    std::string record = std::string("Words of ") + FindList(form.list)->title;
    SetAttribute(record, kIndexAttribute, form.index);
    store.Write("LOCATOR", form.name, record);
  }
}

}  // namespace quorvel::demohost
