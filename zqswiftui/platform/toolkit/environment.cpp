// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/environment.hpp>

namespace zq {

bool Environment::Custom::operator==(const Custom& o) const {
  return key == o.key && (value == o.value || (same && same(value.get(), o.value.get())));
}

bool Environment::operator==(const Environment&) const = default;

const void* Environment::find(const void* key) const {
  for (const Custom& c : custom) {
    if (c.key == key) return c.value.get();
  }
  return nullptr;
}

void Environment::put(Custom entry) {
  for (Custom& c : custom) {
    if (c.key == entry.key) return void(c = std::move(entry));
  }
  custom.push_back(std::move(entry));
}

}  // namespace zq
