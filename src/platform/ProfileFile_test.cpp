#include "platform/ProfileFile.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class ProfileFileTest : public ::testing::Test {
 protected:
  ProfileFileTest()
      : folder_(fs::temp_directory_path() /
                ("profile-test-" + std::to_string(std::random_device{}()))),
        path_((folder_ / "session.inf").string()) {
    fs::create_directory(folder_);
  }
  ~ProfileFileTest() override { fs::remove_all(folder_); }

  void Put(const std::string& content) const { std::ofstream(path_, std::ios::binary) << content; }
  std::string Content() const {
    std::ostringstream content;
    content << std::ifstream(path_, std::ios::binary).rdbuf();
    return content.str();
  }
  std::string Get(const std::string& section, const std::string& key) const {
    return ProfileFile(path_).Get(section, key, "default");
  }
  // Writes one key; what stands in the file then.
  std::string Written(const std::string& section, const std::string& key,
                      const std::string& value) const {
    ProfileFile file(path_);
    EXPECT_TRUE(file.Set(section, key, value));
    EXPECT_TRUE(file.Save());
    return Content();
  }
  std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }

  fs::path folder_;
  std::string path_;
};

TEST_F(ProfileFileTest, ReadsAsTheProfileCallsDo) {
  EXPECT_EQ(Get("TELNET", "HostName"), "default");  // no file
  Put("HostName=ahead of all\r\n"
      "[ Telnet ]\r\n"
      "; HostName=comment\r\n"
      "  ;HostName=comment\r\n"
      "hostNAME =  first host \r\n"
      "HostName=second\r\n"
      "no equals sign\r\n"
      "Empty=\r\n"
      "Blank= \t \r\n"
      "Equals=a=b\r\n"
      "Quoted=\"  two  \"\r\n"
      "Single=' x '\r\n"
      "Twice=\"\"x\"\"\r\n"
      "One=\"\r\n"
      "Mixed=\"x'\r\n"
      "Semicolon=a;b ; c\r\n"
      "Nul=a\0b\r\n"
      "High=\xE9\xFF\r\n"
      "[OTHER]\r\n"
      "Key=other\n"
      "[telnet]\n"
      "Late=second section\n"
      "[Open\n"
      "Last=end"s);
  const std::pair<const char*, std::string> cases[] = {
      {"HOSTNAME", "first host"},
      {"Missing", "default"},
      {"Empty", ""},
      {"Blank", ""},
      {"Equals", "a=b"},
      {"Quoted", "  two  "},
      {"Single", " x "},
      {"Twice", "\"x\""},
      {"One", "\""},
      {"Mixed", "\"x'"},
      {"Semicolon", "a;b ; c"},
      {"Nul", "a"},
      {"High", "\xE9\xFF"},
      {"Key", "default"},
      {"Late", "default"},
      {"; HostName", "default"},
  };
  for (const auto& [key, value] : cases) EXPECT_EQ(Get("TELNET", key), value) << key;
  EXPECT_EQ(Get("other", "KEY"), "other");
  EXPECT_EQ(Get("open", "last"), "end");
  EXPECT_EQ(Get("", "HostName"), "default");
}

TEST_F(ProfileFileTest, ValuesHave254CharactersAtMost) {
  Put("[S]\nLong=" + std::string(300, 'x') + "\n");
  EXPECT_EQ(Get("S", "Long"), std::string(254, 'x'));
  EXPECT_EQ(ProfileFile(path_).Get("S", "None", std::string(300, 'd')), std::string(254, 'd'));
}

TEST_F(ProfileFileTest, WritingOneKeyLeavesTheOtherLines) {
  const std::string before =
      "; mine\n\n[TELNET]\r\n HostName = old ; not a comment\r\nHostName=shadowed\r\nOdd line\r\n"
      "\r\n\n[Notes]\nunknown=1\n\n\n[LOGIN]\nPwd=x";
  const struct {
    const char *section, *key, *value;
    std::string from, to;
  } cases[] = {
      {"telnet", "hostname", "new", " HostName = old ; not a comment\r\n", " HostName =new\r\n"},
      {"TELNET", "HostName", "old ; not a comment", "", ""},  // no change
      {"TELNET", "Port", "23", "Odd line\r\n", "Odd line\r\nPort=23\n"},
      {"notes", "more", "", "unknown=1\n", "unknown=1\nmore=\n"},
      {"LOGIN", "Pwd", "y", "Pwd=x", "Pwd=y"},
      {"LOGIN", "UserId", "u", "Pwd=x", "Pwd=x\nUserId=u\n"},
      {"FAX", "FaxServer", "f", "Pwd=x", "Pwd=x\n\n[FAX]\nFaxServer=f\n"},
  };
  for (const auto& c : cases) {
    Put(before);
    std::string expected = before;
    if (!c.from.empty()) expected.replace(expected.find(c.from), c.from.size(), c.to);
    EXPECT_EQ(Written(c.section, c.key, c.value), expected) << c.section << ' ' << c.key;
    EXPECT_EQ(Get(c.section, c.key), c.value);
  }
}

TEST_F(ProfileFileTest, NewFilesAreTheUsersOwnAndOldOnesKeepTheirPermissions) {
  EXPECT_EQ(Written("LOGIN", "Pwd", "secret"), "[LOGIN]\r\nPwd=secret\r\n");
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  const auto shared = static_cast<fs::perms>(0640);
  fs::permissions(path_, shared);
  Written("LOGIN", "Pwd", "other");
  EXPECT_EQ(fs::status(path_).permissions(), shared);
  EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(ProfileFileTest, WhatIsWrittenReadsBackEqual) {
  const std::vector<std::string> values = {
      "",     "plain",        " leading", "trailing ", "\ttab\t", "\"quoted\"", "'quoted'",
      "\"",   "it's",         "'",        "a=b",       "[x]",     "; x",        " \"both\" ",
      "\"\"", "\xFE\xFF\x1B", "^[13]",    "  ",
  };
  ProfileFile file(path_);
  for (std::size_t i = 0; i < values.size(); ++i) {
    ASSERT_TRUE(file.Set("S", "Key" + std::to_string(i), "first"));
    ASSERT_TRUE(file.Set("s", "KEY" + std::to_string(i), values[i]));
  }
  ASSERT_TRUE(file.Save());
  const ProfileFile again(path_);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string key = "key" + std::to_string(i);
    EXPECT_EQ(file.Get("S", key, "default"), values[i]);
    EXPECT_EQ(again.Get("S", key, "default"), values[i]) << key;
  }
}

TEST_F(ProfileFileTest, RefusesValuesThatWouldBreakALine) {
  ProfileFile file(path_);
  for (const std::string& value : {"a\nb"s, "a\r"s, "a\0b"s})
    EXPECT_FALSE(file.Set("S", "K", value));
  EXPECT_EQ(file.Get("S", "K", "default"), "default");
  EXPECT_TRUE(file.Save());
  EXPECT_EQ(Content(), "");
}

TEST_F(ProfileFileTest, WhatCannotBeWrittenStaysWhole) {
  const auto saved = [](const std::string& path) {
    ProfileFile file(path);
    file.Set("S", "K", "v");
    return file.Save();
  };
  EXPECT_FALSE(saved(""));
  EXPECT_FALSE(saved((folder_ / "missing" / "x.inf").string()));
  EXPECT_FALSE(saved(folder_.string()));
  EXPECT_TRUE(fs::is_directory(folder_));

  const std::string large(ProfileFile::kLargestFile + 1, '\n');
  Put(large);
  EXPECT_FALSE(saved(path_));
  EXPECT_EQ(Content(), large);
  EXPECT_EQ(Get("S", "K"), "default");

  // Files of the user's own beside it are not taken for ours.
  Put("[S]\n");
  const std::string neighbour = path_ + ".new0";
  std::ofstream(neighbour) << "mine";
  EXPECT_TRUE(saved(path_));
  std::string kept;
  std::ifstream(neighbour) >> kept;
  EXPECT_EQ(kept, "mine");
  EXPECT_EQ(FilesInFolder(), 2u);
}

TEST_F(ProfileFileTest, ALinkStaysOne) {
  const fs::path real = folder_ / "real.inf";
  std::ofstream(real) << "[S]\nK=1\n";
  fs::create_symlink(real, path_);
  EXPECT_EQ(Written("S", "K", "2"), "[S]\nK=2\n");
  EXPECT_TRUE(fs::is_symlink(path_));
}

// Whatever a file holds, reading and writing one key changes nothing else, and every key of a
// configuration is found in time.
TEST_F(ProfileFileTest, AnyContent) {
  std::mt19937 random(99);
  const std::string alphabet = "[]=;\"' \t\r\n\n\0kKS\xFF"s;
  for (int round = 0; round < 200; ++round) {
    std::string content(random() % 60, ' ');
    for (char& c : content) c = alphabet[random() % alphabet.size()];
    Put(content);
    ProfileFile file(path_);
    EXPECT_EQ(file.Get("none", "none", "d"), "d");
    ASSERT_TRUE(file.Save());
    ASSERT_EQ(Content(), content);
    ASSERT_TRUE(file.Set("New section", "Key", "v"));
    ASSERT_TRUE(file.Save());
    ASSERT_EQ(Content().substr(0, content.size()), content);
    ASSERT_EQ(Get("New section", "Key"), "v");
  }
  for (const char* line : {"[\n", "[x]\n=\n\n"}) {
    std::string content;
    while (content.size() + 8 < ProfileFile::kLargestFile) content += line;
    Put(content);
    ProfileFile file(path_);
    for (int i = 0; i < 150; ++i) {
      EXPECT_EQ(file.Get("x", "Key" + std::to_string(i), "d"), "d");
      EXPECT_TRUE(file.Set("x", "Key" + std::to_string(i), "v"));
    }
    EXPECT_EQ(file.Get("X", "KEY149", ""), "v");
  }
}

}  // namespace
}  // namespace quorvel
