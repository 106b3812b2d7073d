#include "demohost/Requests.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "demohost/CaseRules.h"
#include "demohost/Format.h"
#include "demohost/Frames.h"
#include "demohost/Lists.h"
#include "demohost/Marks.h"
#include "demohost/Menus.h"
#include "demohost/Program.h"
#include "demohost/Record.h"
#include "demohost/Screens.h"

namespace quorvel::demohost {
namespace {

using Fields = std::vector<std::string>;

struct Request {
  const Caller& caller;
  const Fields& fields;  // the verb first
  Application& host = caller.host;

  const std::string& operator[](std::size_t number) const { return fields[number]; }
};

constexpr std::string_view kOk = "OK";
constexpr std::size_t kHelpTextAttribute = 11;
constexpr std::size_t kHelpWidth = 70;

std::string Named(std::string_view key, std::string_view file) {
  return "Record " + std::string(key.substr(0, Store::kKeyLimit)) + " of " + std::string(file);
}

// A record in use elsewhere can be neither written nor deleted.
void NeedFree(const Request& request, std::string_view file, std::string_view key) {
  const auto& locks = request.host.RecordLocks();
  if (!locks.HeldByOther(request.caller.port, file, key)) return;
  throw StoreError(Named(key, file) + " is locked by " +
                   request.host.NameOf(locks.Holder(file, key).value_or(0)));
}

// The run request. The client goes to its terminal on ~ERRORMSG~ and stays in its menu on any other
// frame, so ~ERRORMSG~ stands also for "this option talks in the terminal".
Reply RunReply(const Request& request) {
  Reply reply;
  reply.runOption = Upper(Trim(request[2]));
  auto name = reply.runOption;
  if (name.size() == 2) name += ".MENU";
  if (const auto menu = MenuRecord(request.host.Data(), name)) {
    reply.frame = Frame({*menu});
    return reply;
  }
  const auto option = FindOption(name);
  if (!option && !IsScreen(request.host.Data(), name)) {
    reply.frame = ErrorFrame("There is no option " + name);
  } else if (option && option->terminal) {
    reply.frame = ErrorFrame(name + " runs in the terminal");
  } else {
    reply.frame = Frame({kOk});
  }
  return reply;
}

Reply Read(const Request& request) {
  if (request.fields.size() > 3 && request[1] == "MENUS" && request[3] == "E")
    return RunReply(request);
  auto record = request.host.Data().Read(request[1], request[2]);
  if (const auto index = IndexRecord(request.host.Data(), request[1], request[2]))
    record = index->empty() ? std::nullopt : index;
  if (!record) throw StoreError(Named(request[2], request[1]) + " not found");
  return {Frame({*record})};
}

Reply Write(const Request& request) {
  NeedFree(request, request[1], request[2]);
  request.host.Data().Write(request[1], request[2], request[3]);
  return {Frame({kOk})};
}

Reply Delete(const Request& request) {
  NeedFree(request, request[1], request[2]);
  if (!request.host.Data().Delete(request[1], request[2]))
    throw StoreError(Named(request[2], request[1]) + " not found");
  return {Frame({kOk})};
}

Reply Lock(const Request& request) {
  auto& locks = request.host.RecordLocks();
  const auto& file = request[2];
  const auto& key = request[3];
  if (request[4] == "U") {
    locks.Release(request.caller.port, file, key);
    return {Frame({kOk})};
  }
  if (request[4] != "L") throw StoreError("A lock is L or U");
  if (!request.host.Data().HasFile(file)) throw StoreError("Unable to open file " + file);
  if (key.size() > Store::kKeyLimit) throw StoreError("The key is too long");
  if (locks.Take(request.caller.port, file, key) != Locks::Outcome::Refused) return {Frame({kOk})};
  NeedFree(request, file, key);
  throw StoreError("Too many locks");
}

// The data file and the program's list of files must be there. The program file itself is code of
// the host and no file of records.
Reply OpenAllFiles(const Request& request) {
  request.caller.memory.clear();  // a screen begins with no past
  Fields names = Split(request[3], kVm);
  names.insert(names.begin(), request[1]);
  for (const auto& name : names) {
    if (!name.empty() && !request.host.Data().HasFile(name))
      throw StoreError("Unable to open file " + name);
  }
  return {Frame({kOk})};
}

Reply ScreenParameters(const Request& request) {
  return {Frame({ResolveParameters(request.host.Data(), request[1])})};
}

Reply CaseLogic(const Request& request) {
  CaseCall call(request.host, request.caller.port, request.caller.user, request.caller.memory);
  call.field = static_cast<int>(std::clamp(Number(request[2]), 0LL, 80LL));
  call.hook = request[4];
  call.entry = request[5];
  call.original = request[6];
  call.data = request[7];
  try {
    RunCaseRules(request[3], call);
  } catch (const StoreError& error) {  // the client waits for ~CASELOGIC~ and for nothing else
    call.Tell("Business rules", error.what());
    call.Error();
  }
  return {call.Reply(), call.Steps()};
}

Reply List(const PickList& list) {
  Reply reply{ListFrame(list)};
  reply.list = true;
  return reply;
}

Reply NamedListReply(const Request& request) {
  return List(NamedList(request.host.Data(), request[1]));
}

Reply LocatorReply(const Request& request) {
  return List(LocatedList(request.host.Data(), request[1], request[2], request[3]));
}

Reply ReadHelp(const Request& request) {
  auto record = request.host.Data().Read("HELP", request[1]).value_or("");
  if (record.empty()) SetAttribute(record, 1, "No help has been written for " + request[1]);
  Reply reply{Frame({"~FIELDHELP~", request[1], request[2], record})};
  reply.helpChange = 1;
  return reply;
}

// Cuts off what is longer than the width, between words where a blank allows it; gives the rest.
std::string Wrap(std::string_view line, std::size_t width, Fields& lines) {
  while (line.size() > width) {
    auto cut = line.rfind(' ', width);
    if (cut == std::string_view::npos || cut == 0) cut = width;
    lines.push_back(Trim(line.substr(0, cut)));
    line.remove_prefix(cut);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  }
  return std::string(line);
}

// What is left of a line that was too long flows into the next one, so that a text stays even when
// a word is put in. Empty lines and lines that begin with a blank start afresh.
Fields Reflow(const Fields& text, std::size_t width) {
  Fields lines;
  std::string left;
  for (const auto& line : text) {
    const bool fresh = line.empty() || line.front() == ' ';
    if (fresh && !left.empty()) lines.push_back(std::exchange(left, {}));
    const auto joined = left.empty() ? line : left + " " + line;
    left = Wrap(joined, width, lines);
    if (joined.size() <= width) lines.push_back(std::exchange(left, {}));
  }
  if (!left.empty()) lines.push_back(left);
  return lines;
}

Reply WriteHelp(const Request& request) {
  const auto asked = static_cast<std::size_t>(std::max(0LL, Number(request[3])));
  const auto width = asked >= 20 && asked <= 200 ? asked : kHelpWidth;
  const char separator = request[4].empty() ? kSvm : request[4].front();
  const auto lines = Reflow(Split(request[2], separator), width);
  auto record = request.host.Data().Read("HELP", request[1]).value_or("");
  if (Attribute(record, 1).empty()) SetAttribute(record, 1, request[1]);
  SetAttribute(record, kHelpTextAttribute, Join(lines, kVm));
  NeedFree(request, "HELP", request[1]);
  request.host.Data().Write("HELP", request[1], record);
  Reply reply{Frame({kOk})};
  reply.helpChange = -1;
  return reply;
}

struct Verb {
  std::string_view name;
  std::size_t fields;      // at least, the verb included
  std::size_t most;        // more mean that a field held the separator
  std::string_view error;  // the message that refuses it; empty: the text alone
  Reply (*answer)(const Request&);
};

constexpr Verb kVerbs[] = {
    {"READ", 3, 4, "~ERRORMSG~", Read},
    {"WRITE", 4, 5, "~WRITERROR~", Write},
    {"DELETE", 3, 4, "~DELETERROR~", Delete},
    {"LOCK", 5, 5, "LOCKED", Lock},
    {"OPENALLFILES", 4, 4, "~OPENERROR~", OpenAllFiles},
    {"SYBPARM", 2, 2, "~ERRORMSG~", ScreenParameters},
    {"CASELOGIC", 8, 8, "~ERRORMSG~", CaseLogic},
    {"READHELP", 3, 3, "~ERRORMSG~", ReadHelp},
    {"WRITEHELP", 5, 5, "", WriteHelp},
    {"SYLIST", 2, 2, "~ERRORMSG~", NamedListReply},
    {"SYLOCATR", 4, 4, "~ERRORMSG~", LocatorReply},
};

const Verb* FindVerb(std::string_view name) {
  const auto* verb = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                  [name](const Verb& v) { return v.name == name; });
  return verb == std::end(kVerbs) ? nullptr : verb;
}

}  // namespace

bool IsCaseLogic(const std::string& text) {
  return text.starts_with("CASELOGIC");
}

Reply Answer(const Caller& caller, const std::string& text) {
  const auto fields = Split(text, kFs);
  const auto* verb = FindVerb(fields.empty() ? "" : fields.front());
  if (verb == nullptr) return {Refusal(text, "Unknown request")};
  if (fields.size() < verb->fields) return {Refusal(text, "The request lacks a field")};
  if (fields.size() > verb->most) return {Refusal(text, "The request has a field too many")};
  try {
    return verb->answer({caller, fields});
  } catch (const StoreError& error) {
    return {Refusal(text, error.what())};
  }
}

std::string Refusal(const std::string& text, const std::string& reason) {
  const auto* verb = FindVerb(std::string_view(text).substr(0, text.find(kFs)));
  if (verb == nullptr) return ErrorFrame(reason);
  if (verb->error.empty()) return Frame({reason});
  return Frame({verb->error, reason});
}

}  // namespace quorvel::demohost
