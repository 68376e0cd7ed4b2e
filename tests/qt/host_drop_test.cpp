// ZQSwiftUI, MIT licence; see LICENSE.
// Drops of what other programs offer, the honest and the hostile.
#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <memory>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

struct Heard {
  std::string targeted;  // + and - as the drag comes and goes
  std::vector<DropInfo> drops;
};

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

TEST_F(HostDrop, urlsKeepTheirEscapesAndFilesAreToldFromPages) {
  show({"public.file-url"});
  QMimeData data;
  data.setData(QStringLiteral("text/uri-list"),
               "# a comment\r\nfile:///a%20b%23c.txt\r\nhttps://example.org/?q=%26\r\n");
  ASSERT_TRUE(drop(data));
  EXPECT_EQ(heard_->drops[0].urls,
            (std::vector<std::string>{"file:///a%20b%23c.txt", "https://example.org/?q=%26"}));
  QMimeData page;
  page.setUrls({QUrl(QStringLiteral("https://example.org/"))});
  EXPECT_FALSE(drop(page));
  EXPECT_EQ(heard_->drops.size(), 1U);
}

TEST_F(HostDrop, hugeOffersAreCutAndNeverRefusedForTheirSize) {
  show({"public.url", "public.utf8-plain-text"});
  QMimeData text;
  text.setText(QString(10 << 20, u'x'));
  ASSERT_TRUE(drop(text));
  EXPECT_EQ(heard_->drops.back().text.size(), std::size_t{10} << 20);
  text.setText(QString(20 << 20, u'x'));
  ASSERT_TRUE(drop(text));
  EXPECT_EQ(heard_->drops.back().text.size(), std::size_t{16} << 20);

  QMimeData urls;
  QByteArray list;
  for (int i = 0; i < 12000; ++i) list += "file:///f" + QByteArray::number(i) + "\r\n";
  urls.setData(QStringLiteral("text/uri-list"), list);
  ASSERT_TRUE(drop(urls));
  EXPECT_EQ(heard_->drops.back().urls.size(), 10000U);
  EXPECT_EQ(heard_->drops.back().urls.back(), "file:///f9999");
}

TEST_F(HostDrop, brokenOffersAreEmptyOnes) {
  show({"public.url", "public.file-url", "public.utf8-plain-text"});
  const std::pair<const char*, QByteArray> rows[] = {
      {"text/uri-list", ""},
      {"text/uri-list", "\r\n\r\n#\r\n"},
      {"text/uri-list", QByteArray("\0\xff\xfe\x80", 4)},
      {"text/uri-list", QByteArray(100000, '%')},
      {"text/plain", QByteArray("\xff\xfe\x80\0x", 5)},
      {"application/x-unknown", "bytes"},
      {"", ""},
  };
  for (const auto& [type, bytes] : rows) {
    QMimeData data;
    if (*type != '\0') data.setData(QString::fromLatin1(type), bytes);
    drop(data);
    for (const DropInfo& info : heard_->drops) {
      for (const std::string& url : info.urls)
        EXPECT_TRUE(QUrl::fromEncoded(url.c_str()).isValid());
    }
  }
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
