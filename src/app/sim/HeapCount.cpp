// Counts the blocks of memory that are in use. Only the program has this, for it takes the place of
// the library's operators.
#include "app/sim/HeapCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t>& Blocks() {
  static std::atomic<std::int64_t> blocks{0};
  return blocks;
}

void* Take(std::size_t size) {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (!block) throw std::bad_alloc();
  Blocks().fetch_add(1, std::memory_order_relaxed);
  return block;
}

void Give(void* block) noexcept {
  if (block) Blocks().fetch_sub(1, std::memory_order_relaxed);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
  return Take(size);
}
void* operator new[](std::size_t size) {
  return Take(size);
}
void operator delete(void* block) noexcept {
  Give(block);
}
void operator delete[](void* block) noexcept {
  Give(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Give(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Give(block);
}

namespace quorvel::sim {

std::int64_t BlocksInUse() {
  return Blocks().load(std::memory_order_relaxed);
}

}  // namespace quorvel::sim
