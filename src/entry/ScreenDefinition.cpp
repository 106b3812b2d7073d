#include "entry/ScreenDefinition.h"

#include "link/Marks.h"
#include "link/Records.h"
#include "platform/NumberText.h"
#include "platform/Numbers.h"
#include "platform/PlainText.h"

namespace quorvel {
namespace {

// A number that leads a line ("12. Name") is for a terminal's user, who chooses a field by it. The
// text keeps its column.
void BlankLeadingNumber(std::string& text) {
  const std::string lead = FieldOf(text, ".", 1);
  if (!IsNumeric(Trimmed(lead))) return;
  const std::size_t blanks = lead.size() + 1;
  text = std::string(blanks, ' ') + text.substr(std::min(blanks, text.size()));
}

bool IsRule(const std::string& text) {
  return text.find_first_not_of('=') == std::string::npos ||
         text.find_first_not_of('-') == std::string::npos;
}

std::vector<std::string> FieldsOf(const std::string& text, char mark, std::size_t most) {
  std::vector<std::string> parts;
  for (const std::string_view part : Fields(text, mark)) {
    parts.emplace_back(part);
    if (parts.size() == most) break;
  }
  return parts;
}

}  // namespace

ScreenDefinition::ScreenDefinition(const std::string& prompts, const std::string& parms)
    : lines_(FieldsOf(prompts, AM, prompts.size() + 1)),
      attributes_(FieldsOf(parms, AM, kLastFieldNumber)) {
  const std::string& order = attributes_.front();
  if (!order.empty()) order_ = FieldsOf(order, VM, order.size() + 1);
}

int ScreenDefinition::LineCount() const {
  return CheckedInt16(static_cast<std::int64_t>(lines_.size()));
}

std::optional<DisplayLine> ScreenDefinition::Line(int number) const {
  const std::string& attribute = lines_.at(static_cast<std::size_t>(number - 1));
  DisplayLine line;
  line.number = number;
  line.text = Trimmed(ExtractOf(attribute, 0, 2, 0));
  BlankLeadingNumber(line.text);
  if (line.text.ends_with(':') || line.text.ends_with('|')) line.text.pop_back();
  if (Trimmed(line.text).empty() || IsRule(line.text)) return std::nullopt;
  line.column = ToInt16(ExtractOf(attribute, 0, 1, 1));
  line.row = RoundToInt16(ToNumber(ExtractOf(attribute, 0, 1, 2)) + 1.0);
  return line;
}

const FieldDefinition& ScreenDefinition::Field(int number) const {
  static const FieldDefinition kNone;
  const bool defined = number >= kFirstFieldNumber && number <= kLastFieldNumber &&
                       number <= static_cast<int>(attributes_.size());
  if (!defined) return kNone;
  const auto known = fields_.find(number);
  if (known != fields_.end()) return known->second;
  const std::string& attribute = attributes_[static_cast<std::size_t>(number - 1)];
  return fields_.emplace(number, ParseFieldDefinition(number, attribute)).first->second;
}

}  // namespace quorvel
