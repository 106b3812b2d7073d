#include "demohost/Frames.h"

#include "demohost/Marks.h"

namespace quorvel::demohost {

namespace {

template <class Fields>
std::string FrameOf(const Fields& fields) {
  std::string frame(1, kFrameMark);
  bool first = true;
  for (const auto& field : fields) {
    if (!first) frame += kFs;
    first = false;
    for (const char c : field) frame += c == kFrameMark || c == kFs ? '?' : c;
  }
  return frame + kFrameMark;
}

}  // namespace

std::string Frame(std::initializer_list<std::string_view> fields) {
  return FrameOf(fields);
}

std::string Frame(const std::vector<std::string>& fields) {
  return FrameOf(fields);
}

std::string ErrorFrame(std::string_view text) {
  return Frame({"~ERRORMSG~", text});
}

}  // namespace quorvel::demohost
