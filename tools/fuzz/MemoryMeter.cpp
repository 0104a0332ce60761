#include "MemoryMeter.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> held = 0;
std::atomic<std::size_t> most = 0;

void* take(std::size_t size) noexcept {
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (!memory) return nullptr;
  const std::size_t usable = ::malloc_usable_size(memory);
  const std::size_t now = held.fetch_add(usable) + usable;
  if (now > most) most = now;
  return memory;
}

void* takeOrThrow(std::size_t size) {
  void* const memory = take(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

void giveBack(void* memory) noexcept {
  if (!memory) return;
  held.fetch_sub(::malloc_usable_size(memory));
  std::free(memory);
}

}  // namespace

// Every form stands here: a sanitizer brings forms of its own, which don't mix with these.
void* operator new(std::size_t size) {
  return takeOrThrow(size);
}
void* operator new[](std::size_t size) {
  return takeOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return take(size);
}
void operator delete(void* memory) noexcept {
  giveBack(memory);
}
void operator delete[](void* memory) noexcept {
  giveBack(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  giveBack(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  giveBack(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  giveBack(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  giveBack(memory);
}

namespace tarvel::fuzz {

MemoryMeter::MemoryMeter() : start_(held) {
  most = start_;
}

std::size_t MemoryMeter::peak() const {
  return std::max<std::size_t>(most, start_) - start_;
}

}  // namespace tarvel::fuzz
