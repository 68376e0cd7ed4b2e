// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

// Inside of images/ only.
namespace zq::detail {

// Who asks for one source until it has been read: one of them reads it for all. Each has a place of
// its own in the order, and the first whose turn comes is the one. Any thread.
template <class Request>
class SharedReads {
 public:
  // It belongs to the work that waits for its turn: where that is dropped, so is what was asked.
  class Source {
   private:
    friend class SharedReads;
    explicit Source(std::string name) : key(std::move(name)) {}
    const std::string key;
    std::vector<Request> requests;
    bool begun = false;
  };

  std::shared_ptr<Source> join(const std::string& key, Request request) {
    const std::lock_guard lock(mutex_);
    std::weak_ptr<Source>& known = sources_[key];
    auto source = known.lock();
    if (!source) known = source = std::shared_ptr<Source>(new Source(key));
    source->requests.push_back(std::move(request));
    return source;
  }

  // Whether the caller is to read it; false where another does, or has.
  bool begin(Source& source) {
    const std::lock_guard lock(mutex_);
    return !std::exchange(source.begun, true);
  }

  // It has been read: all who asked meanwhile. Who asks from now on asks anew.
  std::vector<Request> end(const std::shared_ptr<Source>& source) {
    const std::lock_guard lock(mutex_);
    const auto known = sources_.find(source->key);
    if (known != sources_.end() && known->second.lock() == source) sources_.erase(known);
    return std::exchange(source->requests, {});
  }

  // Who asks from now on does not join those who asked before.
  void forget(const std::string& key) {
    const std::lock_guard lock(mutex_);
    sources_.erase(key);
  }

 private:
  std::mutex mutex_;
  std::unordered_map<std::string, std::weak_ptr<Source>> sources_;
};

}  // namespace zq::detail
