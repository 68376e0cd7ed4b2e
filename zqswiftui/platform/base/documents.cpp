// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/documents.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

void Documents::recent(std::function<void(std::vector<Recent>)> answer) {
  if (!answer) return;
  Platform::current().recentDocuments().list(
      [answer = std::move(answer)](std::vector<RecentDocument> documents) {
        std::vector<Recent> known;
        known.reserve(documents.size());
        for (RecentDocument& document : documents) {
          auto url = Url::parse(document.url);
          if (url) known.push_back({*std::move(url), std::move(document.place), document.facts});
        }
        answer(std::move(known));
      });
}

void Documents::noteRecent(const Url& url) {
  Platform::current().recentDocuments().add(url.text());
}

}  // namespace zq
