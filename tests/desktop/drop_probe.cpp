// ZQSwiftUI, MIT licence; see LICENSE.
// Drop areas, and what is dragged onto them from another process, for the tests on a virtual
// display: `drop_probe areas` and `drop_probe source FOLDER`.
#include <QDrag>
#include <QMimeData>
#include <QPointer>
#include <QTimer>
#include <map>
#include <memory>
#include <tests/desktop/heart.hpp>
#include <tests/desktop/probe_window.hpp>
#include <zqswiftui/files/zq_app_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_folder_drag_area_view.hpp>
#include <zqswiftui/files/zq_multiple_files_drag_area_view.hpp>
#include <zqswiftui/files/zq_text_drag_area_view.hpp>
#include <zqswiftui/platform/base/drag_items.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace {

using namespace zq;

constexpr QSize kSize(240, 440), kOfSource(240, 560);
constexpr QPoint kOfAreas(400, 40), kOfFurther(800, 40);

std::function<void(const Url&)> tell(const std::string& word) {
  return [word](const Url& url) { probe::say(word + " " + url.name()); };
}

View areas() {
  const auto sized = [](View area, const std::string& name) {
    return area.accessibilityLabel(name).frame(200, 60);
  };
  return VStack(
             {.spacing = 16},
             {sized(ZQFileDragAreaView({.promptString = "Drop", .onDrag = tell("file")}), "file"),
              sized(ZQMultipleFilesDragAreaView({.acceptFolders = true,
                                                 .onDrag =
                                                     [](const std::vector<Url>& all) {
                                                       std::string line = "many";
                                                       for (const Url& url : all) {
                                                         line += " [" + url.name() + "]";
                                                       }
                                                       probe::say(line);
                                                     }}),
                    "many"),
              sized(ZQFolderDragAreaView({.callback = tell("folder")}), "folder"),
              sized(ZQAppDragAreaWithNameView({.onDrag = tell("bundle")}), "bundle"),
              sized(ZQTextDragAreaView(
                        {.onDrag = [](const std::string& text) { probe::say("text " + text); }}),
                    "text")})
      .padding(16);
}

// Says what becomes of the drag that is under way: the target's word, and the end.
class Reporter : public QObject {
 public:
  void began() {
    ++number_;
    timer_.callOnTimeout(this, [this] { look(); });
    timer_.start(5);
  }
  void ended(DropResult result) {
    timer_.stop();
    timer_.disconnect();
    say("ended", result == DropResult::copied ? "copied" : "refused");
  }

 private:
  void look() {
    // One that was given up stays for a while; the last is the one under way.
    const auto drags = QCoreApplication::instance()->findChildren<QDrag*>();
    if (drags.isEmpty() || drags.last() == last_) return;
    QDrag* drag = drags.last();
    last_ = drag;
    timer_.stop();
    connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
      say("over", action == Qt::CopyAction ? "taken" : "nothing");
    });
    say("dragging", "");
  }
  void say(const std::string& what, const std::string& how) const {
    probe::say(what + " " + std::to_string(number_) + (how.empty() ? "" : " " + how));
  }

  int number_ = 0;
  QTimer timer_;
  QPointer<QDrag> last_;
};

// A file that is not given before a line comes on standard input. The process stands still so long.
class Withheld : public QMimeData {
 public:
  explicit Withheld(std::string url) : url_(std::move(url)) {}
  QStringList formats() const override { return {QStringLiteral("text/uri-list")}; }
  bool hasFormat(const QString& format) const override { return formats().contains(format); }

 protected:
  QVariant retrieveData(const QString&, QMetaType) const override {
    probe::say("asked");
    std::string line;
    std::getline(std::cin, line);
    return QByteArray::fromStdString(url_);
  }

 private:
  std::string url_;
};

// What no program gives in the way of this one's drags.
void dragOdd(ViewHost& host, QMimeData* mime, const std::function<void(DropResult)>& ended) {
  QTimer::singleShot(0, [&host, mime, ended] {
    host.cancelGestures();
    auto* drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(mime);
    const Qt::DropAction action = drag->exec(Qt::CopyAction);
    ended(action == Qt::CopyAction ? DropResult::copied : DropResult::refused);
  });
}

QMimeData* unknown() {
  auto* mime = new QMimeData;
  mime->setData(QStringLiteral("application/x-unknown"), "?");
  return mime;
}

View source(const std::string& folder, ViewHost& host, const std::shared_ptr<Reporter>& reporter) {
  const auto files = [&folder](const std::vector<std::string>& names) {
    std::vector<std::string> urls;
    for (const std::string& name : names) urls.push_back(Url::file(folder + "/" + name).text());
    return draggedUrls(urls);
  };
  const std::vector<std::pair<std::string, DragItems>> rows{
      {"one", files({"a b.txt"})},
      {"three", files({"a b.txt", "\xC3\xA9.png", "100%#.txt"})},
      {"plain", files({"folder"})},
      {"app", files({"Tool.app"})},
      {"project", files({"dropped.zquic"})},
      {"words", draggedText("gr\xC3\xBCn & 2")},
      {"unknown", {}},
      {"withheld", {}}};
  const std::string withheld = Url::file(folder + "/a b.txt").text();
  std::vector<View> all;
  const auto busy = std::make_shared<bool>(false);
  for (const auto& [name, items] : rows) {
    const auto begin = [&host, reporter, busy, withheld, name = name,
                        items = items](const DragValue&) {
      if (std::exchange(*busy, true)) return;
      const auto ended = [reporter, busy](DropResult result) {
        *busy = false;
        reporter->ended(result);
      };
      reporter->began();
      if (name == "unknown") return dragOdd(host, unknown(), ended);
      if (name == "withheld") return dragOdd(host, new Withheld(withheld), ended);
      Platform::current().dragData().begin(items, ended);
    };
    all.push_back(Text(name)
                      .frame(200, 48)
                      .background(Color::teal().opacity(0.3))
                      .gesture({.onChanged = begin}));
  }
  return VStack({.spacing = 16}, std::move(all)).padding(16);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2) {
    const auto reporter = std::make_shared<std::shared_ptr<Reporter>>();
    return probe::show(argc, argv, "SOURCE", kOfSource, {20, 40}, [&](qt::HostWidget& window) {
      *reporter = std::make_shared<Reporter>();
      window.setRoot(source(argv[2], window.host(), *reporter));
      return probe::Further();
    });
  }
  // A second window, which goes in the middle of a drag.
  std::unique_ptr<qt::HostWidget> further;
  std::unique_ptr<probe::Heart> heart;
  return probe::show(argc, argv, "AREAS", kSize, kOfAreas, [&](qt::HostWidget& window) {
    window.setRoot(areas());
    heart = std::make_unique<probe::Heart>();
    return [&](const std::string& line) {
      if (line == "longest") probe::say("longest " + std::to_string(heart->takeLongest()));
      if (line == "open") {
        further = std::make_unique<qt::HostWidget>(areas());
        further->setWindowTitle(QStringLiteral("FURTHER"));
        further->setGeometry({kOfFurther, kSize});
        further->show();
      }
      if (line == "hide" && further) further->close();
      if (line == "close") further.reset();
      if (line == "open" || line == "hide" || line == "close") probe::say("did " + line);
    };
  });
}
