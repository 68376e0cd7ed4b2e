// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/documents.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

void Documents::recent(std::function<void(std::vector<Recent>)> answer) {
  if (!answer) return;
  Platform::current().recentDocuments().list(
      [answer = std::move(answer)](const std::vector<RecentDocument>& documents) {
        std::vector<Recent> known;
        known.reserve(documents.size());
        for (const RecentDocument& document : documents) {
          if (const auto url = Url::parse(document.url)) known.push_back({*url, document.place});
        }
        answer(std::move(known));
      });
}

void Documents::noteRecent(const Url& url) {
  Platform::current().recentDocuments().add(url.text());
}

}  // namespace zq
