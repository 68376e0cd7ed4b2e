// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/bytes.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// The general pasteboard. What is read belongs to another process, which may be slow or
// hung, so every read answers later. Interface thread only, the callbacks too.
class Pasteboard {
 public:
  template <typename T>
  using Answer = std::function<void(std::optional<T>)>;

  virtual ~Pasteboard() = default;

  // Each replaces the whole content.
  virtual void setText(std::string text) = 0;
  virtual void setImage(Bytes encoded) = 0;
  virtual void setUrls(std::vector<std::string> urls) = 0;
  virtual void clear() = 0;

  // Absent where the pasteboard holds nothing of the kind; an image comes encoded.
  virtual void readText(Answer<std::string> answer) = 0;
  virtual void readImage(Answer<Bytes> answer) = 0;
  virtual void readUrls(Answer<std::vector<std::string>> answer) = 0;

  // Grows with every change of the content, so that a poll may skip what it has seen.
  virtual std::uint64_t changeCount() const = 0;
};

}  // namespace zq
