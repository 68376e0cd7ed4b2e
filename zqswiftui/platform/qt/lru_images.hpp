// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QImage>
#include <cstddef>
#include <list>
#include <unordered_map>
#include <utility>

namespace zq::qt {

// Pictures by key, up to a number of bytes; those not used for longest go first.
template <class Key, class Hash>
class LruImages {
 public:
  explicit LruImages(std::size_t capacityInBytes) : capacity_(capacityInBytes) {}

  // The picture of the key, drawn by `make()` where it is not here. One that would push out
  // most others is not kept.
  QImage get(const Key& key, const auto& make) {
    if (QImage kept = find(key); !kept.isNull()) return kept;
    QImage made = make();
    keep(key, made);
    return made;
  }

  // The kept one; null where there is none.
  QImage find(const Key& key) {
    const auto found = places_.find(key);
    if (found == places_.end()) return {};
    entries_.splice(entries_.begin(), entries_, found->second);
    return found->second->second;
  }

  bool wouldKeep(std::size_t bytes) const { return bytes <= capacity_ / 4; }

  void keep(const Key& key, const QImage& made) {
    if (made.isNull() || !wouldKeep(sizeOf(made)) || places_.contains(key)) return;
    bytes_ += sizeOf(made);
    entries_.emplace_front(key, made);
    places_.emplace(key, entries_.begin());
    while (bytes_ > capacity_) {
      bytes_ -= sizeOf(entries_.back().second);
      places_.erase(entries_.back().first);
      entries_.pop_back();
    }
  }

  std::size_t bytes() const { return bytes_; }

 private:
  static std::size_t sizeOf(const QImage& image) {
    return static_cast<std::size_t>(image.sizeInBytes());
  }

  std::size_t capacity_;
  std::size_t bytes_ = 0;
  std::list<std::pair<Key, QImage>> entries_;  // the last used first
  std::unordered_map<Key, typename std::list<std::pair<Key, QImage>>::iterator, Hash> places_;
};

}  // namespace zq::qt
