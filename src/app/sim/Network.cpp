#include "app/sim/Network.h"

#include <algorithm>
#include <utility>

#include "app/sim/Random.h"

namespace quorvel::sim {
namespace {

constexpr Milliseconds kToConnect = 40;
constexpr Milliseconds kOnTheWay = 1;
constexpr int kCutOfHundred = 30;
constexpr std::size_t kLongestUncut = 4096;

}  // namespace

// The client's end.
class SimTransport : public Transport {
 public:
  explicit SimTransport(Network& network) : network_(network) {}
  ~SimTransport() override { SimTransport::Close(); }
  SimTransport(const SimTransport&) = delete;
  SimTransport& operator=(const SimTransport&) = delete;

  void Open(const std::string& host, std::uint16_t, TransportListener& listener) override {
    Close();
    line_ = std::make_shared<Network::Connection>();
    line_->listener = &listener;
    line_->name = host;
    network_.Open(line_);
  }
  void Write(std::string_view bytes) override {
    if (line_ && line_->open) network_.SendUp(line_, std::string(bytes));
  }
  void SetReading(bool reading) override {
    if (!line_ || line_->reading == reading) return;
    line_->reading = reading;
    if (reading) network_.Resume(line_);
  }
  void Close() override {
    if (line_) network_.CloseByClient(std::exchange(line_, nullptr));
  }

 private:
  Network& network_;
  Network::Line line_;
};

std::unique_ptr<Transport> Network::MakeTransport() {
  return std::make_unique<SimTransport>(*this);
}

const demohost::HostSession* Network::Session() const {
  return line_ && line_->open && line_->host ? &line_->host->Session() : nullptr;
}

// --- opening and closing

void Network::Open(const Line& line) {
  agenda_.In(kToConnect, Track::Wire, [this, line] {
    if (!line->listener) return;
    if (!std::exchange(refuseNext_, false)) return Accept(line);
    watch_.OnRefused();
    line->listener->OnFailed("refused");
  });
}

void Network::Accept(const Line& line) {
  line_ = line;
  line->open = true;
  line->host = std::make_unique<HostEnd>(
      host_, ++port_, story_,
      [this](const std::string& text, int port) { watch_.OnRequest(text, port); });
  watch_.OnAccepted(line->name);
  line->listener->OnOpened();
  line->host->Start();
  SendAnswers(line);
}

void Network::CloseByClient(const Line& line) {
  line->listener = nullptr;
  if (!std::exchange(line->open, false)) return;
  line->host.reset();
  watch_.OnClosedByClient();
}

void Network::End(const Line& line, bool lost) {
  if (!std::exchange(line->open, false)) return;
  line->host.reset();
  leftDown_.reset();
  leftUp_.reset();
  lost ? watch_.OnLost() : watch_.OnHungUp();
  if (line->listener) line->listener->OnClosed();
}

// --- from the client

void Network::SendUp(const Line& line, std::string bytes) {
  watch_.OnSent(bytes);
  line->lastUp = std::max(line->lastUp, agenda_.Now() + kOnTheWay);
  agenda_.At(line->lastUp, Track::Wire,
             [this, line, bytes = std::move(bytes)] { ArriveUp(line, bytes); });
}

void Network::ArriveUp(const Line& line, std::string bytes) {
  if (!line->open) return;
  const bool lost = leftUp_ && bytes.size() >= *leftUp_;
  if (lost) bytes.resize(*leftUp_);
  if (leftUp_) *leftUp_ -= bytes.size();
  line->host->Receive(bytes);
  if (lost) return End(line, true);
  SendAnswers(line);
}

// --- from the host

Milliseconds Network::NextDelay() {
  Random random((story_.seed << 20U) + ++delays_);
  const Milliseconds typical = story_.setting.answerDelay;
  if (random.Chance(70)) return typical;
  return random.Between(0, static_cast<int>(2 * typical) + 20);
}

void Network::SendAnswers(const Line& line) {
  if (!line->host) return;
  const std::vector<std::string> writes = line->host->TakeWrites();
  if (!writes.empty()) {
    line->lastDown = std::max(line->lastDown, agenda_.Now() + NextDelay());
    for (const std::string& write : writes) SendDown(line, write);
  }
  if (line->host->HasEnded()) {
    agenda_.At(++line->lastDown, Track::Wire, [this, line] { End(line, false); });
  }
}

// A write arrives in one read, or cut anywhere. The prompts of the login alone stay whole: a login
// by itself looks for them in one read.
void Network::SendDown(const Line& line, const std::string& write) {
  Random random((story_.seed << 20U) + 7 * ++delays_);
  const bool prompts = line->host && line->host->Session().Doing() == "login";
  std::string rest = write;
  while (!prompts && rest.size() > 1 &&
         (rest.size() > kLongestUncut || random.Chance(kCutOfHundred))) {
    const std::size_t size = 1 + random.Below(std::min(rest.size() - 1, kLongestUncut));
    ArriveDown(line, rest.substr(0, size));
    rest.erase(0, size);
    line->lastDown += random.Between(0, 5);
  }
  ArriveDown(line, rest);
}

void Network::ArriveDown(const Line& line, std::string bytes) {
  line->lastDown = std::max(line->lastDown, agenda_.Now()) + kOnTheWay;
  agenda_.At(line->lastDown, Track::Wire, [this, line, bytes = std::move(bytes)] {
    if (!line->open) return;
    if (line->reading && line->held.empty()) return Deliver(line, bytes);
    line->held.push_back(bytes);
  });
}

void Network::Deliver(const Line& line, std::string_view bytes) {
  const bool lost = leftDown_ && bytes.size() >= *leftDown_;
  if (lost) bytes = bytes.substr(0, *leftDown_);
  if (leftDown_) *leftDown_ -= bytes.size();
  if (!bytes.empty() && line->listener) {
    watch_.OnDelivered(bytes);
    line->listener->OnBytes(bytes);
  }
  if (lost) End(line, true);
}

void Network::Resume(const Line& line) {
  agenda_.In(0, Track::Wire, [this, line] {
    while (line->open && line->reading && !line->held.empty()) {
      const std::string bytes = std::move(line->held.front());
      line->held.pop_front();
      Deliver(line, bytes);
    }
  });
}

// --- faults

void Network::Inject(const std::string& frame) {
  if (line_ && line_->open) SendDown(line_, frame);
}

void Network::LoseNow() {
  if (line_) End(Line(line_), true);
}

void Network::LoseBehindDown(std::size_t bytes) {
  if (line_ && line_->open) leftDown_ = bytes;
}

void Network::LoseBehindUp(std::size_t bytes) {
  if (line_ && line_->open) leftUp_ = bytes;
}

void Network::NoMoreFaults() {
  refuseNext_ = false;
  leftDown_.reset();
  leftUp_.reset();
}

}  // namespace quorvel::sim
