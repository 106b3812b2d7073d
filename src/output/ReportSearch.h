#pragma once

#include <cstddef>
#include <string>

#include "platform/controls/TextSearch.h"

namespace quorvel {

class ReportView;

// The search of the report viewer: marks one place after another, all of them tinted, and counts.
class ReportSearch {
 public:
  explicit ReportSearch(ReportView& view) : view_(view) {}

  // Seeks another text, from the line on which the keyboard is; empty for none.
  void Seek(const std::string& text);
  // The place behind (ahead of) the marked one, going round.
  void Next();
  void Previous();
  // Forgets all: the lines are others now.
  void Reset();

  std::size_t Count() const { return count_; }
  std::size_t Number() const { return number_; }  // of the marked place, from 1; 0 for none

 private:
  void MarkAt(std::size_t at);

  ReportView& view_;
  TextSearch search_{""};
  std::size_t count_ = 0;
  std::size_t number_ = 0;
  std::size_t at_ = 0;  // the marked place in the text of all lines
};

}  // namespace quorvel
