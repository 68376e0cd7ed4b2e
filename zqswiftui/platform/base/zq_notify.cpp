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
  using Posts = Signal<ZQNotify::Sender, std::optional<T>>;

  // Never destroyed: observers of static objects end after everything else.
  static Exchange& shared() {
    static auto* const exchange = new Exchange;
    return *exchange;
  }

  Subscription observe(ZQNotify::Sender sender, const std::string& keyword,
                       ZQNotify::Callback<T> callback) {
    if (!callback) return {};
    const std::lock_guard lock(mutex_);
    auto& posts = byKeyword_[keyword];
    if (!posts) posts = std::make_shared<Posts>();
    return posts->connect([sender, callback = std::move(callback)](
                              const ZQNotify::Sender& from, const std::optional<T>& payload) {
      if (sender == nullptr || sender == from) callback(payload);
    });
  }

  void post(const std::string& keyword, ZQNotify::Sender sender, const std::optional<T>& payload) {
    std::shared_ptr<Posts> posts;
    {
      const std::lock_guard lock(mutex_);
      const auto found = byKeyword_.find(keyword);
      if (found == byKeyword_.end()) return;
      posts = found->second;
    }
    posts->send(sender, payload);
  }

 private:
  std::mutex mutex_;
  std::unordered_map<std::string, std::shared_ptr<Posts>> byKeyword_;
};

}  // namespace

void ZQNotify::notify(const std::string& keyword, const std::optional<std::string>& text,
                      Sender sender) {
  if (text) LastTexts::remember(keyword, *text);
  Exchange<std::string>::shared().post(keyword, sender, text);
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

Subscription ZQNotify::observeImage(Sender sender, const std::string& keyword,
                                    Callback<ZQImage> callback) {
  return Exchange<ZQImage>::shared().observe(sender, keyword, std::move(callback));
}

Subscription ZQNotify::observeDouble(Sender sender, const std::string& keyword,
                                     Callback<double> callback) {
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
