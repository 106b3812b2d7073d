#pragma once

#include <stdexcept>
#include <string>

namespace quorvel {

// Numbers of the run-time failures, as users and administrators know them from message boxes.
enum class Failure : int {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  FileNotFound = 53,
  DiskFull = 61,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  NoSuchElement = 340,
  ElementExists = 360,
  InvalidProperty = 380,
  PrinterError = 482,
  Cancel = 32755,
};

// The standard text of a failure, for example "Type mismatch" for 13.
const char* FailureText(Failure failure);

// A run-time failure. It ends where the procedure says so, or at the edge of the event that was
// being served, in one message box; the session goes on.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(Failure failure) : RuntimeError(failure, FailureText(failure)) {}
  // `text` replaces the standard text, where naming the culprit helps the user.
  RuntimeError(Failure failure, const std::string& text)
      : std::runtime_error(text), failure_(failure) {}

  Failure failure() const { return failure_; }
  int number() const { return static_cast<int>(failure_); }

 private:
  Failure failure_;
};

// Runs a step whose failure is passed over; whether it succeeded.
template <class Step>
bool Try(const Step& step) {
  try {
    step();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace quorvel
