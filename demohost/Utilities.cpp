#include "demohost/Utilities.h"

#include <string>

#include "demohost/Application.h"
#include "demohost/Record.h"
#include "demohost/Vt.h"

namespace quorvel::demohost {
namespace {

// A line end as older hosts send it, with a fill character behind the CR (RFC 854's CR NUL).
constexpr std::string_view kFilledLineEnd{"\r\0\n", 3};

constexpr std::size_t kPasswordLimit = 40;

class Broadcast final : public Program {
 public:
  void OnStart(Console& console) override {
    console.Print(vt::kClear);
    console.PrintLine(vt::In(vt::kReverse, Left("Send a Message to All Users", 79)));
    console.Print("Text: ");
  }
  void OnLine(Console& console, const std::string& line) override {
    if (!Leaves(line))
      console.PrintLine("Sent to " + std::to_string(console.Broadcast(line)) + " users.");
    console.Finish();
  }
};

class BoxDemonstration final : public Program {
 public:
  void OnStart(Console& console) override {
    console.ShowBox("Message Box", "The host waits until you close this box.");
  }
  void OnLine(Console& console, const std::string&) override {
    if (++closed_ == 2) return console.Finish();
    console.ShowBox("Message Box", "You have closed the first box. This is the second.");
  }

 private:
  int closed_ = 0;
};

class TestCard final : public Program {
 public:
  void OnStart(Console& console) override {
    console.Print(vt::kClear);
    console.Print(vt::Box(1, 1, 16, 62, "Terminal test card"));
    const std::pair<const char*, std::string_view> attributes[] = {
        {"Normal", vt::kNormal},  {"Bold", vt::kBold},       {"Underline", vt::kUnderline},
        {"Blinking", vt::kBlink}, {"Reverse", vt::kReverse},
    };
    int row = 3;
    for (const auto& [name, sequence] : attributes)
      console.Print(vt::At(row++, 4) + vt::In(sequence, Left(name, 14)));
    console.Print(vt::At(3, 30) +
                  vt::In(std::string(vt::kBold) + std::string(vt::kUnderline), "Bold underline"));
    console.Print(vt::At(4, 30) +
                  vt::In(std::string(vt::kBold) + std::string(vt::kReverse), "Bold reverse"));
    // The DEC special graphics set stands in the places of the codes 95 to 126.
    console.Print(vt::At(9, 4) + "Line drawing set:");
    for (int code = 95; code <= 126; ++code) {
      const int place = code - 95;
      console.Print(vt::At(11 + place / 16 * 2, 4 + place % 16 * 3) + std::string(vt::kGraphics) +
                    static_cast<char>(code) + std::string(vt::kAscii));
    }
    console.Print(vt::At(18, 1) + "Lines that end in CR NUL LF:");
    for (const char* line : {"first", "second", "third"}) {
      console.Print(kFilledLineEnd);
      console.Print(line);
    }
    console.Print(kFilledLineEnd);
    console.Print("Enter goes back to the menu. ");
  }
  void OnLine(Console& console, const std::string&) override {
    console.Print(vt::kClear);
    console.Finish();
  }
};

class MonthClose final : public Program {
 public:
  void OnStart(Console& console) override { console.AskPassword("Close the Month"); }

  void OnLine(Console& console, const std::string& line) override {
    if (answered_ || line.empty()) return console.Finish();
    answered_ = true;
    if (!console.Host().Data().CheckPassword(console.User(), line))
      return console.ShowBox("Close the Month", "That is not your password.");
    Close(console);
  }

 private:
  static void Close(Console& console) {
    auto& store = console.Host().Data();
    RecordLock lock;
    if (!lock.Take(console.Host().RecordLocks(), console.Port(), "PARM", "COMPANY"))
      return console.ShowBox("Close the Month", "Another user is closing the month.");
    auto company = store.Read("PARM", "COMPANY").value_or("");
    const auto month = Number(Attribute(company, 2));
    SetAttribute(company, 2, std::to_string(Plus(month, 1)));
    SetAttribute(company, 3, std::to_string(DayNumber(console.Host().Now())));
    store.Write("PARM", "COMPANY", company);
    console.ShowBox("Close the Month", "Month " + std::to_string(month) + " has been closed.");
  }

  bool answered_ = false;
};

class PasswordChange final : public Program {
 public:
  void OnStart(Console& console) override { console.AskPassword("Your present password"); }

  void OnLine(Console& console, const std::string& line) override {
    switch (step_++) {
      case 0:
        if (line.empty()) return console.Finish();
        if (!console.Host().Data().CheckPassword(console.User(), line))
          return Tell(console, "That is not your password.");
        return console.AskPassword("Your new password");
      case 1:
        if (line.empty()) return console.Finish();
        if (line.size() > kPasswordLimit)
          return Tell(console, "A password has at most 40 characters.");
        fresh_ = line;
        return console.AskPassword("Your new password, once more");
      case 2:
        if (line != fresh_) return Tell(console, "The two differ. Nothing has been changed.");
        console.Host().Data().SetPassword(console.User(), fresh_);
        return Tell(console, "Your password has been changed.");
      default:
        console.Finish();
    }
  }

 private:
  void Tell(Console& console, std::string_view text) {
    step_ = 3;
    console.ShowBox("Change My Password", text);
  }

  int step_ = 0;
  std::string fresh_;
};

}  // namespace

Listing ListUsers(Console& console) {
  Listing listing{
      "Users on the system", Left("Port", 6) + Left("User", 20) + Left("Is at", 30), {}};
  for (const auto& who : console.Host().WhoIsOn()) {
    listing.body.push_back(Left(std::to_string(who.port), 6) + Left(who.user, 20) +
                           Left(who.doing, 30) + (who.port == console.Port() ? " <- you" : ""));
  }
  return listing;
}

Listing ListLocks(Console& console) {
  Listing listing{"Record locks", Left("File", 20) + Left("Record", 30) + Left("Held by", 28), {}};
  for (const auto& lock : console.Host().RecordLocks().List()) {
    listing.body.push_back(Left(lock.file, 20) + Left(lock.key, 30) +
                           Left(console.Host().NameOf(lock.session), 28));
  }
  if (listing.body.empty()) listing.body.emplace_back("No record is locked.");
  return listing;
}

Listing ListFiles(Console& console) {
  Listing listing{"Files", Left("File", 20) + Right("Records", 10), {}};
  auto& store = console.Host().Data();
  for (const auto& file : store.Files())
    listing.body.push_back(Left(file, 20) + Right(std::to_string(store.Count(file)), 10));
  return listing;
}

std::unique_ptr<Program> MakeBroadcast() {
  return std::make_unique<Broadcast>();
}
std::unique_ptr<Program> MakeBoxDemonstration() {
  return std::make_unique<BoxDemonstration>();
}
std::unique_ptr<Program> MakeTestCard() {
  return std::make_unique<TestCard>();
}
std::unique_ptr<Program> MakeMonthClose() {
  return std::make_unique<MonthClose>();
}
std::unique_ptr<Program> MakePasswordChange() {
  return std::make_unique<PasswordChange>();
}

}  // namespace quorvel::demohost
