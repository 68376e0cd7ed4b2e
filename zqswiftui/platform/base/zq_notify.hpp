// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <zqswiftui/platform/base/signal.hpp>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Named notifications that carry a text, an image or a number, or none of it. Inside the
// process they arrive before notify returns, on its thread; each kind goes to its own
// observers. A sender is any address; an observer of one hears only it. The last text of each
// keyword is remembered (LastTexts) before anyone hears it. Any thread.
// Where several threads post at once, one that posted later may be heard first: who keeps the last
// value takes a callback with the order, which rises with each post of the keyword and kind, and
// leaves out what comes late. All who do that end with the same, and texts with that of LastTexts.
//   Subscription token = ZQNotify::observeString(nullptr, "status", [](const auto& text) {...});
//   ZQNotify::notify("status", "ready");
struct ZQNotify {
  template <typename T>
  using Callback = std::function<void(const std::optional<T>&)>;
  template <typename T>
  using OrderedCallback = std::function<void(const std::optional<T>&, std::uint64_t order)>;
  using Sender = const void*;

  static void notify(const std::string& keyword, const std::optional<std::string>& text,
                     Sender sender = nullptr);
  static void notify(const std::string& keyword, const std::optional<ZQImage>& image,
                     Sender sender = nullptr);
  static void notify(const std::string& keyword, std::optional<double> number,
                     Sender sender = nullptr);

  static Subscription observeString(Sender sender, const std::string& keyword,
                                    Callback<std::string> callback);
  static Subscription observeString(Sender sender, const std::string& keyword,
                                    OrderedCallback<std::string> callback);
  static Subscription observeImage(Sender sender, const std::string& keyword,
                                   Callback<ZQImage> callback);
  static Subscription observeImage(Sender sender, const std::string& keyword,
                                   OrderedCallback<ZQImage> callback);
  static Subscription observeDouble(Sender sender, const std::string& keyword,
                                    Callback<double> callback);
  static Subscription observeDouble(Sender sender, const std::string& keyword,
                                    OrderedCallback<double> callback);

  // To all processes of the user on this machine, this one too, where it arrives later on the
  // interface thread.
  static void broadcast(std::string_view keyword, std::string_view text);
  // Interface thread only, the token too.
  static Subscription observeBroadcast(std::string_view keyword,
                                       std::function<void(const std::string& text)> callback);
};

}  // namespace zq
