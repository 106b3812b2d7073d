#include "demohost/Locks.h"

namespace quorvel::demohost {

Locks::Outcome Locks::Take(int session, std::string_view file, std::string_view key) {
  const Place place{file, key};
  if (const auto held = locks_.find(place); held != locks_.end())
    return held->second == session ? Outcome::Already : Outcome::Refused;
  auto& count = counts_[session];
  if (count == kPerSession) return Outcome::Refused;
  ++count;
  locks_[place] = session;
  return Outcome::Taken;
}

void Locks::Release(int session, std::string_view file, std::string_view key) {
  const auto held = locks_.find(Place{file, key});
  if (held == locks_.end() || held->second != session) return;
  locks_.erase(held);
  --counts_[session];
}

void Locks::ReleaseAll(int session) {
  std::erase_if(locks_, [session](const auto& lock) { return lock.second == session; });
  counts_.erase(session);
}

std::optional<int> Locks::Holder(std::string_view file, std::string_view key) const {
  const auto held = locks_.find(Place{file, key});
  if (held == locks_.end()) return std::nullopt;
  return held->second;
}

bool Locks::HeldByOther(int session, std::string_view file, std::string_view key) const {
  return Holder(file, key).value_or(session) != session;
}

std::vector<Locks::Lock> Locks::List() const {
  std::vector<Lock> list;
  for (const auto& [place, session] : locks_) list.push_back({place.first, place.second, session});
  return list;
}

bool RecordLock::Take(Locks& locks, int session, std::string_view file, std::string_view key) {
  Free();
  const auto outcome = locks.Take(session, file, key);
  if (outcome != Locks::Outcome::Taken) return outcome == Locks::Outcome::Already;
  locks_ = &locks;
  session_ = session;
  file_ = file;
  key_ = key;
  return true;
}

void RecordLock::Free() {
  if (locks_ != nullptr) locks_->Release(session_, file_, key_);
  locks_ = nullptr;
}

}  // namespace quorvel::demohost
