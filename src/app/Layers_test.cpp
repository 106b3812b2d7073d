// The folders include each other in one direction only. The allowed edges stand in
// cmake/layers.txt; what a target links follows from the same table.

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

struct Folder {
  std::set<std::string> mayInclude;
  bool qt = false;
};
using Layers = std::map<std::string, Folder>;

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

Layers ReadLayers() {
  Layers layers;
  std::istringstream lines(ReadAll(fs::path(QUORVEL_SOURCE_DIR) / "cmake" / "layers.txt"));
  const std::regex form(R"(^([a-z/]+)( \+qt)?:(.*)$)");
  std::string line;
  std::smatch match;
  while (std::getline(lines, line)) {
    if (!std::regex_match(line, match, form)) continue;
    Folder& folder = layers[match[1]];
    folder.qt = match[2].matched;
    std::istringstream edges(match[3]);
    std::string edge;
    while (edges >> edge) folder.mayInclude.insert(edge);
  }
  return layers;
}

bool IsTest(const std::string& name) {
  return name.find("_test.cpp") != std::string::npos || name.find("Test") != std::string::npos;
}

// What is wrong with the includes of one file of `folder`.
std::vector<std::string> Violations(const Layers& layers, const std::string& folder,
                                    const std::string& name, const std::string& text) {
  std::vector<std::string> found;
  const Folder& here = layers.at(folder);
  const std::regex include(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"])re");
  std::istringstream lines(text);
  std::string line;
  std::smatch match;
  while (std::getline(lines, line)) {
    if (!std::regex_search(line, match, include)) continue;
    const std::string path = match[2];
    if (match[1] == "<") {
      const bool qt = std::regex_search(path, std::regex("^Q[A-Z]|^Qt"));
      if (qt && !here.qt) found.push_back(folder + "/" + name + " includes Qt: " + path);
      const bool system = std::regex_search(path, std::regex("^(sys/|unistd|windows|netinet)"));
      if (system && folder != "platform/qt") found.push_back(folder + "/" + name + ": " + path);
      continue;
    }
    const std::string target = fs::path(path).parent_path().generic_string();
    const bool hostDoor =
        target == "demohost" && (folder == "app/sim" || (folder == "app" && IsTest(name)));
    const bool testDoor = hostDoor || (IsTest(name) && target == "platform/headless");
    if (target == folder || testDoor || here.mayInclude.count(target) != 0) continue;
    found.push_back(folder + "/" + name + " includes " + path);
  }
  return found;
}

TEST(Layers, EveryIncludeFollowsTheTable) {
  const Layers layers = ReadLayers();
  ASSERT_GE(layers.size(), 13u);
  const fs::path src = fs::path(QUORVEL_SOURCE_DIR) / "src";
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(src)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    const std::string folder = fs::relative(entry.path().parent_path(), src).generic_string();
    ASSERT_TRUE(layers.count(folder)) << folder << " has no line in cmake/layers.txt";
    const auto found =
        Violations(layers, folder, entry.path().filename().string(), ReadAll(entry.path()));
    for (const std::string& violation : found) ADD_FAILURE() << violation;
    ++files;
  }
  EXPECT_GT(files, 60);
}

TEST(Layers, TheScanFindsWhatIsForbidden) {
  const Layers layers = ReadLayers();
  const auto count = [&](const std::string& folder, const std::string& text) {
    return Violations(layers, folder, "Foo.cpp", text).size();
  };
  EXPECT_EQ(count("link", "#include \"menus/frmSubMenu.h\"\n"), 1u);
  EXPECT_EQ(count("menus", "#include \"link/Records.h\"\n"), 0u);
  EXPECT_EQ(count("terminal", "#include <QWidget>\n"), 1u);
  EXPECT_EQ(count("platform/qt", "#include <QWidget>\n"), 0u);
  EXPECT_EQ(count("settings", "#include <unistd.h>\n"), 1u);
}

}  // namespace
