// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <zqswiftui/files/drop_area.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq::detail {
namespace {

constexpr double kCornerRadius = 8;

std::string_view viewOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// One drop on its way through the background.
struct Drop {
  Drop(TakeUrl givenTake, Taken which) : take(std::move(givenTake)), once(which == Taken::once) {}

  void arrived(const std::optional<Bytes>& bytes) {
    const auto url = bytes ? Url::parse(viewOf(*bytes)) : std::nullopt;
    if (!url) return;
    if (once) {
      const std::lock_guard lock(mutex);
      if (!seen.insert(url->text()).second) return;
    }
    take(*url);
  }

  const TakeUrl take;
  const bool once;
  std::mutex mutex;
  std::unordered_set<std::string> seen;
};

// What the host's callbacks hold ends where it was made.
template <class T>
std::shared_ptr<T> endingOnMain(std::unique_ptr<T> made) {
  return {made.release(), [](T* done) {
            std::shared_ptr<T> last(done);
            if (Platform::installed()) XMain::execute([last = std::move(last)] {});
          }};
}

bool takeUrls(const DropInfo& info, Taken which, TakeUrl take) {
  if (info.items.empty()) {
    std::puts("item not here");
    return false;
  }
  const bool first = which == Taken::first;
  DragItems items(info.items.begin(), first ? info.items.begin() + 1 : info.items.end());
  const auto drop = endingOnMain(std::make_unique<Drop>(std::move(take), which));
  Queue::execute(false, [items = std::move(items), drop] {
    for (const auto& item : items) {
      const std::vector<std::string> types = item->types();
      if (types.empty() || (types[0] != dragTypeUrl && types[0] != dragTypeFileUrl)) continue;
      item->load(types[0], [drop](const std::optional<Bytes>& bytes) { drop->arrived(bytes); });
    }
  });
  return true;
}

}  // namespace

View dropFrame(double strokeWidth, View content) {
  const View frame = RoundedRectangle(kCornerRadius, CornerStyle::continuous)
                         .stroke(Color::primary(), {.lineWidth = sanitized(strokeWidth)});
  return ZStack({frame, std::move(content)});
}

View dropPrompt(const std::optional<std::string>& prompt, bool always, bool wanted) {
  if (always) return Text(prompt.value_or(""));
  if (!prompt || !wanted) return {};
  return VStack({Image::symbol(kDropSymbol), Text(*prompt)});
}

DropTarget urlTarget(Taken which, TakeUrl take) {
  return {.types = {std::string(dragTypeUrl), std::string(dragTypeFileUrl)},
          .onDrop = [which, take = std::move(take)](const DropInfo& info) {
            return takeUrls(info, which, take);
          }};
}

void takeText(const DropInfo& info, TakeText take) {
  if (info.items.empty()) return take("");
  const auto told = endingOnMain(std::make_unique<TakeText>(std::move(take)));
  Queue::execute(false, [item = info.items.front(), told] {
    item->load(dragTypeText, [told](const std::optional<Bytes>& bytes) {
      XMain::execute([told, text = bytes ? validUtf8(viewOf(*bytes)) : ""] { (*told)(text); });
    });
  });
}

View pictureDropArea(const std::vector<std::string>& extensions, TakeUrl take) {
  return ZQFileDragAreaView({.acceptedExtensions = extensions,
                             .onlyFirst = true,
                             .displayFileName = false,
                             .tapToShowOpenDialog = false,
                             .onDrag = std::move(take)});
}

std::string dropName(const std::optional<std::string>& prompt, const char* words) {
  return prompt && !prompt->empty() ? *prompt : words;
}

}  // namespace zq::detail
