#pragma once

#include <map>
#include <string>

#include "link/Records.h"

namespace quorvel {

// The elements of a definition, by position.
using ByPosition = std::map<int, std::string>;

// A mapping of these subvalues.
inline std::string MappingOf(const ByPosition& subvalues) {
  std::string value;
  for (const auto& [position, text] : subvalues) {
    value = ReplaceOf(value, 1, 1, static_cast<std::int16_t>(position), text);
  }
  return value;
}

// A field definition of these values.
inline std::string DefinitionOf(const ByPosition& values) {
  std::string attribute;
  for (const auto& [position, text] : values) {
    attribute = ReplaceOf(attribute, 1, static_cast<std::int16_t>(position), 0, text);
  }
  return attribute;
}

// A record of these attributes.
inline std::string RecordOf(const ByPosition& attributes) {
  std::string record;
  for (const auto& [number, text] : attributes) {
    record = ReplaceOf(record, static_cast<std::int16_t>(number), 0, 0, text);
  }
  return record;
}

// A placement of two-digit numbers; data type "1" text, "2" numeric, "3" date.
inline std::string PlaceAt(int column, int row, int width, const std::string& type = "1") {
  std::string place;
  for (const int number : {column, row, width}) {
    place += (number < 10 ? "0" : "") + std::to_string(number);
  }
  return place + type;
}

}  // namespace quorvel
