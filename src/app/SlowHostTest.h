#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>

#include "app/EntryTest.h"

namespace quorvel {

// An entry screen at a host that takes its time: requests of some kinds are answered only when the
// test says so, and what the test does meanwhile happens inside the client's waits.
class SlowHostTest : public EntryTest {
 protected:
  SlowHostTest() {
    backend.onIdle = [this, serve = backend.onIdle] {
      if (serve()) return true;
      if (acts_.empty() || !desktop().IsHandling()) return false;
      const auto act = std::move(acts_.front());
      acts_.pop_front();
      act();
      return true;
    };
  }

  // Requests that begin so (verb and file, or for hooks "HOOK name") get no answer by themselves.
  void HoldBack(const std::string& begins) {
    onRequest = [begins, this](const Texts& f) -> std::optional<std::string> {
      const std::string word = f[0] == "CASELOGIC" ? "HOOK " + f[4] : f[0] + " " + f[1];
      if (!word.starts_with(begins)) return std::nullopt;
      held_.push_back(f);
      return "";
    };
  }
  // What happens one after the other while the client waits and nothing else does.
  void Meanwhile(std::function<void()> act) { acts_.push_back(std::move(act)); }
  // The host answers the oldest request that it has held back: by this, or as it usually would.
  void MeanwhileAnswer(const std::string& reply = {}) {
    Meanwhile([this, reply] { AnswerHeld(reply); });
  }
  void AnswerHeld(const std::string& reply = {}) {
    ASSERT_FALSE(held_.empty());
    const Texts request = std::move(held_.front());
    held_.pop_front();
    Line().Deliver(reply.empty() ? UsualAnswer(request) : reply);
  }
  // The link is lost; the next session is made, up to its login.
  void MeanwhileLoseLink() {
    Meanwhile([this] { Line().HangUp(); });
  }
  void MeanwhileReconnect() {
    Meanwhile([] { desktop().Post(EventKind::User, [] { StartSession(); }); });
    Meanwhile([this] { Line().Accept(); });
  }
  // What is left to happen does, with no wait around it.
  void PlayOn() {
    while (!acts_.empty()) {
      const auto act = std::move(acts_.front());
      acts_.pop_front();
      Do(act);
    }
  }
  // All has happened, and nothing was waited for that did not come.
  void ExpectDone() {
    EXPECT_TRUE(acts_.empty());
    EXPECT_TRUE(held_.empty());
    EXPECT_FALSE(backend.stalled);
    EXPECT_FALSE(desktop().HasKeptInput());
  }
  void ForgetHeld() { held_.clear(); }
  std::size_t HeldCount() const { return held_.size(); }

 private:
  std::deque<std::function<void()>> acts_;
  std::deque<Texts> held_;
};

}  // namespace quorvel
