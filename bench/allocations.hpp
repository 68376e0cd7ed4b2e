// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

// Counts what a program allocates. To be included by one source of it alone, for it replaces
// the global operators.

namespace {

std::atomic<std::size_t> allocations{0};

}  // namespace

// Not inlined: the compiler would take malloc and delete for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t bytes) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* memory = std::malloc(bytes ? bytes : 1)) return memory;
  std::abort();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

// Counts what is allocated while it lives, as an average of the iterations.
class Allocations {
 public:
  explicit Allocations(benchmark::State& state) : state_(state) {}
  ~Allocations() {
    const auto made = static_cast<double>(allocations.load() - before_);
    state_.counters["allocations"] = benchmark::Counter(made, benchmark::Counter::kAvgIterations);
  }
  Allocations(const Allocations&) = delete;
  Allocations& operator=(const Allocations&) = delete;

 private:
  benchmark::State& state_;
  std::size_t before_ = allocations.load();
};

}  // namespace
