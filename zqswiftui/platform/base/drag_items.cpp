// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/platform/base/drag_items.hpp>

namespace zq {
namespace {

// The same content in each of its types.
class Given final : public DragItem {
 public:
  Given(std::vector<std::string> types, std::string content)
      : types_(std::move(types)), content_(std::move(content)) {}
  std::vector<std::string> types() const override { return types_; }
  void load(std::string_view type,
            std::function<void(std::optional<Bytes>)> answer) const override {
    const bool known = std::find(types_.begin(), types_.end(), type) != types_.end();
    answer(known ? std::optional(Bytes(content_.begin(), content_.end())) : std::nullopt);
  }

 private:
  std::vector<std::string> types_;
  std::string content_;
};

}  // namespace

DragItems draggedUrls(const std::vector<std::string>& urls) {
  DragItems items;
  for (const std::string& url : urls) {
    std::vector<std::string> types;
    if (url.starts_with("file:")) types.emplace_back(dragTypeFileUrl);
    types.emplace_back(dragTypeUrl);
    items.push_back(std::make_shared<Given>(std::move(types), url));
  }
  return items;
}

DragItems draggedText(std::string text) {
  return {std::make_shared<Given>(std::vector<std::string>{std::string(dragTypeText)},
                                  std::move(text))};
}

}  // namespace zq
