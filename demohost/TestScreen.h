// A client with a data-entry screen open, for the tests: what it asks and answers, without windows.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "demohost/Record.h"
#include "demohost/TestClient.h"

namespace quorvel::demohost {

inline std::vector<std::string> FieldsOf(const std::string& frame) {
  if (frame.size() < 2) return {};
  return Split(std::string_view(frame).substr(1, frame.size() - 2), kFs);
}

class TestScreen {
 public:
  TestScreen(Application& host, int port, const std::string& user = "demo") : client_(host, port) {
    client_.LogIn(user);
  }

  /// The requests with which a client opens an option that is a screen.
  void Open(const std::string& id) {
    id_ = id;
    const auto option = Ask({"READ", "DICTIONARY", id});
    file_ = Attribute(option, 22);
    program_ = Attribute(option, 23);
    const auto module = id.substr(0, 2), name = id.substr(3), programs = "DICT BP" + module;
    prompts = Ask({"READ", "SCREEN", id});
    const auto files = Ask({"READ", programs, module + "!" + name});
    EXPECT_EQ(Ask({"OPENALLFILES", file_, "BP" + module, Attribute(files, 1)}), "OK");
    fields = Split(Ask({"SYBPARM", Ask({"READ", programs, module + "*" + name})}), kAm);
    fields.insert(fields.begin(), "");  // so that fields[n] is the definition of field n
  }

  /// The first field of the reply.
  std::string Ask(const std::vector<std::string>& request) {
    client_.Forget().Request(request);
    EXPECT_EQ(client_.Frames().size(), 1u) << request.front();
    const auto reply = FieldsOf(client_.LastFrame());
    return reply.empty() ? "" : reply.size() > 1 ? reply[1] : reply[0];
  }

  /// Calls the rules; `sent` is the data. Boxes and modes are answered, what they say is kept.
  void Hook(const std::string& hook, const std::string& sent = "", int field = 0) {
    boxes.clear();
    modes.clear();
    shown.clear();
    Take(client_.Forget().Request(
        {"CASELOGIC", id_, std::to_string(field), program_, hook, entry, original, sent}));
  }
  /// Stores an entry as the client does: ai_, the record, as_. False if it has been refused.
  bool Enter(int field, std::string value) {
    const auto name = Attribute(fields[static_cast<std::size_t>(field)], 1, 6);
    Hook("ai_" + name, value, field);
    const auto told = boxes;
    if (word == "RETURN" || data == "Error") return false;
    if (word == "CHGKEY") value = data;
    SetAttribute(entry, field, value);
    Hook("as_" + name, value, field);
    boxes.insert(boxes.begin(), told.begin(), told.end());
    return true;
  }

  std::string Value(int field) const { return Attribute(entry, field); }
  TestClient& Client() { return client_; }

  std::string prompts;
  std::vector<std::string> fields;
  std::string entry, original;
  std::string word, data;  // of the last reply
  std::vector<std::string> boxes, modes;
  std::map<int, std::string> shown;  // what ~GENOUT~ has put on the screen

 private:
  void Take(TestClient& client) {
    for (bool done = false; !done;) {
      done = true;
      const auto frames = client.Frames();
      client.Forget();
      for (const auto& frame : frames) {
        const auto parts = FieldsOf(frame);
        const auto& token = parts.front();
        if (token == "~GENOUT~") shown[std::stoi(parts[1])] = parts.size() > 2 ? parts[2] : "";
        if (token == "~MSGBOX~") boxes.push_back(parts[2]);
        if (token.ends_with(".MODE~")) modes.push_back(token);
        if (token == "~MSGBOX~" || token.ends_with(".MODE~")) {
          EXPECT_EQ(&frame, &frames.back()) << "a frame behind one that is not answered yet";
          client.Type("");
          done = false;
        }
        if (token != "~CASELOGIC~") continue;
        word = parts[1];
        entry = parts[2];
        original = parts[3];
        data = parts[4];
      }
    }
  }

  TestClient client_;
  std::string id_, file_, program_;
};

}  // namespace quorvel::demohost
