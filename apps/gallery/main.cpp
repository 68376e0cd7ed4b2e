// ZQSwiftUI, MIT licence; see LICENSE.
#include <unistd.h>

#include <QApplication>
#include <apps/gallery/gallery_window.hpp>
#include <apps/gallery/options.hpp>
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

int showWindow(std::size_t page, const std::shared_ptr<const Words>& words) {
  zq::qt::HostWidget window(GalleryWindow{page, words});
  window.setWindowTitle("Gallery");
  window.setMinimumSize(640, 400);
  window.resize(1360, 860);
  window.show();
  return QApplication::exec();
}

int run(int argc, char** argv, const Options& options) {
  std::optional<std::size_t> page;
  if (options.page) {
    const GalleryPage* found = findPage(*options.page);
    if (!found) {
      return fail("There is no page named \"" + *options.page + "\"; --list prints them all.",
                  kWrongUse);
    }
    page = static_cast<std::size_t>(found - galleryPages().data());
  } else if (options.words && !options.snapshot) {
    page = static_cast<std::size_t>(findPage("ZQTagsView") - galleryPages().data());
  }
  std::shared_ptr<const Words> words;
  if (options.words) {
    zq::Result<Words> read = readWords(*options.words, options.mostWords);
    if (!read.ok()) return fail(read.error().sentence, 1);
    words = std::make_shared<const Words>(std::move(read).value());
  }
  // Pictures need no display, and look the same with any.
  if (options.snapshot && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (!hasDisplay()) {
    return fail("There is no display to open a window on; --snapshot DIR needs none.", 1);
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("zq-gallery");
  const zq::qt::Platform platform(app);
  if (!options.snapshot) return showWindow(page.value_or(0), words);
  const zq::Result<void> painted = paintPages(*options.snapshot, page, words);
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
