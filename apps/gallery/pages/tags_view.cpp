// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <apps/gallery/words.hpp>
#include <zqswiftui/layout/zq_tags_view.hpp>

namespace zq::gallery {
namespace {

// [code]
const std::vector<std::string> kTags = {"landscape", "portrait", "macro",
    "night", "architecture", "black and white", "long exposure", "street",
    "wildlife", "travel", "food", "sport", "aerial", "underwater"};

struct WordTags {
  std::shared_ptr<const Words> words;
  View body(Context&) const {
    // Shares the list: nothing is copied or compared when the page is drawn
    // again.
    const std::shared_ptr<const std::vector<std::string>> list(
        words, &words->list);
    return ZQTagsView(list, Color::indigo());
  }
  bool operator==(const WordTags&) const = default;
};

struct Tags {
  View body(Context& context) const {
    auto tags = context.state(kTags);
    const auto words = context.environment<WordsKey>();
    const auto more = [tags] {
      std::vector<std::string> longer = *tags;
      longer.push_back("tag " + std::to_string(longer.size() + 1));
      tags.set(std::move(longer));
    };
    const auto fewer = [tags] {
      std::vector<std::string> shorter = *tags;
      if (!shorter.empty()) shorter.pop_back();
      tags.set(std::move(shorter));
    };
    std::vector<View> all = {
        card("Tags", VStack({.alignment = HorizontalAlignment::leading,
                                .spacing = 12},
                         {HStack({PushButton("One more", more),
                              PushButton("One fewer", fewer)}),
                             ZQTagsView(*tags, Color::teal())})),
        card("Light and dark",
            lightAndDark(ZQTagsView(kTags, Color::blue()))),
        card("Right to left",
            bothDirections(ZQTagsView(kTags, Color::orange()))),
    };
    if (words) {
      const std::string count = std::to_string(words->list.size());
      const std::string heading =
          words->cut ? "The first " + count + " words" : count + " words";
      all.insert(all.begin(), card(heading, WordTags{words}));
    }
    return cards(std::move(all));
  }
};
// [/code]

}  // namespace

GalleryPage pages::tags_view() {
  return page<Tags>("Layout", "ZQTagsView",
      "A wrapped list of labels. Ten thousand of them scroll as well "
      "as ten.");
}

}  // namespace zq::gallery
