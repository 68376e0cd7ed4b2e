// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/qt/local_services.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kMaxDocuments = 100;

}  // namespace

void SessionDocuments::list(std::function<void(std::vector<std::string>)> answer) {
  if (!answer) return;
  queue_.post([this, answer = std::move(answer)] { answer(urls_); });
}

void SessionDocuments::add(std::string url) {
  std::erase(urls_, url);
  urls_.insert(urls_.begin(), std::move(url));
  if (urls_.size() > kMaxDocuments) urls_.pop_back();
}

}  // namespace zq::qt
