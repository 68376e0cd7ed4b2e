// ZQSwiftUI, MIT licence; see LICENSE.
#include <unistd.h>

#include <QApplication>
#include <apps/gallery/gallery_window.hpp>
#include <apps/gallery/options.hpp>
#include <apps/gallery/sample_documents.hpp>
#include <apps/gallery/snapshots.hpp>
#include <cstdio>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>

namespace {

using namespace zq::gallery;

constexpr int kWrongUse = 2;

int fail(const std::string& sentence, int code) {
  const bool coloured = isatty(STDERR_FILENO) == 1;
  std::fprintf(stderr, "%szq-gallery:%s %s\n", coloured ? "\033[31m" : "",
               coloured ? "\033[0m" : "", sentence.c_str());
  return code;
}

void printPages() {
  std::string group;
  const bool coloured = isatty(STDOUT_FILENO) == 1;
  for (const GalleryPage& page : galleryPages()) {
    if (coloured && page.group != group) std::printf("\033[1m%s\033[0m\n", page.group.c_str());
    group = page.group;
    std::printf("%s%s\n", coloured ? "  " : "", page.title.c_str());
  }
}

bool hasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int showWindow(std::size_t page, const Given& given) {
  zq::qt::HostWidget window(GalleryWindow{page, given});
  window.setWindowTitle("Gallery");
  window.setMinimumSize(640, 400);
  window.resize(1360, 860);
  window.show();
  return QApplication::exec();
}

// The one that is asked for, or what the user gave something to.
zq::Result<std::size_t> firstPage(const Options& options) {
  const char* filled = options.pictures ? "picture-wall" : options.words ? "ZQTagsView" : nullptr;
  if (!options.page && !filled) return std::size_t{0};
  const std::string name = options.page ? *options.page : filled;
  const GalleryPage* found = findPage(name);
  if (!found) return zq::Error{"There is no page named \"" + name + "\"; --list prints them all."};
  return static_cast<std::size_t>(found - galleryPages().data());
}

zq::Result<Given> readGiven(const Options& options) {
  Given given;
  if (options.words) {
    zq::Result<Words> read = readWords(*options.words, options.mostWords);
    if (!read.ok()) return read.error();
    given.words = std::make_shared<const Words>(std::move(read).value());
  }
  if (options.pictures) {
    zq::Result<Pictures> read = readPictures(*options.pictures);
    if (!read.ok()) return read.error();
    given.pictures = std::make_shared<const Pictures>(std::move(read).value());
  }
  return given;
}

int run(int argc, char** argv, const Options& options) {
  const zq::Result<std::size_t> page = firstPage(options);
  if (!page.ok()) return fail(page.error().sentence, kWrongUse);
  const zq::Result<Given> read = readGiven(options);
  if (!read.ok()) return fail(read.error().sentence, 1);
  // Pictures need no display, and look the same with any.
  if (options.snapshot && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (!hasDisplay()) {
    return fail("There is no display to open a window on; --snapshot DIR needs none.", 1);
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("zq-gallery");
  const SampleDocuments documents;
  const zq::qt::Platform platform(app, documents.list());
  documents.remember();
  Given given = read.value();
  given.server = std::make_shared<const PictureServer>();
  if (!options.snapshot) return showWindow(page.value(), given);
  const std::optional<std::size_t> only = options.page ? std::optional(page.value()) : std::nullopt;
  const zq::Result<void> painted =
      paintPages(*options.snapshot, only, given,
                 {.layoutDirection = options.rightToLeft ? zq::LayoutDirection::rightToLeft
                                                         : zq::LayoutDirection::leftToRight,
                  .textScale = options.textScale});
  return painted.ok() ? 0 : fail(painted.error().sentence, 1);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  const zq::Result<Options> options = readOptions(arguments);
  if (!options.ok()) return fail(options.error().sentence, kWrongUse);
  if (options.value().help) {
    std::printf("%s", helpText(isatty(STDOUT_FILENO) == 1).c_str());
    return 0;
  }
  if (options.value().list) {
    printPages();
    return 0;
  }
  return run(argc, argv, options.value());
}
