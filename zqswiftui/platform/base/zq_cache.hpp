// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <any>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace zq {

// Values of any type by key, kept until the cache goes. Any thread.
class ZQCache {
 public:
  // The value kept under the key; where there is none, what the closure, run at once, answers
  // as a std::optional, which is kept when it is present. Absent too where the kept value has
  // another type.
  //   auto image = cache.getCachedOrExecute<ZQImage>(path, [&] { return decode(path); });
  template <typename T, typename Closure>
  std::optional<T> getCachedOrExecute(const std::string& key, Closure closure) {
    {
      const std::lock_guard lock(mutex_);
      const auto found = values_.find(key);
      if (found != values_.end()) {
        const T* kept = std::any_cast<T>(&found->second);
        return kept != nullptr ? std::optional<T>(*kept) : std::nullopt;
      }
    }
    // Without the lock: the closure may be slow, and may ask the cache itself.
    std::optional<T> made = closure();
    if (!made) return std::nullopt;
    const std::lock_guard lock(mutex_);
    values_.emplace(key, *made);
    return made;
  }

 private:
  std::mutex mutex_;
  std::unordered_map<std::string, std::any> values_;
};

}  // namespace zq
