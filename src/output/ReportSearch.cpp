#include "output/ReportSearch.h"

#include "platform/controls/ReportView.h"

namespace quorvel {

void ReportSearch::Seek(const std::string& text) {
  search_ = TextSearch(text);
  count_ = number_ = 0;
  view_.Tinted = text;
  view_.Marked = ReportView::Mark{};
  const ReportLines& lines = view_.Lines();
  if (search_.IsEmpty() || lines.Count() == 0) return;
  count_ = search_.Count(lines.Text());
  if (count_ == 0) return;
  const std::size_t start = lines.StartOf(view_.Current());
  const std::size_t ahead = search_.Count(lines.Text().substr(0, start));
  const std::size_t found = search_.Find(lines.Text(), start);
  number_ = found == TextSearch::kNone ? 1 : ahead + 1;
  MarkAt(found == TextSearch::kNone ? search_.Find(lines.Text()) : found);
}

void ReportSearch::Next() {
  if (count_ == 0) return;
  const std::string_view text = view_.Lines().Text();
  const std::size_t found = search_.Find(text, at_ + search_.Length());
  number_ = found == TextSearch::kNone ? 1 : number_ + 1;
  MarkAt(found == TextSearch::kNone ? search_.Find(text) : found);
}

void ReportSearch::Previous() {
  if (count_ == 0) return;
  const std::string_view text = view_.Lines().Text();
  const std::size_t found = search_.FindLast(text, at_);
  number_ = found == TextSearch::kNone ? count_ : number_ - 1;
  MarkAt(found == TextSearch::kNone ? search_.FindLast(text, text.size()) : found);
}

void ReportSearch::Reset() {
  search_ = TextSearch("");
  count_ = number_ = 0;
  view_.Tinted = std::string();
  view_.Marked = ReportView::Mark{};
}

void ReportSearch::MarkAt(std::size_t at) {
  at_ = at;
  const std::size_t line = view_.Lines().LineAt(at);
  view_.MoveTo(line);
  view_.Marked = ReportView::Mark{line, at - view_.Lines().StartOf(line), search_.Length()};
}

}  // namespace quorvel
