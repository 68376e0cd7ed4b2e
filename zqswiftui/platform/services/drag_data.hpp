// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/services/bytes.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

inline constexpr std::string_view dragTypeText = "public.utf8-plain-text";
inline constexpr std::string_view dragTypeUrl = "public.url";
inline constexpr std::string_view dragTypeFileUrl = "public.file-url";

// One thing that is dragged, in one or more types, the best first.
class DragItem {
 public:
  virtual ~DragItem() = default;
  virtual std::vector<std::string> types() const = 0;
  // Any thread. Answers once, on any thread, and perhaps before it returns: a URL as its
  // percent-encoded text, a text as UTF-8; absent where the type is not offered or the source
  // fails. What was dropped on a window may take its time to decode, so not the interface thread.
  virtual void load(std::string_view type,
                    std::function<void(std::optional<Bytes>)> answer) const = 0;
};

using DragItems = std::vector<std::shared_ptr<const DragItem>>;

enum class DropResult { refused, copied };

// Starts drags; what is dropped reaches views as DragItems through their host. Interface
// thread only.
class DragData {
 public:
  virtual ~DragData() = default;
  // Answers on the interface thread when the drag has ended; at once refused where another
  // drag runs or there is nothing to drag.
  virtual void begin(DragItems items, std::function<void(DropResult)> ended) = 0;
};

}  // namespace zq
