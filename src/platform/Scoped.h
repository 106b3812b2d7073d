#pragma once

namespace quorvel {

// Marks left while something runs, however it ends.

// `flag` is true while this lives.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag) { flag_ = true; }
  ~ScopedFlag() { flag_ = false; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

 private:
  bool& flag_;
};

// `count` is one higher while this lives.
class ScopedCount {
 public:
  explicit ScopedCount(int& count) : count_(count) { ++count_; }
  ~ScopedCount() { --count_; }
  ScopedCount(const ScopedCount&) = delete;
  ScopedCount& operator=(const ScopedCount&) = delete;

 private:
  int& count_;
};

}  // namespace quorvel
