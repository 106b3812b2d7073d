#include "app/sim/Workplace.h"

#include <fstream>
#include <random>
#include <vector>

#include "demohost/Record.h"
#include "demohost/Screens.h"

namespace quorvel::sim {
namespace {

namespace fs = std::filesystem;

demohost::DateTime FixedTime() {
  return {2026, 11, 22, 14, 3, 9};
}

fs::path MakeFolder() {
  // Processes run side by side. The name is in nothing that a story depends on.
  std::random_device random;
  const fs::path folder = fs::temp_directory_path() / ("quorvel-sim-" + std::to_string(random()) +
                                                       "-" + std::to_string(random()));
  fs::create_directories(folder);
  return folder;
}

void MarkRecords(demohost::Store& store, const std::string& file) {
  std::vector<std::pair<std::string, std::string>> records;
  store.ForEach(file, [&records](const std::string& key, const std::string& record) {
    records.emplace_back(key, record);
    return true;
  });
  for (auto& [key, record] : records) {
    demohost::SetAttribute(record, kIdentity, key);
    store.Write(file, key, record);
  }
}

std::string ConfigurationOf(const Setting& setting) {
  std::string text = "[TELNET]\r\nHostName=host\r\nQuickExit=";
  text += setting.quickExit ? '1' : '0';
  text += setting.cutAtFrames ? "\r\nCutAtFrames=1" : "\r\nCutAtFrames=0";
  text += setting.forceOff ? "\r\nForceOff=1" : "\r\nForceOff=0";
  text += "\r\n[LOGIN]\r\n";
  if (setting.automaticLogin) text += "UserId=demo\r\nPwd=demo\r\n";
  if (setting.badSendKeys) text += "SendKeys=a^[256]\r\n";
  text += "[BUTTONS]\r\nLabel0=Menu\r\nCommand0=^[13]\r\n";
  return text;
}

std::string OtherConfiguration() {
  const std::string user(kOtherUser);
  return "[TELNET]\r\nHostName=" + std::string(kOtherHost) + "\r\n[LOGIN]\r\nUserId=" + user +
         "\r\nPwd=" + user + "\r\n";
}

}  // namespace

Workplace::Workplace()
    : folder_(MakeFolder()), host_(":memory:", FixedTime), pristine_(":memory:") {
  host_.SetPictureFile("picture.bmp");
  demohost::Transaction all(host_.Data());
  for (const demohost::Screen& screen : demohost::Screens()) MarkRecords(host_.Data(), screen.file);
  host_.Data().SetPassword(kOtherUser, kOtherUser);
  all.Commit();
  pristine_.CopyFrom(host_.Data());
  // What is named without a folder lands in here.
  fs::current_path(folder_);
}

Workplace::~Workplace() {
  std::error_code ignored;
  fs::current_path(fs::temp_directory_path(), ignored);
  fs::remove_all(folder_, ignored);
}

void Workplace::Reset(const Setting& setting) {
  host_.Data().CopyFrom(pristine_);
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry, ignored);
  std::ofstream(Configuration(), std::ios::binary) << ConfigurationOf(setting);
  std::ofstream(folder_ / kOtherConfiguration, std::ios::binary) << OtherConfiguration();
}

}  // namespace quorvel::sim
