// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <apps/gallery/picture_server.hpp>
#include <zqswiftui/images/zq_url_image.hpp>

namespace zq::gallery {
namespace {

using Server = std::shared_ptr<const PictureServer>;

// [code]
// The status that all who show this address share.
struct StatusOf {
  std::optional<std::string> url;
  View body(Context& context) const {
    constexpr const char* kNames[] = {
        "startup", "cacheTemp", "downloading", "ready", "failed"};
    const auto model = ZQURLImage::lookup(url);
    const auto status = context.observe(model).status.get();
    return note(kNames[static_cast<std::size_t>(status)]);
  }
};

View tile(
    const std::string& caption, const std::optional<std::string>& url) {
  const View picture = ZQURLImageView(url)
                           .frame(110, 72)
                           .background(RoundedRectangle(6).fill(
                               Color::primary().opacity(0.06)))
                           .accessibilityLabel(caption);
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 4},
      {picture, Text(caption).font(Font::caption()), StatusOf{url}})
      .frame({.width = 110, .alignment = Alignment::topLeading()});
}

// An earlier run of the program has left a picture of this address.
struct KeptTile {
  Server server;
  std::string caption, path;
  View body(Context& context) const {
    auto url = context.state(std::optional<std::string>());
    const auto prepare = [url, server = server, path = path] {
      if (!server) return;
      server->keepPicture(
          path, [url](const std::string& kept) { url.set(kept); });
    };
    return View(tile(caption, *url)).onAppear(prepare);
  }
};

struct RemotePictures {
  View body(Context& context) const {
    const Server server = context.environment<PictureServerKey>();
    // An address is loaded once a process: another round has others.
    auto round = context.state(0);
    const auto at = [&](const std::string& path) {
      return path + "?round=" + std::to_string(*round);
    };
    const auto far = [&](const std::string& caption,
                         const std::string& path) {
      return tile(caption, server ? server->address(at(path)) : "");
    };
    const auto kept = [&](const std::string& caption,
                          const std::string& path) {
      const std::string whole = at(path);
      return View(KeptTile{server, caption, whole}).id(whole);
    };
    return cards({
        card("Sooner or later",
            samples({far("at once", "/picture"), far("in pieces", "/slow"),
                far("a blank inside", "/picture of hills"),
                far("from elsewhere", "/moved")})),
        card("What fails or waits",
            samples({tile("no address", std::nullopt),
                far("without end", "/endless"),
                far("not found", "/missing"), far("cut off", "/cut"),
                far("a text", "/text")})),
        card("What an earlier run has kept, until it comes",
            samples({kept("comes anew", "/slow of old"),
                kept("takes for ever", "/endless of old"),
                kept("is gone by now", "/missing of old")})),
        PushButton("Load all again", [round] { round.set(*round + 1); }),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::remote_pictures() {
  GalleryPage made = page<RemotePictures>("Images", "Remote pictures",
      "Pictures of addresses, from a server of the gallery's own that is "
      "slow, wrong or gone.");
  made.settles = 4;
  return made;
}

}  // namespace zq::gallery
