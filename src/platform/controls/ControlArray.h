#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/RuntimeError.h"
#include "platform/controls/Control.h"

namespace quorvel {

// A control array: sparse, its elements created at run time. Access to an element that was never
// created is RuntimeError 340.
template <class C>
class ControlArray {
 public:
  ControlArray(Container& parent, std::string name) : parent_(parent), name_(std::move(name)) {}

  C& operator()(int index) {
    const auto found = elements_.find(index);
    if (found == elements_.end()) throw RuntimeError(Failure::NoSuchElement);
    return *found->second;
  }
  bool Has(int index) const { return elements_.count(index) != 0; }
  int Count() const { return static_cast<int>(elements_.size()); }
  // Creates element `index` on `parent` (the array's own if none is given); the one that is there
  // already stays.
  C& Load(int index, Container* parent = nullptr) {
    auto& element = elements_[index];
    if (!element) element = std::make_unique<C>(parent ? *parent : parent_, name_, index);
    return *element;
  }
  void Unload(int index) { elements_.erase(index); }
  void Clear() { elements_.clear(); }

  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }

 private:
  Container& parent_;
  const std::string name_;
  std::map<int, std::unique_ptr<C>> elements_;
};

}  // namespace quorvel
