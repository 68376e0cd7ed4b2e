// ZQSwiftUI, MIT licence; see LICENSE.
// A model of the application's own: views that observe it are drawn again when it changes,
// whichever thread changes it.
#include <QApplication>
#include <chrono>
#include <thread>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/zqswiftui.hpp>

using namespace zq;

struct Download : ObservableObject {
  Published<std::string> name{this, "clouds.mov"};
  Published<double> done{this, 0.0};
};

struct DownloadRow {
  std::shared_ptr<Download> download;

  View body(Context& context) const {
    const Download& shown = context.observe(download);
    return VStack({.alignment = HorizontalAlignment::leading},
                  {TextField("Name", Published<std::string>::binding(download, &Download::name)),
                   ProgressView(shown.done.get()), Text("Saving as " + shown.name.get())})
        .padding(24);
  }
  bool operator==(const DownloadRow&) const = default;
};

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const qt::Platform platform(app);
  const auto download = std::make_shared<Download>();
  qt::HostWidget window(DownloadRow{download});
  window.setWindowTitle("Download");
  window.resize(320, 140);
  window.show();
  const std::jthread work([download](const std::stop_token& stop) {
    for (int i = 1; i <= 100 && !stop.stop_requested(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      download->done = i / 100.0;
    }
  });
  return QApplication::exec();
}
