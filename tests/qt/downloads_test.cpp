// ZQSwiftUI, MIT licence; see LICENSE.
// Fetching from a server that may be slow, wrong or hostile.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <tests/qt/local_server.hpp>
#include <tests/qt/support.hpp>
#include <thread>
#include <zqswiftui/platform/qt/downloads.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::qt {
namespace {

class QtDownloadsFrom : public testing::Test {
 protected:
  QtDownloadsFrom() { EXPECT_TRUE(server_.start()); }
  // Both ways of asking must answer alike.
  DownloadAnswer fetch(const DownloadRequest& request) {
    const DownloadAnswer answer = fetchLater(request);
    DownloadAnswer waited;
    std::atomic<bool> done{false};
    std::thread other([&] {
      waited = downloads_.fetchAndWait(request);
      done = true;
    });
    EXPECT_TRUE(waitFor([&] { return done.load(); }));
    other.join();
    EXPECT_EQ(waited.ok(), answer.ok()) << request.url << ": " << waited.error;
    EXPECT_TRUE(waited.bytes == answer.bytes) << request.url;
    return answer;
  }
  DownloadAnswer fetchLater(DownloadRequest request) {
    std::optional<DownloadAnswer> answer;
    int answers = 0;
    const std::uint64_t id = downloads_.fetch(std::move(request), [&](DownloadAnswer given) {
      EXPECT_TRUE(zq::Platform::current().mainQueue().isMainThread());
      answer = std::move(given);
      ++answers;
    });
    EXPECT_NE(id, 0U);
    EXPECT_FALSE(answer) << "later, never inside the call";
    if (!waitFor([&] { return answer.has_value(); })) return {{}, "no answer came"};
    settle();
    EXPECT_EQ(answers, 1);
    return *answer;
  }
  static std::string text(const DownloadAnswer& answer) {
    return std::string(answer.bytes.begin(), answer.bytes.end());
  }

  LocalServer server_;
  Downloads downloads_{zq::Platform::current().mainQueue()};
};

TEST_F(QtDownloadsFrom, aServerGivesTheWholeBodyOrASentence) {
  const QByteArray large(3 << 20, 'x');
  server_.set("/small", LocalServer::ok("hello"));
  server_.set("/empty", LocalServer::ok(""));
  server_.set("/large", LocalServer::ok(large));
  server_.set("/endless", "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\nup to the end");
  server_.set(
      "/chunks",
      "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n2\r\nde\r\n0\r\n\r\n");
  server_.set("/missing", "HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\noops");
  server_.set("/broken", "HTTP/1.1 500 Oh\r\nContent-Length: 0\r\n\r\n");
  server_.set("/cut", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this");
  server_.set("/cut-chunks", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\nabc");
  server_.set("/garbage", "this is no answer at all\r\n\r\n");
  server_.set("/nothing", "");
  const struct {
    const char* path;
    std::optional<std::string> expected;
  } rows[] = {{"/small", "hello"},
              {"/empty", ""},
              {"/large", large.toStdString()},
              {"/endless", "up to the end"},
              {"/chunks", "abcde"},
              {"/missing", {}},
              {"/broken", {}},
              {"/cut", {}},
              {"/cut-chunks", {}},
              {"/garbage", {}},
              {"/nothing", {}}};
  for (const auto& row : rows) {
    const DownloadAnswer answer = fetch({server_.url(row.path)});
    EXPECT_EQ(answer.ok(), row.expected.has_value()) << row.path << ": " << answer.error;
    EXPECT_TRUE(text(answer) == row.expected.value_or("")) << row.path;
  }
  EXPECT_NE(fetch({server_.url("/missing")}).error.find("404"), std::string::npos);
}

TEST_F(QtDownloadsFrom, redirectionsAreFollowedToTheEndButNotIntoFiles) {
  const auto to = [](const std::string& where) {
    return QByteArray("HTTP/1.1 302 Found\r\nContent-Length: 4\r\nLocation: ") + where.c_str() +
           "\r\n\r\nbody";
  };
  server_.set("/there", LocalServer::ok("reached"));
  server_.set("/one", to("/there"));
  server_.set("/two", to(server_.url("/one")));
  server_.set("/circle", to("/circle"));
  server_.set("/file", to("file:///etc/hostname"));
  server_.set("/data", to("data:,injected"));
  server_.set("/none", "HTTP/1.1 302 Found\r\nContent-Length: 0\r\n\r\n");
  EXPECT_EQ(text(fetch({server_.url("/one")})), "reached");
  EXPECT_EQ(text(fetch({server_.url("/two")})), "reached");
  for (const char* path : {"/circle", "/file", "/data"}) {
    const DownloadAnswer answer = fetch({server_.url(path)});
    EXPECT_FALSE(answer.ok()) << path;
    EXPECT_TRUE(answer.bytes.empty()) << path;
  }
}

TEST_F(QtDownloadsFrom, theLimitsEndWhatIsTooLongOrTooLarge) {
  server_.set("/five", LocalServer::ok("12345"));
  server_.set("/lies", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n1234567890");
  EXPECT_TRUE(fetch({server_.url("/five"), 60, 5}).ok());
  const DownloadAnswer large = fetch({server_.url("/five"), 60, 4});
  EXPECT_NE(large.error.find("larger"), std::string::npos) << large.error;
  EXPECT_TRUE(large.bytes.empty());
  EXPECT_EQ(text(fetch({server_.url("/lies"), 60, 99})), "12345");
  const DownloadAnswer slow = fetch({server_.url("/never"), 0.05});
  EXPECT_NE(slow.error.find("time limit"), std::string::npos) << slow.error;
  // No limit at all, in every way of saying so.
  for (const double none : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(fetch({server_.url("/five"), none}).error, "") << none;
  }
}

TEST_F(QtDownloadsFrom, streamsThatNeverEndAreHungUpOn) {
  const QByteArray head = "HTTP/1.1 200 OK\r\n";
  const QByteArray text(64 << 10, 'x');
  server_.setEndless("/endless", head + "Connection: close\r\n\r\n", text);
  server_.setEndless("/chunks", head + "Transfer-Encoding: chunked\r\n\r\n",
                     "10000\r\n" + text + "\r\n");
  server_.setEndless("/longer", head + "Content-Length: 5\r\n\r\n", text);
  server_.setEndless("/trickle", head + "Content-Length: 1000000000\r\n\r\n", "x");
  server_.setEndless("/head", head + "X: ", "x");
  for (const char* path : {"/endless", "/chunks"}) {
    const DownloadAnswer answer = fetch({server_.url(path), 60, 1 << 20});
    EXPECT_NE(answer.error.find("larger"), std::string::npos) << path << ": " << answer.error;
    EXPECT_TRUE(answer.bytes.empty()) << path;
  }
  EXPECT_EQ(text.left(5).toStdString(), this->text(fetch({server_.url("/longer"), 60, 1 << 20})));
  for (const char* path : {"/trickle", "/head"}) {
    const DownloadAnswer answer = fetch({server_.url(path), 0.2});
    EXPECT_FALSE(answer.ok()) << path;
  }
  EXPECT_TRUE(waitFor([&] { return server_.disconnections == server_.connections; }));
}

TEST_F(QtDownloadsFrom, whatIsCancelledHangsUpAndNeverAnswers) {
  bool answered = false;
  const auto note = [&](const DownloadAnswer&) { answered = true; };
  const std::uint64_t begun = downloads_.fetch({server_.url("/never"), 0}, note);
  ASSERT_TRUE(waitFor([&] { return server_.connections == 1; }));
  downloads_.cancel(begun);
  EXPECT_TRUE(waitFor([&] { return server_.disconnections == 1; }));
  downloads_.cancel(begun);
  downloads_.cancel(0);
  downloads_.cancel(123456);
  const std::uint64_t fromThread = downloads_.fetch({server_.url("/never"), 0}, note);
  ASSERT_TRUE(waitFor([&] { return server_.connections == 2; }));
  std::thread([&] { downloads_.cancel(fromThread); }).join();
  EXPECT_TRUE(waitFor([&] { return server_.disconnections == 2; }));
  EXPECT_FALSE(answered);
}

TEST_F(QtDownloadsFrom, anAnswerMayStartAndCancelOthers) {
  server_.set("/a", LocalServer::ok("a"));
  std::string heard;
  std::uint64_t other = 0;
  const auto second = [&](const DownloadAnswer& answer) { heard += text(answer) + "2"; };
  other = downloads_.fetch({server_.url("/never"), 0}, [&](const auto&) { heard += "!"; });
  downloads_.fetch({server_.url("/a")}, [&](const DownloadAnswer& answer) {
    heard += text(answer) + "1";
    downloads_.cancel(other);
    downloads_.fetch({server_.url("/a")}, second);
  });
  downloads_.fetch({server_.url("/a")}, nullptr);
  EXPECT_TRUE(waitFor([&] { return heard == "a1a2"; })) << heard;
}

TEST_F(QtDownloadsFrom, theServiceMayEndWithTransfersUnderWay) {
  bool answered = false;
  const auto alive = std::make_shared<int>(0);
  {
    Downloads brief(zq::Platform::current().mainQueue());
    const auto note = [&answered, alive](const DownloadAnswer&) { answered = true; };
    brief.fetch({server_.url("/never"), 0}, note);
    brief.fetch({server_.url("/never"), 30}, note);
    ASSERT_TRUE(waitFor([&] { return server_.connections == 2; }));
    brief.fetch({server_.url("/later")}, note);  // not begun yet
  }
  EXPECT_TRUE(waitFor([&] { return server_.disconnections == 2; }));
  EXPECT_TRUE(waitFor([&] { return alive.use_count() == 1; }));
  EXPECT_FALSE(answered);
}

TEST_F(QtDownloadsFrom, theInterfaceThreadMayWaitItself) {
  const DownloadAnswer data = downloads_.fetchAndWait({"data:,hello"});
  EXPECT_EQ(text(data), "hello") << data.error;
  EXPECT_FALSE(downloads_.fetchAndWait({"file:///no/such/file"}).ok());
  EXPECT_FALSE(downloads_.fetchAndWait({server_.url("/never"), 0.05}).ok())
      << "our own server cannot answer while we wait";
}

}  // namespace
}  // namespace zq::qt
