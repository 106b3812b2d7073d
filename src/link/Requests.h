#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// What the client asks of the host. Every request is one line of terminal input: the frame mark,
// the verb, each field behind a field separator, the frame mark, CR. At most one is outstanding;
// PendingOp names it. Those that wait serve events until the reply has come, without a time limit
// (see HostWait.h).

// Puts the text on the connection as it stands; nothing without one, and nothing for an event that
// began in a session that is over.
void SendToHost(const std::string& text);

// Tells the host that the user leaves. What is under way ends here: a record is not to be written
// by a session that its user has left.
void SendLogOff();

// A framed request line, CR included. Fields are not escaped; callers pass none with a mark.
std::string BuildRequest(std::string_view verb, const std::vector<std::string_view>& fields);

// A text that a user has typed, as a field of a request: what would end the field or the line is
// replaced by "?".
std::string AsField(std::string text);

// Leaves ReplyRecord, ReadFailed and ReadMessage.
void ReadRecord(const std::string& file, const std::string& key);

// The frame that asks the host to get an option ready; sends nothing.
std::string BuildRunRequest(const std::string& file, const std::string& key,
                            const std::string& mode);

// A record of more than 4,000 characters is refused with a message.
void WriteRecord(const std::string& file, const std::string& key, const std::string& record,
                 const std::string& tag);

void DeleteRecord(const std::string& file, const std::string& key, const std::string& tag);

// `action` is "L" to lock, "U" to unlock.
void LockRecord(const std::string& file, const std::string& key, const std::string& action);

void WriteHelpText(const std::string& text, std::int16_t width, const std::string& separator);

// Calls the screen's host program at a hook; CaseHook, EntryRecord, OriginalRecord and CaseData go
// out and come back. A frame of more than 4,000 characters is refused with a message.
void CaseCall(const std::string& argument);

// Runs the option OptionId: opens its entry screen, or has the host run it. Where a screen holds an
// open record, another one is not opened.
void RunOption();

// Reads the definition of the screen ScreenId and shows it.
void OpenAllFiles();

}  // namespace quorvel
