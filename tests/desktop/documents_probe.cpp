// ZQSwiftUI, MIT licence; see LICENSE.
// The desktop's list of recently used documents, as a program of ours has it:
//   documents_probe add NAME COUNT   opens file:///NAME/0 and so on, each written by itself
//   documents_probe list             prints its documents, the last opened first
// The application is called "Probe"; the list is that of XDG_DATA_HOME.
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Probe"));
  zq::HeadlessPlatform platform;
  zq::qt::DesktopDocuments documents;
  const std::string_view command = argc > 1 ? argv[1] : "";
  if (command == "add" && argc == 4) {
    for (int i = 0; i < std::atoi(argv[3]); ++i) {
      documents.add("file:///" + std::string(argv[2]) + "/" + std::to_string(i));
      documents.finish();
    }
  } else if (command == "list") {
    documents.list([](const std::vector<zq::RecentDocument>& found) {
      for (const zq::RecentDocument& document : found) std::puts(document.url.c_str());
    });
    platform.advance(0);
  } else {
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
