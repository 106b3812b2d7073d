#include "entry/RecordMapping.h"

#include "link/Marks.h"
#include "link/Records.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

// Characters of delimiters ahead of a sub-field; a record that can be written has 4,000 at most.
constexpr std::size_t kMostDelimiters = 100'000;

// The field's piece of one value.
std::string PieceOf(const StoredAt& at, std::string_view value) {
  if (!at.delimiter.empty()) return FieldOf(value, at.delimiter, at.start);
  const auto from = static_cast<std::size_t>(at.start - 1);
  if (from >= value.size()) return {};
  return std::string(value.substr(from, static_cast<std::size_t>(at.width)));
}

std::string PiecesOfAll(const StoredAt& at, const std::string& attribute) {
  DCountOf(attribute, VM);  // their number is to fit
  std::string pieces;
  bool first = true;
  for (const std::string_view value : Fields(attribute, VM)) {
    if (!first) pieces += VM;
    first = false;
    pieces += PieceOf(at, value);
  }
  return pieces;
}

// What stands around the piece in fixed columns of `base`.
std::string InColumns(const StoredAt& at, const std::string& base, const std::string& piece) {
  std::string before = base.substr(0, static_cast<std::size_t>(at.start - 1));
  before.resize(static_cast<std::size_t>(at.start - 1), ' ');
  const std::size_t behind = before.size() + static_cast<std::size_t>(at.width);
  return before + piece + (behind < base.size() ? base.substr(behind) : std::string());
}

// The same among sub-fields. The base is the sub-field itself: as a rule there are only delimiters
// around the piece.
std::string AmongSubFields(const StoredAt& at, const std::string& value, const std::string& piece) {
  const auto ahead = static_cast<std::size_t>(at.start - 1);
  if (ahead * at.delimiter.size() > kMostDelimiters) throw RuntimeError(Failure::OutOfMemory);
  const std::string base = FieldOf(value, at.delimiter, at.start);
  const std::int16_t last = DCountOf(base, at.delimiter);
  std::string out;
  for (std::int16_t i = 1; i < at.start; ++i) {
    if (i <= last) out += FieldOf(base, at.delimiter, i);
    out += at.delimiter;
  }
  out += piece;
  for (int i = at.start + 1; i <= last; ++i) {
    out += at.delimiter + FieldOf(base, at.delimiter, static_cast<std::int16_t>(i));
  }
  return out;
}

}  // namespace

std::string LoadEntryRecord(const ScreenDefinition& definition, std::string entry,
                            const std::string& file) {
  for (std::int16_t i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
    const auto& stored = definition.Field(i).stored;
    if (!stored) continue;
    const std::string attribute = ExtractOf(file, stored->attribute, 0, 0);
    const std::string value = stored->everyValue
                                  ? PiecesOfAll(*stored, attribute)
                                  : PieceOf(*stored, ExtractOf(attribute, 1, stored->value, 0));
    entry = ReplaceOf(entry, i, 0, 0, value);
  }
  return entry;
}

std::string PackEntryRecord(const ScreenDefinition& definition, const std::string& entry,
                            std::string file) {
  for (std::int16_t i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
    const auto& stored = definition.Field(i).stored;
    if (!stored) continue;
    const std::string piece = ExtractOf(entry, i, 0, 0);
    if (stored->everyValue) {
      file = ReplaceOf(file, stored->attribute, 0, 0, piece);
      continue;
    }
    const std::string base = ExtractOf(entry, i, stored->value, 0);
    const std::string value = stored->delimiter.empty() ? InColumns(*stored, base, piece)
                                                        : AmongSubFields(*stored, base, piece);
    file = ReplaceOf(file, stored->attribute, stored->value, 0, value);
  }
  return file;
}

bool HasOpenBalance(const ScreenDefinition& definition, const std::string& entry) {
  for (std::int16_t i = kFirstFieldNumber; i <= kLastFieldNumber; ++i) {
    if (!definition.Field(i).balance) continue;
    const std::string value = ExtractOf(entry, i, 0, 0);
    if (value != "0" && !value.empty()) return true;
  }
  return false;
}

}  // namespace quorvel
