// Multivalue records: one text whose attributes, values and subvalues are separated by marks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvel::demohost {

/// The parts of `text` between the separators; an empty text has no parts.
std::vector<std::string> Split(std::string_view text, char separator);

std::string Join(const std::vector<std::string>& parts, char separator);

/// One attribute (from 1), or one value (from 1) of it; empty when there is none.
/// `value` 0 is the attribute whole.
std::string Attribute(std::string_view record, int attribute, int value = 0);

/// Puts `part` in the place of a part of `text`, adding the separators it takes to reach it.
/// `number` is at least 1 and, being chosen by the program, small.
void SetPart(std::string& text, char separator, int number, std::string_view part);

/// The same for an attribute of a record.
void SetAttribute(std::string& record, int attribute, std::string_view text);

/// Upper case of the letters A to Z; other bytes stay.
std::string Upper(std::string_view text);

/// Without the blanks at both ends.
std::string Trim(std::string_view text);

}  // namespace quorvel::demohost
