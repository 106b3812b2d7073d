#include "app/soak/Soak.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "app/tour/Sights.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

constexpr double kLargestGrowth = 0.05;
// A quick operator: the windows are looked at every 20 ms, and must be quiet for three looks.
constexpr Pace kPace{20, 3, 60'000};

std::vector<const Story*> Pointers(const std::vector<Story>& stories) {
  std::vector<const Story*> all;
  all.reserve(stories.size());
  for (const Story& story : stories) all.push_back(&story);
  return all;
}

// A figure in its column; a dash where it has not been measured.
void PrintFigure(const Figure& figure) {
  if (figure.value) {
    std::printf("  %12lld", *figure.value);
  } else {
    std::printf("  %12s", "-");
  }
}

}  // namespace

Soak::Soak(const Workplace& place, const SoakOptions& options)
    : place_(place),
      options_(options),
      work_(WorkStories(place)),
      reconnects_(ReconnectStories(place)),
      player_(kPace),
      random_(options.seed),
      nextLine_(options.interval) {
  all_.stories = Pointers(work_);
  fresh_.stories = Pointers(reconnects_);
  all_.stories.insert(all_.stories.end(), fresh_.stories.begin(), fresh_.stories.end());
  all_.next = all_.stories.size();
  fresh_.next = fresh_.stories.size();
  player_.onPlayed = [this] { Next(); };
  player_.onStuck = [this](std::size_t number, const TourStep&) { TellStuck(number); };
}

void Soak::Start() {
  std::printf("%6s  %7s", "second", "stories");
  for (const Figure& figure : TakeFigures()) std::printf("  %12s", figure.name);
  std::printf("\n");
  std::fflush(stdout);
  clock_.start();
  player_.Play({{"", MainMenuShows, nullptr}});
}

void Soak::Next() {
  if (story_) ++told_;
  const bool isDue = Seconds() >= nextLine_;
  const bool isFresh =
      story_ && story_ >= reconnects_.data() && story_ < reconnects_.data() + reconnects_.size();
  if (!isDue) return Play(Draw(all_));
  if (!isFresh) return Play(Draw(fresh_));
  Measure();
}

void Soak::Play(const Story& story) {
  story_ = &story;
  if (options_.verbose) std::fprintf(stderr, "%lld %s\n", Seconds(), story.name.c_str());
  player_.Play(story.steps);
}

// Behind the last story the deck is shuffled: by hand, because what std::shuffle makes of a seed is
// not laid down.
const Story& Soak::Draw(Deck& deck) {
  if (deck.next == deck.stories.size()) {
    for (std::size_t left = deck.stories.size(); left > 1; --left)
      std::swap(deck.stories[left - 1], deck.stories[random_() % left]);
    deck.next = 0;
  }
  const Story& story = *deck.stories[deck.next++];
  if (deck.next == deck.stories.size()) ++deck.rounds;
  return story;
}

std::vector<Figure> Soak::TakeFigures() const {
  std::vector<Figure> figures = ProcessFigures();
  figures.push_back({"widgets", QApplication::allWidgets().size()});
  figures.push_back({"top windows", QApplication::topLevelWidgets().size()});
  figures.push_back({"forms", static_cast<long long>(desktop().LoadedWindows().size())});
  return figures;
}

// What is kept for good, such as fonts and pictures of characters, is there after a round of all
// stories; from there on to the end there is another round at least.
void Soak::Measure() {
  const Line line{Seconds(), TakeFigures()};
  std::printf("%6lld  %7d", line.second, told_);
  for (const Figure& figure : line.figures) PrintFigure(figure);
  std::printf("\n");
  std::fflush(stdout);
  nextLine_ = line.second + options_.interval;
  if (!first_) {
    if (line.second >= options_.warmUp && all_.rounds > 0) {
      first_ = line;
      roundsAtFirst_ = all_.rounds;
    }
  } else if (line.second >= options_.seconds && all_.rounds > roundsAtFirst_) {
    return End(PrintVerdict(line) ? 0 : 1);
  }
  Play(Draw(all_));
}

bool Soak::PrintVerdict(const Line& last) const {
  std::printf("\nFrom second %lld to second %lld, %d stories, %d rounds of all:\n", first_->second,
              last.second, told_, all_.rounds);
  bool good = true;
  for (std::size_t i = 0; i < last.figures.size(); ++i) {
    const Figure& before = first_->figures[i];
    const Figure& after = last.figures[i];
    if (!before.value || !after.value) {
      std::printf("%-14s not measured\n", after.name);
      continue;
    }
    const auto from = static_cast<double>(*before.value);
    const double growth = (static_cast<double>(*after.value) - from) / std::max(from, 1.0);
    const bool grown = growth > kLargestGrowth;
    std::printf("%-14s %12lld %12lld  %+6.1f %%%s\n", after.name, *before.value, *after.value,
                100 * growth, grown ? "  TOO MUCH" : "");
    good = good && !grown;
  }
  std::fflush(stdout);
  return good;
}

void Soak::TellStuck(std::size_t number) {
  std::fprintf(stderr, "soak: step %zu of \"%s\" did not get ready after %lld s (seed %u)\n%s",
               number, story_ ? story_->name.c_str() : "start", Seconds(), options_.seed,
               WhatShows().c_str());
  if (!options_.picture.empty()) place_.backend.SaveScreenshot(options_.picture);
  End(1);
}

void Soak::End(int status) {
  status_ = status;
  // As an event: it may be called from the loop of a dialog.
  desktop().Handle(EventKind::Program, [] { desktop().EndProcess(); });
}

}  // namespace quorvel
