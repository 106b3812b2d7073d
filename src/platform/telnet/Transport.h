#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// What a connection tells. Calls come from the backend's event loop, never from inside Open, Write
// or Close, and never after Close.
class TransportListener {
 public:
  virtual void OnOpened() = 0;
  virtual void OnBytes(std::string_view bytes) = 0;
  virtual void OnClosed() = 0;                           // the far side ended it
  virtual void OnFailed(const std::string& reason) = 0;  // it could not be opened

 protected:
  ~TransportListener() = default;
};

// One stream connection of the network. The backend has the sockets.
class Transport {
 public:
  virtual ~Transport() = default;
  // Looks `host` up and connects, without blocking; OnOpened or OnFailed follows. What was left of
  // an earlier connection is given up, and reading is on again.
  virtual void Open(const std::string& host, std::uint16_t port, TransportListener& listener) = 0;
  // Sends all of `bytes`; nothing when the connection is not open.
  virtual void Write(std::string_view bytes) = 0;
  virtual void Close() = 0;
  // Stops or resumes reading, so that a host that floods meets the network's own back pressure.
  virtual void SetReading(bool reading) = 0;
};

}  // namespace quorvel
