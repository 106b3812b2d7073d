#pragma once

#include <string>

#include "entry/ScreenDefinition.h"

namespace quorvel {

// A record in two orders: the file's own attributes, and an attribute a field of the screen. Pure
// functions of texts. Fields that are not stored are left alone.

// `entry` with each stored field's value taken from the file record.
std::string LoadEntryRecord(const ScreenDefinition& definition, std::string entry,
                            const std::string& file);

// `file` with each stored field's value put into it. A piece of a value replaces the whole value:
// what stands around it comes from the entry itself, so of fields that share a value the last one
// wins.
std::string PackEntryRecord(const ScreenDefinition& definition, const std::string& entry,
                            std::string file);

// Whether a balance field of the record on screen holds anything but 0.
bool HasOpenBalance(const ScreenDefinition& definition, const std::string& entry);

}  // namespace quorvel
