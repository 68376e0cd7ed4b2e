// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <filesystem>
#include <zqswiftui/files/zq_app_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_drag_and_upload_image_area_view.hpp>
#include <zqswiftui/files/zq_drag_image_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_label.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_folder_drag_area_view.hpp>
#include <zqswiftui/files/zq_multiple_files_drag_area_view.hpp>
#include <zqswiftui/files/zq_sub_file_image_well_view.hpp>
#include <zqswiftui/files/zq_text_drag_area_view.hpp>
#include <zqswiftui/platform/base/drag_items.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::gallery {
namespace {

// [code]
using File = std::optional<Url>;

View framed(View area) {
  return area.frame({.width = 224, .height = 72, .growsWithText = true});
}

std::function<void(const Url&)> into(const State<File>& file) {
  return [file](const Url& url) { file.set(url); };
}

struct SingleFiles {
  View body(Context& context) const {
    auto any = context.state(File());
    auto script = context.state(File());
    auto folder = context.state(File());
    auto tool = context.state(File());
    return samples({
        sample("any file, many of them in turn",
            framed(ZQFileDragAreaView({.url = *any,
                .promptString = "Drop files or click",
                .onDrag = into(any)}))),
        sample("one .sh or .txt, named in the middle",
            framed(ZQFileDragAreaWithNameView({.url = *script,
                .acceptedExtensions = {{"sh", "txt"}},
                .promptString = "Drop a script",
                .onDrag = into(script)}))),
        sample("a folder", framed(ZQFolderDragAreaView({.url = *folder,
                               .callback = into(folder)}))),
        sample("a folder that ends in .app",
            framed(ZQAppDragAreaWithNameView(
                {.url = *tool, .strokeWidth = 2, .onDrag = into(tool)}))),
    });
  }
};

struct Labelled {
  View body(Context& context) const {
    auto cover = context.state(File());
    return ZQFileDragAreaWithLabel(
        {.label = "Cover",
            .url = cover.binding(),
            .acceptedExtensions = {"png", "jpg"},
            .promptString = "Drop a .png or .jpg"})
        .frame(464, 56);
  }
};

struct ManyFiles {
  View body(Context& context) const {
    auto files = context.state(std::vector<Url>());
    std::string told = "nothing yet";
    if (!files->empty()) {
      told = std::to_string(files->size()) +
             " in one call: " + files->front().name();
      if (files->size() > 1) told += ", …";
    }
    return sample(told, ZQMultipleFilesDragAreaView(
                            {.acceptFolders = true,
                                .promptString = "Drop files and folders",
                                .onDrag =
                                    [files](const std::vector<Url>& all) {
                                      files.set(all);
                                    }})
                            .frame(464, 72));
  }
};

struct Pictures {
  View body(Context& context) const {
    auto picture = context.state(File());
    auto sent = context.state(std::optional<std::string>());
    auto kept = context.state(std::optional<std::string>());
    const ZQSubFiles store(
        Url::file(Platform::current().bundle().cacheFolder())
            .appending("gallery-well"));
    const auto square = [](View area) {
      return area.frame(
          {.width = 144, .height = 96, .growsWithText = true});
    };
    return samples({
        sample("a file, or one of a browser",
            square(ZQDragImageAreaView({.imageUrl = *picture,
                .showPlaceholder = true,
                .callback = into(picture)}))),
        sample("brought elsewhere first",
            square(ZQDragAndUploadImageAreaView({.remoteUrl = *sent,
                .callback =
                    [sent](const Url& url) { sent.set(url.text()); }}))),
        sample("kept in a store",
            square(ZQSubFileImageWellView(
                {.subFiles = store, .id = kept.binding()}))),
    });
  }
};

struct Texts {
  View body(Context& context) const {
    auto text = context.state(std::string("nothing yet"));
    return sample(*text,
        ZQTextDragAreaView(
            {.promptString = "Drop a text",
                .onDrag = [text](
                              const std::string& now) { text.set(now); }})
            .frame(464, 72));
  }
};

// Can be dragged out of the window, to here or to another program.
struct Source : ViewModifiers<Source> {
  std::string title;
  std::function<DragItems()> items;

  View body(Context&) const {
    return Text(title)
        .padding(8)
        .background(Capsule().fill(Color::teal().opacity(0.3)))
        .cursor(Cursor::grab)
        .gesture({.onChanged = [items = items](const DragValue&) {
          Platform::current().dragData().begin(items(), nullptr);
        }});
  }
};

View source(const std::string& title, std::function<DragItems()> items) {
  Source made;
  made.title = title;
  made.items = std::move(items);
  return made;
}

struct DropAreas {
  View body(Context&) const {
    const auto folder = [] {
      std::error_code ignored;
      const auto here = std::filesystem::current_path(ignored);
      return draggedUrls({Url::file(here.string()).text()});
    };
    return cards({
        card("One file, a folder, a bundle", SingleFiles()),
        card("With a label", Labelled()),
        card("Many at once", ManyFiles()),
        card("Pictures", Pictures()),
        card("A text", Texts()),
        card("Drag from here",
            HStack({source("a text",
                        [] { return draggedText("Words of the gallery"); }),
                source("this folder", folder),
                source("a page",
                    [] {
                      return draggedUrls({"https://example.org/cover.png"});
                    })})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::drop_areas() {
  return page<DropAreas>("Files", "Drop areas",
      "Files, folders, pictures and texts, dropped or chosen.");
}

}  // namespace zq::gallery
