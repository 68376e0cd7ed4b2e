// ZQSwiftUI, MIT licence; see LICENSE.
#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>
#include <zqswiftui/platform/toolkit/tree/text_cache.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

#include "allocations.hpp"

namespace {

class NoWindow final : public zq::HostDelegate {
 public:
  void frameRequested() override {}
};

constexpr int kLong = 10'000;

std::vector<std::string> names(int n) {
  std::vector<std::string> all;
  for (int i = 0; i < n; ++i) all.push_back("tag-" + std::to_string(i));
  return all;
}

void rowBuilder(benchmark::State& state) {
  std::vector<zq::Size> sizes;
  for (int i = 0; i < kLong; ++i) sizes.push_back({20.0 + i * 7 % 60, 17});
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(zq::flowRows(1000, sizes, 2));
  }
}
BENCHMARK(rowBuilder);

struct Counted : zq::ObservableObject {
  zq::Published<int> value{this, 0};
};

struct Observer {
  std::shared_ptr<Counted> object;
  zq::View body(zq::Context& context) const {
    return zq::Text(context.observe(object).value.get() % 2 ? "odd" : "even").padding(2);
  }
};

// One object changes, one component is evaluated and laid out.
void evaluateOneComponent(benchmark::State& state) {
  const zq::HeadlessPlatform platform;
  NoWindow window;
  const auto object = std::make_shared<Counted>();
  zq::ViewHost host(Observer{object}, window);
  host.setSize({200, 100});
  host.frame();
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) {
    object->value = object->value.get() + 1;
    host.frame();
  }
}
BENCHMARK(evaluateOneComponent);

// The change alone: from the assignment until the host knows.
void tellOneObserver(benchmark::State& state) {
  const zq::HeadlessPlatform platform;
  NoWindow window;
  const auto object = std::make_shared<Counted>();
  zq::ViewHost host(Observer{object}, window);
  host.frame();
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) object->value = 1;
}
BENCHMARK(tellOneObserver);

struct Stateful {
  std::shared_ptr<std::function<void(int)>> set;
  zq::View body(zq::Context& context) const {
    const auto value = context.state(0);
    *set = [value](int next) { value.set(next); };
    return zq::Text(*value % 2 ? "odd" : "even");
  }
};

void setAState(benchmark::State& state) {
  const zq::HeadlessPlatform platform;
  NoWindow window;
  const auto set = std::make_shared<std::function<void(int)>>();
  zq::ViewHost host(Stateful{set}, window);
  host.frame();
  const std::function<void(int)> write = *set;
  int next = 0;
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) write(++next);
}
BENCHMARK(setAState);

// A list that is another object with the same items: each is compared, none is made.
void compareEqualItems(benchmark::State& state) {
  const auto make = [](const std::vector<std::string>& texts) -> zq::View {
    return zq::ForEach(texts, std::identity{}, 0,
                       [](const std::string& text, int) { return zq::Text(text); });
  };
  const zq::View before = make(names(kLong)), now = make(names(kLong));
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(before == now);
}
BENCHMARK(compareEqualItems);

void textKnownAlready(benchmark::State& state) {
  const zq::HeadlessPlatform platform;
  zq::TextCache cache;
  const int font = cache.fontNumber(zq::Font::body());
  const Allocations counted(state);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(cache.measure("ext-tag-000042", font, 1e300, 0));
  }
}
BENCHMARK(textKnownAlready);

}  // namespace
