// ZQSwiftUI, MIT licence; see LICENSE.
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <zqswiftui/platform/base/last_texts.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

// The observers of one kind of payload, by keyword.
template <typename T>
class Exchange {
 public:
  using Posts = Signal<ZQNotify::Sender, std::optional<T>, std::uint64_t>;

  // Never destroyed: observers of static objects end after everything else.
  static Exchange& shared() {
    static auto* const exchange = new Exchange;
    return *exchange;
  }

  Subscription observe(ZQNotify::Sender sender, const std::string& keyword,
                       ZQNotify::OrderedCallback<T> callback) {
    if (!callback) return {};
    const std::lock_guard lock(mutex_);
    auto& posts = byKeyword_[keyword];
    if (!posts) posts = std::make_shared<Posts>();
    return posts->connect([sender, callback = std::move(callback)](const ZQNotify::Sender& from,
                                                                   const std::optional<T>& payload,
                                                                   std::uint64_t order) {
      if (sender == nullptr || sender == from) callback(payload, order);
    });
  }

  Subscription observe(ZQNotify::Sender sender, const std::string& keyword,
                       ZQNotify::Callback<T> callback) {
    if (!callback) return {};
    return observe(sender, keyword,
                   ZQNotify::OrderedCallback<T>(
                       [callback = std::move(callback)](const std::optional<T>& payload,
                                                        std::uint64_t) { callback(payload); }));
  }

  // Without an order of its own it takes the next one here.
  void post(const std::string& keyword, ZQNotify::Sender sender, const std::optional<T>& payload,
            std::optional<std::uint64_t> order = std::nullopt) {
    std::shared_ptr<Posts> posts;
    {
      const std::lock_guard lock(mutex_);
      const auto found = byKeyword_.find(keyword);
      if (found == byKeyword_.end()) return;
      posts = found->second;
      if (!order) order = ++last_;
    }
    posts->send(sender, payload, *order);
  }

 private:
  std::mutex mutex_;
  std::unordered_map<std::string, std::shared_ptr<Posts>> byKeyword_;
  std::uint64_t last_ = 0;
};

}  // namespace

void ZQNotify::notify(const std::string& keyword, const std::optional<std::string>& text,
                      Sender sender) {
  const std::uint64_t order = LastTexts::remember(keyword, text);
  Exchange<std::string>::shared().post(keyword, sender, text, order);
}

void ZQNotify::notify(const std::string& keyword, const std::optional<ZQImage>& image,
                      Sender sender) {
  Exchange<ZQImage>::shared().post(keyword, sender, image);
}

void ZQNotify::notify(const std::string& keyword, std::optional<double> number, Sender sender) {
  Exchange<double>::shared().post(keyword, sender, number);
}

Subscription ZQNotify::observeString(Sender sender, const std::string& keyword,
                                     Callback<std::string> callback) {
  return Exchange<std::string>::shared().observe(sender, keyword, std::move(callback));
}

Subscription ZQNotify::observeString(Sender sender, const std::string& keyword,
                                     OrderedCallback<std::string> callback) {
  return Exchange<std::string>::shared().observe(sender, keyword, std::move(callback));
}

Subscription ZQNotify::observeImage(Sender sender, const std::string& keyword,
                                    Callback<ZQImage> callback) {
  return Exchange<ZQImage>::shared().observe(sender, keyword, std::move(callback));
}

Subscription ZQNotify::observeImage(Sender sender, const std::string& keyword,
                                    OrderedCallback<ZQImage> callback) {
  return Exchange<ZQImage>::shared().observe(sender, keyword, std::move(callback));
}

Subscription ZQNotify::observeDouble(Sender sender, const std::string& keyword,
                                     Callback<double> callback) {
  return Exchange<double>::shared().observe(sender, keyword, std::move(callback));
}

Subscription ZQNotify::observeDouble(Sender sender, const std::string& keyword,
                                     OrderedCallback<double> callback) {
  return Exchange<double>::shared().observe(sender, keyword, std::move(callback));
}

void ZQNotify::broadcast(std::string_view keyword, std::string_view text) {
  Platform::current().notifications().post(keyword, text);
}

Subscription ZQNotify::observeBroadcast(std::string_view keyword,
                                        std::function<void(const std::string&)> callback) {
  const std::uint64_t id =
      Platform::current().notifications().observe(keyword, std::move(callback));
  return Subscription([id] {
    if (Platform::installed()) Platform::current().notifications().stopObserving(id);
  });
}

}  // namespace zq
