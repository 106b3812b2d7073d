#include "demohost/Requests.h"

#include <cstdio>
#include <filesystem>
#include <random>

#include <gtest/gtest.h>

#include "demohost/Record.h"
#include "demohost/TestClient.h"

namespace quorvel::demohost {
namespace {

using std::string;
using Fields = std::vector<string>;

class RequestTest : public testing::Test {
 protected:
  RequestTest() {
    demo_.LogIn();
    sales_.LogIn("sales");
  }
  static string Ask(TestClient& client, const Fields& request) {
    client.Forget().Request(request);
    EXPECT_EQ(client.Writes().size(), 1u) << request.front();
    return client.LastFrame();
  }

  Application host_{":memory:", TestNow};
  TestClient demo_{host_, 1}, sales_{host_, 2};
};

TEST_F(RequestTest, RecordsAreReadWrittenAndDeleted) {
  const string record =
      "Tern & Co\xFE\xFE"
      "Kelham\xFE"
      "a\xFC"
      "b\xFD"
      "c";
  EXPECT_EQ(Ask(demo_, {"WRITE", "CUSTOMERS", "C2000", record, "SYCRLOC"}), "\x7FOK\x7F");
  EXPECT_EQ(Ask(sales_, {"READ", "CUSTOMERS", "C2000"}), "\x7F" + record + "\x7F");
  EXPECT_EQ(Ask(demo_, {"WRITE", "CUSTOMERS", "C2000", "", "SYCRLOC"}), "\x7FOK\x7F");
  EXPECT_EQ(Ask(demo_, {"READ", "CUSTOMERS", "C2000"}), "\x7F\x7F") << "there, and empty";
  EXPECT_EQ(Ask(demo_, {"DELETE", "CUSTOMERS", "C2000", "SYCRLOC"}), "\x7FOK\x7F");
  EXPECT_TRUE(Ask(demo_, {"READ", "CUSTOMERS", "C2000"}).starts_with("\x7F~ERRORMSG~\xFA"));
}

TEST_F(RequestTest, EachRefusalComesInTheMessageOfItsRequest) {
  struct Case {
    const char* what;
    Fields request;
    string reply;
  };
  const string noFile = "Unable to open file NOPE";
  const Case cases[] = {
      {"no file", {"READ", "NOPE", "K"}, Framed({"~ERRORMSG~", noFile})},
      {"no record", {"READ", "PARM", "K"}, Framed({"~ERRORMSG~", "Record K of PARM not found"})},
      {"no file", {"WRITE", "NOPE", "K", "r", "t"}, Framed({"~WRITERROR~", noFile})},
      {"no key", {"WRITE", "PARM", "", "r", "t"}, Framed({"~WRITERROR~", "A record needs a key"})},
      {"a field too many",
       {"WRITE", "PARM", "K", "r", "s", "t"},
       Framed({"~WRITERROR~", "The request has a field too many"})},
      {"would pass for a message",
       {"WRITE", "PARM", "K", "~CAPTURE-OFF~", "t"},
       Framed({"~WRITERROR~", "A record can't begin with a tilde"})},
      {"key too long",
       {"WRITE", "PARM", string(101, 'k'), "r", "t"},
       Framed({"~WRITERROR~", "The key is too long"})},
      {"record too long",
       {"WRITE", "PARM", "K", string(32'001, 'r'), "t"},
       Framed({"~WRITERROR~", "The record is too long"})},
      {"request too long",
       {"WRITE", "PARM", "K", string(70'000, 'r'), "t"},
       Framed({"~WRITERROR~", "The request is too long"})},
      {"no record",
       {"DELETE", "PARM", "K", "t"},
       Framed({"~DELETERROR~", "Record K of PARM not found"})},
      {"no file",
       {"OPENALLFILES", "CUSTOMERS", "BPAR", "REPS\xFDNOPE"},
       Framed({"~OPENERROR~", noFile})},
      {"all files", {"OPENALLFILES", "CUSTOMERS", "BPAR", "REPS\xFDITEMS"}, "\x7FOK\x7F"},
      {"no list", {"OPENALLFILES", "CUSTOMERS", "BPAR", ""}, "\x7FOK\x7F"},
      {"parameters",
       {"SYBPARM",
        "a\xFE"
        "b\xFD"
        "c"},
       "\x7F"
       "a\xFE"
       "b\xFD"
       "c\x7F"},
      {"case logic",
       {"CASELOGIC", "S", "", "P", "AfterRead", "new", "old", "data"},
       Framed({"~CASELOGIC~", "AfterRead", "new", "old", "data"})},
      {"no such verb", {"REWRITE", "PARM"}, Framed({"~ERRORMSG~", "Unknown request"})},
      {"a field too few", {"READ", "PARM"}, Framed({"~ERRORMSG~", "The request lacks a field"})},
      {"accounts are no file",
       {"READ", "account", "demo"},
       Framed({"~ERRORMSG~", "Unable to open file account"})},
      {"lock of no file", {"LOCK", "S", "NOPE", "K", "L"}, Framed({"LOCKED", noFile})},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Ask(demo_, c.request), c.reply) << c.what << " " << c.request.front();
}

TEST_F(RequestTest, LocksHoldBetweenSessionsAndEndWithThem) {
  const Fields lock{"LOCK", "S", "ITEMS", "I101", "L"}, unlock{"LOCK", "S", "ITEMS", "I101", "U"};
  const Fields write{"WRITE", "ITEMS", "I101", "r", "t"}, erase{"DELETE", "ITEMS", "I101", "t"};
  const string text = "Record I101 of ITEMS is locked by sales on port 2";
  EXPECT_EQ(Ask(sales_, lock), "\x7FOK\x7F");
  EXPECT_EQ(Ask(sales_, lock), "\x7FOK\x7F") << "its own lock";
  EXPECT_EQ(Ask(demo_, lock), Framed({"LOCKED", text}));
  EXPECT_EQ(Ask(demo_, write), Framed({"~WRITERROR~", text}));
  EXPECT_EQ(Ask(demo_, erase), Framed({"~DELETERROR~", text}));
  EXPECT_EQ(Ask(demo_, unlock), "\x7FOK\x7F") << "of another's lock: nothing";
  EXPECT_EQ(Ask(demo_, lock), Framed({"LOCKED", text}));
  demo_.Type("IC.PRICE").Forget().Type("I101");
  EXPECT_TRUE(demo_.Shows("in use by sales on port 2"));
  demo_.Type(".");

  EXPECT_EQ(Ask(sales_, unlock), "\x7FOK\x7F");
  EXPECT_EQ(Ask(demo_, lock), "\x7FOK\x7F");
  demo_.Type("OFF");
  EXPECT_EQ(Ask(sales_, write), "\x7FOK\x7F") << "a session that has ended still locks";
  {
    TestClient third(host_, 3);
    third.LogIn();
    EXPECT_EQ(Ask(third, lock), "\x7FOK\x7F");
  }
  EXPECT_EQ(Ask(sales_, lock), "\x7FOK\x7F") << "a session that is gone still locks";
}

TEST_F(RequestTest, OneSessionCanNotTakeLocksWithoutEnd) {
  int taken = 0;
  for (int i = 0; i < 2'000; ++i)
    taken += Ask(demo_, {"LOCK", "S", "ITEMS", std::to_string(i), "L"}) == "\x7FOK\x7F";
  EXPECT_EQ(taken, 1'000);
}

TEST_F(RequestTest, HelpIsReadWrittenAndAcknowledged) {
  EXPECT_EQ(
      Ask(demo_, {"READHELP", "NEW.KEY", "MAIN.MENU"}),
      Framed({"~FIELDHELP~", "NEW.KEY", "MAIN.MENU", "No help has been written for NEW.KEY"}));
  demo_.Forget().Type("");
  EXPECT_TRUE(demo_.Frames().empty()) << "the return of the help window is no line to the menu";

  Ask(demo_, {"READHELP", "NEW.KEY", "MAIN.MENU"});
  const string longLine = string(40, 'a') + " " + string(29, 'b') + " " + string(75, 'c');
  EXPECT_EQ(Ask(demo_, {"WRITEHELP", "NEW.KEY", "first\xFC" + longLine, "70", "\xFC"}),
            "\x7FOK\x7F");
  EXPECT_EQ(Attribute(*host_.Data().Read("HELP", "NEW.KEY"), 11),
            "first\xFD" + string(40, 'a') + " " + string(29, 'b') + "\xFD" + string(70, 'c') +
                "\xFD" + string(5, 'c'));
  demo_.Forget().Type("");
  EXPECT_TRUE(demo_.AtMenu("MAIN.MENU")) << "after a write no return is owed";
  // A line that has grown pushes words into the next, but not past the end of its paragraph.
  Ask(demo_, {"WRITEHELP", "NEW.KEY", "aaaa bbbb cccc dddd eeee ffff\xFCgggg hhhh\xFC\xFC- a list",
              "20", "\xFC"});
  EXPECT_EQ(Attribute(*host_.Data().Read("HELP", "NEW.KEY"), 11),
            "aaaa bbbb cccc dddd\xFD"
            "eeee ffff gggg hhhh\xFD\xFD- a list");
  EXPECT_EQ(Ask(demo_, {"WRITEHELP", "", "text", "70", "\xFC"}),
            "\x7F"
            "A record needs a key\x7F");
}

TEST(Store, KeepsItsRecordsAndNobodyElsesFiles) {
  const auto folder = std::filesystem::temp_directory_path() /
                      ("quorvel-demohost-test-" + std::to_string(std::random_device{}()));
  std::filesystem::create_directory(folder);
  const auto file = (folder / "data.sqlite").string();
  {
    Application host(file, TestNow);
    host.Data().Write("PARM", "KEPT", "yes");
    EXPECT_THROW(Application(file, TestNow), StoreError) << "a second host on the same file";
  }
  EXPECT_EQ(Application(file, TestNow).Data().Read("PARM", "KEPT"), "yes");
  EXPECT_EQ(Application(file, TestNow, true).Data().Read("PARM", "KEPT"), std::nullopt);

  // Another program's database: the application id, 4 bytes at 68 of SQLite's header, is its own.
  std::FILE* foreign = std::fopen(file.c_str(), "r+b");
  ASSERT_NE(foreign, nullptr);
  std::fseek(foreign, 68, SEEK_SET);
  std::fwrite("\0\0\0\0", 1, 4, foreign);
  std::fclose(foreign);
  EXPECT_THROW(Application(file, TestNow, true), StoreError);

  const auto other = (folder / "other").string();
  std::FILE* text = std::fopen(other.c_str(), "w");
  ASSERT_NE(text, nullptr);
  for (int i = 0; i < 200; ++i) std::fputs("no database at all\n", text);
  std::fclose(text);
  EXPECT_THROW(Application(other, TestNow, true), StoreError);
  EXPECT_EQ(std::filesystem::file_size(other), 200u * 19u) << "a foreign file has been changed";
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace quorvel::demohost
