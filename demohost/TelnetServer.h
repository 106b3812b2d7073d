// The host's end of the telnet protocol (RFC 854, 855; options: RFC 857 echo, RFC 858 suppress go
// ahead, RFC 1091 terminal type, RFC 1073 window size).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quorvel::demohost {

class TelnetServer {
 public:
  /// What the host says first: asks for terminal type and window size, offers echo and SGA.
  std::string Offers() const;

  /// Takes one byte of the network; gives the data byte it completes, if it does.
  /// Answers to commands are kept for TakeAnswers.
  std::optional<char> Feed(char byte);
  std::string TakeAnswers();

  /// Asks the client to say when it has read all that was sent before (RFC 860). It answers even if
  /// it doesn't know the option, with a refusal.
  static std::string TimingMark();
  /// True once for each answer to that.
  bool TakeTimingMark() { return std::exchange(markSeen_, false); }

  /// Data for the network: the byte 255 doubled.
  static std::string Escape(std::string_view data);

  /// False once the client has refused to let the host echo.
  bool EchoAllowed() const { return echo_; }
  /// As the client told; empty before.
  const std::string& TerminalType() const { return terminalType_; }
  /// Rows and columns of the window; 24 by 80 until the client tells, kept in 5..200 and 20..250.
  int Rows() const { return rows_; }
  int Columns() const { return columns_; }

 private:
  enum class State { Data, Command, Option, SubOption, Sub, SubCommand };

  void Negotiate(int command, int option);
  void EndSub();

  State state_ = State::Data;
  int command_ = 0;
  int subOption_ = 0;
  std::string sub_;
  std::string answers_;
  bool echo_ = true;
  bool markSeen_ = false;
  bool askedType_ = false;
  bool askedSize_ = false;
  std::string terminalType_;
  int rows_ = 24;
  int columns_ = 80;
};

}  // namespace quorvel::demohost
