#include "demohost/Requests.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>

#include "demohost/Application.h"
#include "demohost/Format.h"
#include "demohost/Frames.h"
#include "demohost/Marks.h"
#include "demohost/Menus.h"
#include "demohost/Program.h"
#include "demohost/Record.h"

namespace quorvel::demohost {
namespace {

using Fields = std::vector<std::string>;

struct Request {
  Application& host;
  int port;
  const Fields& fields;  // the verb first

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
  if (!locks.HeldByOther(request.port, file, key)) return;
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
  if (!option) {
    reply.frame = ErrorFrame("There is no option " + name);
  } else if (option->terminal) {
    reply.frame = ErrorFrame(name + " runs in the terminal");
  } else {
    reply.frame = Frame({kOk});
  }
  return reply;
}

Reply Read(const Request& request) {
  if (request.fields.size() > 3 && request[1] == "MENUS" && request[3] == "E")
    return RunReply(request);
  const auto record = request.host.Data().Read(request[1], request[2]);
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
    locks.Release(request.port, file, key);
    return {Frame({kOk})};
  }
  if (request[4] != "L") throw StoreError("A lock is L or U");
  if (!request.host.Data().HasFile(file)) throw StoreError("Unable to open file " + file);
  if (key.size() > Store::kKeyLimit) throw StoreError("The key is too long");
  if (locks.Take(request.port, file, key) != Locks::Outcome::Refused) return {Frame({kOk})};
  NeedFree(request, file, key);
  throw StoreError("Too many locks");
}

// The data file and the program's list of files must be there. The program file itself is code of
// the host and no file of records.
Reply OpenAllFiles(const Request& request) {
  Fields names = Split(request[3], kVm);
  names.insert(names.begin(), request[1]);
  for (const auto& name : names) {
    if (!name.empty() && !request.host.Data().HasFile(name))
      throw StoreError("Unable to open file " + name);
  }
  return {Frame({kOk})};
}

// This host's parameter records hold no references to resolve.
Reply ScreenParameters(const Request& request) {
  return {Frame({request[1]})};
}

// This host has no case logic: each hook gives back what it got.
Reply CaseLogic(const Request& request) {
  return {Frame({"~CASELOGIC~", request[4], request[5], request[6], request[7]})};
}

Reply ReadHelp(const Request& request) {
  auto record = request.host.Data().Read("HELP", request[1]).value_or("");
  if (record.empty()) SetAttribute(record, 1, "No help has been written for " + request[1]);
  return {Frame({"~FIELDHELP~", request[1], request[2], record}), {}, 1};
}

// Cuts a line between words so that no part is longer than the width, where a blank allows it.
void Wrap(std::string_view line, std::size_t width, Fields& lines) {
  while (line.size() > width) {
    auto cut = line.rfind(' ', width);
    if (cut == std::string_view::npos || cut == 0) cut = width;
    lines.push_back(Trim(line.substr(0, cut)));
    line.remove_prefix(cut);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  }
  lines.emplace_back(line);
}

Reply WriteHelp(const Request& request) {
  const auto asked = static_cast<std::size_t>(std::max(0LL, Number(request[3])));
  const auto width = asked >= 20 && asked <= 200 ? asked : kHelpWidth;
  const char separator = request[4].empty() ? kSvm : request[4].front();
  Fields lines;
  for (const auto& line : Split(request[2], separator)) Wrap(line, width, lines);
  auto record = request.host.Data().Read("HELP", request[1]).value_or("");
  if (Attribute(record, 1).empty()) SetAttribute(record, 1, request[1]);
  SetAttribute(record, kHelpTextAttribute, Join(lines, kVm));
  NeedFree(request, "HELP", request[1]);
  request.host.Data().Write("HELP", request[1], record);
  return {Frame({kOk}), {}, -1};
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
};

const Verb* FindVerb(std::string_view name) {
  const auto* verb = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                  [name](const Verb& v) { return v.name == name; });
  return verb == std::end(kVerbs) ? nullptr : verb;
}

}  // namespace

Reply Answer(Application& application, int port, const std::string& text) {
  const auto fields = Split(text, kFs);
  const auto* verb = FindVerb(fields.empty() ? "" : fields.front());
  if (verb == nullptr) return {Refusal(text, "Unknown request")};
  if (fields.size() < verb->fields) return {Refusal(text, "The request lacks a field")};
  if (fields.size() > verb->most) return {Refusal(text, "The request has a field too many")};
  try {
    return verb->answer({application, port, fields});
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
