// ZQSwiftUI, MIT licence; see LICENSE.
// Edits the project in FILE as fast as its event loop turns, until it is killed:
//   document_probe FILE
// Each edit puts the next number into the last value of the first and of the last group. Before an
// edit it prints "edit N"; once a save has ended, "saved N", where N is certainly in the file.
#include <QApplication>
#include <QTimer>
#include <apps/configurator/document.hpp>
#include <cstdio>
#include <zqswiftui/platform/qt/platform.hpp>

namespace {

using namespace zq;
using configurator::Document;
using configurator::ProjectContent;

void say(const char* what, std::int64_t number) {
  std::printf("%s %lld\n", what, static_cast<long long>(number));
  std::fflush(stdout);
}

class Editor {
 public:
  explicit Editor(std::shared_ptr<Document> document)
      : document_(std::move(document)),
        number_(document_->content()->groups.front()->itemList.back().intValue),
        changes_(document_->didChange.connect([this] { look(); })) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { edit(); });
    timer_.start(0);
  }

 private:
  void edit() {
    say("edit", ++number_);
    document_->edit("Count", [this](ProjectContent& content) {
      for (const auto& group : {content.groups.front(), content.groups.back()}) {
        configurator::editItem(content, group->id, group->itemList.back().id,
                               [this](ZQUICItem& item) { item.intValue = number_; });
      }
    });
  }
  // A save that has ended began no earlier than when the last one ended.
  void look() {
    if (document_->broadcasts() == saves_) return;
    if (saves_ > 0) say("saved", atLastSave_);
    saves_ = document_->broadcasts();
    atLastSave_ = number_;
  }

  const std::shared_ptr<Document> document_;
  std::int64_t number_;
  std::int64_t atLastSave_ = 0;
  std::size_t saves_ = 0;
  QTimer timer_;
  Subscription changes_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc != 2) return 2;
  const qt::Platform platform(app);
  std::unique_ptr<Editor> editor;
  Document::open(Url::file(argv[1]), [&](const auto& opened) {
    if (!opened.ok()) return QApplication::exit(1);
    editor = std::make_unique<Editor>(opened.value());
  });
  return QApplication::exec();
}
