#include "demohost/Pager.h"

#include <algorithm>
#include <utility>

#include "demohost/Vt.h"

namespace quorvel::demohost {
namespace {

constexpr int kFixedRows = 4;  // title, headings, a free row, the question

class ListingProgram final : public Program {
 public:
  explicit ListingProgram(std::function<Listing(Console&)> fill) : fill_(std::move(fill)) {}

  void OnStart(Console& console) override {
    auto listing = fill_(console);
    pager_.Start(console, std::move(listing.title), std::move(listing.headings),
                 std::move(listing.body));
  }
  void OnLine(Console& console, const std::string& line) override {
    pager_.OnLine(console, line);
    if (pager_.Done()) console.Finish();
  }

 private:
  std::function<Listing(Console&)> fill_;
  Pager pager_;
};

}  // namespace

void Pager::Start(Console& console, std::string title, std::string headings,
                  std::vector<std::string> body) {
  title_ = std::move(title);
  headings_ = std::move(headings);
  body_ = std::move(body);
  next_ = 0;
  page_ = 0;
  done_ = false;
  ShowPage(console);
}

void Pager::OnLine(Console& console, std::string_view line) {
  if (line == "." || next_ == body_.size()) {
    done_ = true;
    console.Print(vt::kClear);
    return;
  }
  ShowPage(console);
}

void Pager::ShowPage(Console& console) {
  console.Print(vt::kClear);
  console.PrintLine(vt::In(vt::kBold, title_) + "   page " + std::to_string(++page_));
  console.PrintLine(vt::In(vt::kReverse, headings_));
  const auto room = static_cast<std::size_t>(std::max(1, console.Rows() - kFixedRows));
  const auto end = std::min(body_.size(), next_ + room);
  while (next_ < end) console.PrintLine(body_[next_++]);
  console.PrintLine();
  console.Print(next_ == body_.size() ? "End of the listing. Enter goes on. "
                                      : "Enter for the next page, . to end. ");
}

std::unique_ptr<Program> MakeListing(std::function<Listing(Console&)> fill) {
  return std::make_unique<ListingProgram>(std::move(fill));
}

}  // namespace quorvel::demohost
