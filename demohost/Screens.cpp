#include "demohost/Screens.h"

#include <algorithm>
#include <array>

#include "demohost/Format.h"
#include "demohost/Marks.h"
#include "demohost/Record.h"

namespace quorvel::demohost {
namespace {

// Values of a field's definition in the parameter record of a screen. The same numbers are the
// attributes of the field's record in DICTIONARY, for those that don't depend on the screen.
namespace definition {
enum {
  Placement = 1,
  Mapping,
  Tip,
  Conversion,
  ClearMark,
  Name,
  List,
  Justify = 10,
  Locator = 13,
  Required = 15,
  File,
  Attribute,
  Display,
  Items = 21,
  Shown,
  Preset = 24,
  Hooks = 26
};
constexpr std::array kFromDictionary{Tip,     Conversion, List,      Justify,
                                     Locator, File,       Attribute, Items};
}  // namespace definition

// Attributes of DICTIONARY that a definition has not: the heading, and what stands around the entry
// in the keys of the file looked up. 22 and 23 make a record an option that is a screen.
constexpr int kHeading = 1;
constexpr int kPrefix = 14;
constexpr int kSuffix = 15;
constexpr int kScreenFile = 22;
constexpr int kScreenProgram = 23;

// A prompt's number takes this many cells: "12. ".
constexpr int kTwoDigits = 10;
constexpr std::size_t kItemLimit = 200;  // items of a combo box; more are no help to anybody

std::string TwoDigits(int number) {
  const auto text = std::to_string(number);
  return text.size() < 2 ? "0" + text : text;
}

void SetValue(std::string& attribute, int value, std::string_view text) {
  SetPart(attribute, kVm, value, text);
}

std::string Mapping(const ScreenField& field) {
  return Join({"", field.attribute == 0 ? "" : std::to_string(field.attribute), field.value, "",
               field.start, std::string(1, field.kind), field.balance ? "Y" : "", field.delimiter},
              kSvm);
}

std::string Definition(const ScreenField& field) {
  std::string text;
  SetValue(text, definition::Placement,
           TwoDigits(field.column) + TwoDigits(field.row) + TwoDigits(field.width) + field.type);
  SetValue(text, definition::Mapping, Mapping(field));
  SetValue(text, definition::ClearMark, "Y");
  SetValue(text, definition::Name, field.name);
  if (field.required) SetValue(text, definition::Required, "Y");
  if (field.display != 0) SetValue(text, definition::Display, std::to_string(field.display));
  if (field.shown != 0) SetValue(text, definition::Shown, std::to_string(field.shown));
  SetValue(text, definition::Preset, field.preset);
  SetValue(text, definition::Hooks, field.hooks);
  return text;
}

// A number below 10 stands one cell further right, so that the texts begin in one column.
std::string Prompts(const Screen& screen) {
  std::vector<std::string> lines;
  int number = 0;
  for (const auto& text : screen.texts) {
    int column = text.column;
    std::string line = text.text;
    if (text.numbered) {
      if (++number < kTwoDigits) ++column;
      line = std::to_string(number) + ". " + line + ":";
    }
    lines.push_back(std::to_string(column) + kSvm + std::to_string(text.row) + kVm + line);
  }
  return Join(lines, kAm);
}

std::string Parameters(const Screen& screen) {
  std::string record;
  SetAttribute(record, 1, Join(Split(screen.order, ' '), kVm));
  for (const auto& field : screen.fields) SetAttribute(record, field.number, Definition(field));
  return record;
}

std::string DictionaryRecord(const FieldEntry& entry) {
  std::string record;
  SetAttribute(record, kHeading, entry.heading);
  SetAttribute(record, definition::Tip, entry.tip);
  SetAttribute(record, definition::Conversion, entry.conversion);
  SetAttribute(record, definition::List, entry.list);
  SetAttribute(record, definition::Justify, entry.justify);
  SetAttribute(record, definition::Locator, entry.locator);
  SetAttribute(record, kPrefix, entry.prefix);
  SetAttribute(record, kSuffix, entry.suffix);
  SetAttribute(record, definition::File, entry.file);
  SetAttribute(record, definition::Attribute, entry.attribute);
  SetAttribute(record, definition::Items, Join(Split(entry.items, ' '), kSvm));
  return record;
}

// What "@file/key/attribute" refers to, its values turned into subvalues; empty if nothing is
// there.
std::string Resolved(Store& store, const std::string& text) {
  if (!text.starts_with('@')) return text;
  const auto parts = Split(std::string_view(text).substr(1), '/');
  if (parts.size() != 3 || !store.HasFile(parts[0])) return {};
  const auto attribute = Number(parts[2]);
  if (attribute < 1 || attribute > 999) return {};
  auto values = Split(
      Attribute(store.Read(parts[0], parts[1]).value_or(""), static_cast<int>(attribute)), kVm);
  values.resize(std::min(values.size(), kItemLimit));
  return Join(values, kSvm);
}

std::string Completed(Store& store, std::string field) {
  const auto name = Attribute(field, 1, definition::Name);
  const auto entry = name.empty() ? std::string() : store.Read("DICTIONARY", name).value_or("");
  for (const int value : definition::kFromDictionary) {
    auto text = Attribute(field, 1, value);
    if (text.empty()) text = Attribute(entry, value);
    text = Resolved(store, text);
    if (!text.empty()) SetValue(field, value, text);
  }
  return field;
}

}  // namespace

void SeedScreens(Store& store) {
  for (const auto& entry : FieldEntries())
    store.Write("DICTIONARY", entry.name, DictionaryRecord(entry));
  for (const auto& screen : Screens()) {
    const std::string id = screen.id;
    const auto module = id.substr(0, 2);
    const auto name = id.substr(3);
    const auto programs = "DICT BP" + module;
    store.CreateFile(programs);
    store.Write("SCREEN", id, Prompts(screen));
    store.Write(programs, module + "!" + name, Join(Split(screen.files, ' '), kVm));
    store.Write(programs, module + "*" + name, Parameters(screen));
    std::string option;
    SetAttribute(option, kScreenFile, screen.file);
    SetAttribute(option, kScreenProgram, screen.program);
    store.Write("DICTIONARY", id, option);
  }
}

bool IsScreen(Store& store, std::string_view id) {
  const auto record = store.Read("DICTIONARY", id);
  return record && !Attribute(*record, kScreenFile).empty();
}

std::string ResolveParameters(Store& store, std::string_view raw) {
  auto fields = Split(raw, kAm);
  for (std::size_t i = 1; i < fields.size(); ++i) {
    if (!fields[i].empty()) fields[i] = Completed(store, std::move(fields[i]));
  }
  return Join(fields, kAm);
}

}  // namespace quorvel::demohost
