// ZQSwiftUI, MIT licence; see LICENSE.
// Drops of what other programs offer, the honest and the hostile.
#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <map>
#include <memory>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/drag_data.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

struct Heard {
  std::string targeted;  // + and - as the drag comes and goes
  std::vector<DropInfo> drops;
};

// What the items of the last drop give: addresses in order, or the text.
std::vector<std::string> loaded(const Heard& heard, std::string_view type) {
  std::vector<std::string> all;
  for (const auto& item : heard.drops.back().items) {
    item->load(type, [&all](const std::optional<Bytes>& bytes) {
      if (bytes) all.emplace_back(bytes->begin(), bytes->end());
    });
  }
  return all;
}

using Texts = std::vector<std::string>;

// A target in the middle of a window that is otherwise none.
class HostDrop : public testing::Test {
 protected:
  void show(std::vector<std::string> types, bool takes = true) {
    const std::shared_ptr<Heard> heard = heard_;
    host_ = std::make_unique<HostWidget>(
        Text("Drop here")
            .frame(100, 50)
            .onDrop({std::move(types), [heard](bool in) { heard->targeted += in ? '+' : '-'; },
                     [heard, takes](const DropInfo& info) {
                       heard->drops.push_back(info);
                       return takes;
                     }}));
    host_->resize(200, 100);
    host_->show();
    settle();
  }
  bool enter(const QMimeData& data, QPoint at) {
    QDragEnterEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(host_.get(), &event);
    return event.isAccepted();
  }
  bool move(const QMimeData& data, QPoint at) {
    QDragMoveEvent event(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
    QCoreApplication::sendEvent(host_.get(), &event);
    // A move would let the other program delete what was only copied.
    if (event.isAccepted()) {
      EXPECT_EQ(event.dropAction(), Qt::CopyAction);
    }
    return event.isAccepted();
  }
  bool drop(const QMimeData& data, QPoint at = {100, 50}) {
    enter(data, at);
    QDropEvent event(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(host_.get(), &event);
    settle();
    if (event.isAccepted()) {
      EXPECT_EQ(event.dropAction(), Qt::CopyAction);
    }
    return event.isAccepted();
  }

  std::shared_ptr<Heard> heard_ = std::make_shared<Heard>();
  std::unique_ptr<HostWidget> host_;
};

TEST_F(HostDrop, theTargetHearsOfComingAndGoingAndPlacesOutsideRefuse) {
  show({"public.url"});
  QMimeData data;
  data.setUrls({QUrl(QStringLiteral("https://example.org/a"))});
  EXPECT_TRUE(enter(data, {5, 5})) << "a target may lie further inside";
  EXPECT_FALSE(move(data, {5, 5}));
  EXPECT_TRUE(move(data, {100, 50}));
  EXPECT_TRUE(move(data, {101, 50}));
  EXPECT_FALSE(move(data, {5, 5}));
  EXPECT_TRUE(move(data, {100, 50}));
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(host_.get(), &leave);
  EXPECT_EQ(heard_->targeted, "+-+-");
  EXPECT_FALSE(drop(data, {5, 5}));
  EXPECT_TRUE(heard_->drops.empty());
  EXPECT_TRUE(drop(data));
  ASSERT_EQ(heard_->drops.size(), 1U);
  EXPECT_EQ(heard_->drops[0].location.x, 50);
  EXPECT_EQ(heard_->targeted, "+-+-+-");
}

TEST_F(HostDrop, aTargetThatDeclinesLeavesTheDropToTheOtherProgram) {
  show({"public.url"}, false);
  QMimeData data;
  data.setUrls({QUrl(QStringLiteral("https://example.org/a"))});
  EXPECT_FALSE(drop(data));
  EXPECT_EQ(heard_->drops.size(), 1U);
  EXPECT_EQ(heard_->targeted, "+-");
}

// What another program offers, byte by byte, and what is asked of it.
class Offer : public QMimeData {
 public:
  explicit Offer(std::map<QString, QByteArray> contents) : contents_(std::move(contents)) {}
  QStringList formats() const override {
    QStringList all;
    for (const auto& [format, bytes] : contents_) all.push_back(format);
    return all;
  }
  bool hasFormat(const QString& format) const override { return contents_.contains(format); }
  mutable QStringList asked;

 protected:
  QVariant retrieveData(const QString& format, QMetaType) const override {
    asked.push_back(format);
    const auto found = contents_.find(format);
    return found == contents_.end() ? QByteArray() : found->second;
  }

 private:
  std::map<QString, QByteArray> contents_;
};

const QString kUriList = QStringLiteral("text/uri-list");
const QString kMozUrl = QStringLiteral("text/x-moz-url");

TEST_F(HostDrop, listsAreReadAsOtherProgramsWriteThem) {
  show({"public.file-url", "public.url"});
  const struct {
    const char* what;
    QByteArray list;
    Texts urls;
  } rows[] = {
      {"escapes and comments",
       "# a comment\r\nfile:///a%20b%23c.txt\r\nhttps://e.org/?q=%26\r\n",
       {"file:///a%20b%23c.txt", "https://e.org/?q=%26"}},
      {"lines of another kind",
       "file:///a\nfile:///b\rfile:///c",
       {"file:///a", "file:///b", "file:///c"}},
      {"blanks and names in UTF-8",
       "  file:///a b/\xC3\xA9.txt \r\n",
       {"file:///a%20b/%C3%A9.txt"}},
      {"bytes that are no UTF-8", "file:///\xFF\r\n", {"file:///%FF"}},
      {"a zero at the end", QByteArray("file:///a\r\n\0", 12), {"file:///a"}},
      {"this machine",
       "file://localhost/a\r\nfile:/b\r\nFILE:///c",
       {"file:///a", "file:///b", "file:///c"}},
      {"other machines",
       "file://server/a b\r\nsmb://server/share/\r\nsftp://u@h/x",
       {"file://server/a%20b", "smb://server/share/", "sftp://u@h/x"}},
      {"one that is none among them", "nothing\r\n/a/path\r\nfile:///a\r\n:\r\n", {"file:///a"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    ASSERT_TRUE(drop(Offer({{kUriList, row.list}})));
    EXPECT_EQ(loaded(*heard_, "public.url"), row.urls);
  }
}

TEST_F(HostDrop, filesAreToldFromPages) {
  show({"public.file-url"});
  QMimeData data;
  data.setData(QStringLiteral("text/uri-list"), "file:///a\r\nhttps://example.org/\r\n");
  ASSERT_TRUE(drop(data));
  EXPECT_EQ(loaded(*heard_, "public.file-url"), Texts{"file:///a"});
  QMimeData page;
  page.setUrls({QUrl(QStringLiteral("https://example.org/"))});
  EXPECT_FALSE(drop(page));
  EXPECT_EQ(heard_->drops.size(), 1U);
}

TEST_F(HostDrop, aPictureOfABrowserIsAnAddress) {
  show({"public.url"});
  QMimeData data;
  const QString titled =
      QStringLiteral("https://e.org/\u00E9 1.png\nA title: \u00E9\nhttp://b/2.png\nB");
  data.setData(QStringLiteral("text/x-moz-url"),
               QByteArray(reinterpret_cast<const char*>(titled.utf16()), titled.size() * 2));
  data.setText(QStringLiteral("https://e.org/1.png"));
  ASSERT_TRUE(drop(data));
  const Texts both{"https://e.org/%C3%A9%201.png", "http://b/2.png"};
  EXPECT_EQ(loaded(*heard_, "public.url"), both);
  data.setData(QStringLiteral("text/uri-list"), "http://c/3.png\r\n");
  ASSERT_TRUE(drop(data));
  EXPECT_EQ(loaded(*heard_, "public.url"), Texts{"http://c/3.png"}) << "the list is the better one";
}

TEST_F(HostDrop, onlyWhatIsWantedIsAskedForAndOnlyAtTheDrop) {
  show({"public.url"});
  const Offer offer({{QStringLiteral("image/png"), "x"},
                     {QStringLiteral("text/plain"), "x"},
                     {kUriList, "file:///a\r\n"},
                     {kMozUrl, "x"}});
  enter(offer, {5, 5});
  EXPECT_TRUE(move(offer, {100, 50}));
  EXPECT_TRUE(offer.asked.empty());
  EXPECT_TRUE(drop(offer));
  EXPECT_EQ(offer.asked, QStringList{kUriList});
  EXPECT_FALSE(drop(offer, {5, 5}));
  EXPECT_EQ(offer.asked.size(), 1) << "nothing is asked for where nothing takes it";
  EXPECT_TRUE(drop(Offer({{kUriList, ""}, {kMozUrl, ""}})))
      << "a promise that is not kept is an empty drop";
  EXPECT_TRUE(heard_->drops.back().items.empty());
}

TEST_F(HostDrop, hugeOffersAreCutAndNeverRefusedForTheirSize) {
  show({"public.url", "public.utf8-plain-text"});
  QMimeData text;
  text.setText(QString(20 << 20, u'x'));
  ASSERT_TRUE(drop(text));
  EXPECT_EQ(loaded(*heard_, "public.utf8-plain-text").at(0).size(), std::size_t{16} << 20);

  QByteArray list = "file:///" + QByteArray(100000, 'x') + "\r\n";
  for (int i = 0; i < 120000; ++i) list += "file:///f" + QByteArray::number(i) + "\r\n";
  ASSERT_TRUE(drop(Offer({{kUriList, list}})));
  const Texts all = loaded(*heard_, "public.url");
  ASSERT_EQ(all.size(), 100000U);
  EXPECT_EQ(all.back(), "file:///f99999");
}

TEST_F(HostDrop, brokenOffersAreEmptyOnes) {
  show({"public.url", "public.file-url", "public.utf8-plain-text"});
  const std::pair<const char*, QByteArray> rows[] = {
      {"text/uri-list", ""},
      {"text/uri-list", "\r\n\r\n#\r\n"},
      {"text/uri-list", QByteArray("\0\xff\xfe\x80", 4)},
      {"text/uri-list", QByteArray(100000, '%')},
      {"text/uri-list", QByteArray(100000, ':')},
      {"text/x-moz-url", "x"},
      {"text/x-moz-url", QByteArray("\xff\xfe\0\xd8\n", 5)},
      {"text/plain", QByteArray("\xff\xfe\x80\0x", 5)},
      {"application/x-unknown", "bytes"},
      {"", ""},
  };
  for (const auto& [type, bytes] : rows) {
    const Offer data({{QString::fromLatin1(type), bytes}});
    const bool known = std::string_view(type).starts_with("text/");
    EXPECT_EQ(drop(data), known) << type;
    if (known) {
      EXPECT_TRUE(loaded(*heard_, "public.url").empty()) << bytes.left(20).toStdString();
    }
  }
}

TEST(DraggedMime, isWhatOtherProgramsRead) {
  const auto bytes = [](std::string_view text) {
    return std::optional(Bytes(text.begin(), text.end()));
  };
  EXPECT_EQ(draggedMime({std::nullopt}, {std::nullopt}), nullptr);
  const auto files = draggedMime({bytes("file:///a%20b"), std::nullopt, bytes("http://c/")}, {});
  EXPECT_EQ(files->data(QStringLiteral("text/uri-list")), "file:///a%20b\r\nhttp://c/\r\n");
  EXPECT_EQ(files->formats().size(), 1);
  const auto text = draggedMime({}, {bytes("gr\xC3\xBCn"), bytes("2")});
  EXPECT_EQ(text->text(), QStringLiteral("gr\u00FCn\n2"));
}

TEST(QtDragData, answersOnceWhereNoDragCanBegin) {
  // Never answers a load.
  class Silent : public DragItem {
    std::vector<std::string> types() const override { return {"public.url"}; }
    void load(std::string_view, std::function<void(std::optional<Bytes>)> answer) const override {
      kept = std::move(answer);
    }
    mutable std::function<void(std::optional<Bytes>)> kept;
  };
  zq::DragData& drags = zq::Platform::current().dragData();
  std::vector<DropResult> heard;
  const auto note = [&](DropResult result) { heard.push_back(result); };
  drags.begin({}, note);
  drags.begin({std::make_shared<Silent>()}, note);
  drags.begin({std::make_shared<Silent>()}, note);
  EXPECT_TRUE(heard.empty());
  ASSERT_TRUE(waitFor([&] { return heard.size() == 3; }));
  EXPECT_EQ(heard, std::vector<DropResult>(3, DropResult::refused));
}

TEST_F(HostDrop, aTargetMayGoWithTheDropThatItTakes) {
  const std::shared_ptr<Heard> heard = heard_;
  host_ = std::make_unique<HostWidget>(Text(""));
  HostWidget* host = host_.get();
  host_->setRoot(
      Text("once").frame(100, 50).onDrop({{"public.utf8-plain-text"},
                                          [heard](bool in) { heard->targeted += in ? '+' : '-'; },
                                          [host, heard](const DropInfo& info) {
                                            heard->drops.push_back(info);
                                            host->setRoot(Text("done"));
                                            host->runFrame();
                                            return true;
                                          }}));
  host_->resize(200, 100);
  host_->show();
  settle();
  QMimeData data;
  data.setText(QStringLiteral("x"));
  EXPECT_TRUE(drop(data));
  EXPECT_EQ(heard_->targeted, "+-");
  EXPECT_FALSE(drop(data));
  EXPECT_EQ(heard_->drops.size(), 1U);
}

}  // namespace
}  // namespace zq::qt
