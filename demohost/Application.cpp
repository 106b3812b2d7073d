#include "demohost/Application.h"

#include <utility>

#include "demohost/HostSession.h"
#include "demohost/Seed.h"

namespace quorvel::demohost {

Application::Application(const std::string& dataFile, Clock clock, bool reset)
    : store_(dataFile), clock_(std::move(clock)) {
  if (!reset && !store_.Empty()) return;
  Transaction all(store_);
  store_.Clear();
  Seed(store_, DayNumber(Now()));
  all.Commit();
}

std::vector<Application::Who> Application::WhoIsOn() const {
  std::vector<Who> list;
  for (const auto* session : sessions_) {
    if (!session->Ended()) list.push_back({session->Port(), session->User(), session->Doing()});
  }
  return list;
}

std::string Application::NameOf(int port) const {
  for (const auto* session : sessions_) {
    if (session->Port() == port) return session->Where();
  }
  return "port " + std::to_string(port);
}

int Application::Broadcast(const HostSession& from, std::string_view text) {
  int reached = 0;
  for (auto* session : sessions_) {
    if (session != &from && session->Notify("Message from " + from.Where(), text)) ++reached;
  }
  return reached;
}

}  // namespace quorvel::demohost
