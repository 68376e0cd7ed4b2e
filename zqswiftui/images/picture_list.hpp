// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>

// Inside of images/ only.
namespace zq::detail {

// The view models of one kind by source, and by the size that they are decoded to. A source that
// is absent is a source like any other. Answers what a scan of the models in the order of their
// making would, which holds no source twice, at the cost of a hash look-up. Interface thread only.
template <class Source, class Model>
class PictureList {
 public:
  // The model of the source; a new one, and what is done with it at its beginning, where it is
  // not there yet.
  template <class Make>
  std::shared_ptr<Model> find(const std::optional<Source>& source, int maxSide, const Make& make) {
    requireInterfaceThread();
    const auto known = models_.find(source);
    if (known != models_.end()) {
      for (const Entry& entry : known->second) {
        if (entry.maxSide == maxSide) return entry.model;
      }
    }
    std::shared_ptr<Model> model = make();
    models_[source].push_back({maxSide, model});
    return model;
  }

  // Of all sizes.
  void forget(const Source& source) {
    requireInterfaceThread();
    models_.erase(source);
  }

 private:
  struct Entry {
    int maxSide;
    std::shared_ptr<Model> model;
  };
  // One that may throw, as far as the standard library knows, has its results kept beside the
  // keys, so that a look-up compares with few sources and hashes one.
  struct Hash {
    std::size_t operator()(const std::optional<Source>& source) const {
      return source ? std::hash<Source>()(*source) : 0;
    }
  };

  static void requireInterfaceThread() {
    ZQ_REQUIRE(Platform::current().mainQueue().isMainThread(),
               "Images: view models are looked up on the interface thread alone");
  }

  std::unordered_map<std::optional<Source>, std::vector<Entry>, Hash> models_;
};

}  // namespace zq::detail
