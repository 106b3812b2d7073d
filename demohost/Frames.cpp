#include "demohost/Frames.h"

#include "demohost/Marks.h"

namespace quorvel::demohost {

std::string Frame(std::initializer_list<std::string_view> fields) {
  std::string frame(1, kFrameMark);
  for (const auto& field : fields) {
    if (&field != fields.begin()) frame += kFs;
    for (const char c : field) frame += c == kFrameMark || c == kFs ? '?' : c;
  }
  frame += kFrameMark;
  return frame;
}

std::string ErrorFrame(std::string_view text) {
  return Frame({"~ERRORMSG~", text});
}

}  // namespace quorvel::demohost
