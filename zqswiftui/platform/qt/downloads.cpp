// ZQSwiftUI, MIT licence; see LICENSE.
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <memory>
#include <thread>
#include <utility>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/downloads.hpp>

namespace zq::qt {

struct Downloads::Transfer {
  QNetworkReply* reply = nullptr;
  QObject listener;  // our ends of the reply's signals; it has others that its abort relies on
  DelayedCallId timeLimit = 0;
  std::uint64_t sizeLimit = 0;
  std::string stopped;  // why we ended it ourselves
  Bytes bytes;
  std::function<void(DownloadAnswer)> answer;
};

namespace {

constexpr const char* kTooSlow = "The time limit has passed.";
constexpr const char* kTooLarge = "The content is larger than the limit.";

std::string errorOf(const QNetworkReply& reply) {
  const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (status >= 400) return "The server answered with status " + std::to_string(status) + '.';
  if (reply.error() == QNetworkReply::NoError) return {};
  return reply.errorString().toStdString();
}

QNetworkRequest queryOf(const DownloadRequest& request) {
  QNetworkRequest query(QUrl(toQString(request.url)));
  query.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                     QNetworkRequest::NoLessSafeRedirectPolicy);
  return query;
}

bool isLimited(double seconds) {
  return seconds > 0 && std::isfinite(seconds);
}

// On a thread that has no event loop of its own.
DownloadAnswer fetchHere(const DownloadRequest& request) {
  QNetworkAccessManager network;
  QEventLoop loop;
  QTimer limit;
  DownloadAnswer answer;
  const std::unique_ptr<QNetworkReply> reply(network.get(queryOf(request)));
  const auto stop = [&](const char* error) {
    if (answer.error.empty()) answer.error = error;
    reply->abort();  // reports itself as finished
  };
  limit.setSingleShot(true);
  limit.callOnTimeout(&loop, [&] { stop(kTooSlow); });
  const auto take = [&] {
    const QByteArray piece = reply->readAll();
    answer.bytes.insert(answer.bytes.end(), piece.begin(), piece.end());
    if (answer.bytes.size() > request.sizeLimit) stop(kTooLarge);
  };
  QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, take);
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
  if (isLimited(request.timeLimit)) {
    limit.start(static_cast<int>(std::min(std::ceil(request.timeLimit * 1000), 2e9)));
  }
  if (!reply->isFinished()) loop.exec();
  if (reply->isOpen()) take();  // what was there before anybody could listen
  if (answer.error.empty()) answer.error = errorOf(*reply);
  if (!answer.ok()) answer.bytes.clear();
  return answer;
}

}  // namespace

Downloads::Downloads(zq::MainQueue& queue) : queue_(queue) {}

Downloads::~Downloads() {
  dropAll();
}

void Downloads::dropAll() {
  while (!transfers_.empty()) drop(transfers_.begin()->first);
}

std::uint64_t Downloads::fetch(DownloadRequest request,
                               std::function<void(DownloadAnswer)> answer) {
  const std::uint64_t id = ++lastId_;
  {
    const std::scoped_lock lock(mutex_);
    waiting_.insert(id);
  }
  queue_.post([this, alive = std::weak_ptr(alive_), id, request = std::move(request),
               answer = std::move(answer)]() mutable {
    if (!alive.expired()) start(id, request, std::move(answer));
  });
  return id;
}

// A thread of its own: an event loop on the caller's could run into the caller's other work.
DownloadAnswer Downloads::fetchAndWait(const DownloadRequest& request) {
  DownloadAnswer answer;
  std::thread([&] { answer = fetchHere(request); }).join();
  return answer;
}

void Downloads::cancel(std::uint64_t id) {
  {
    const std::scoped_lock lock(mutex_);
    if (waiting_.erase(id) > 0) return;
  }
  if (queue_.isMainThread()) return drop(id);
  queue_.post([this, alive = std::weak_ptr(alive_), id] {
    if (!alive.expired()) drop(id);
  });
}

void Downloads::start(std::uint64_t id, const DownloadRequest& request,
                      std::function<void(DownloadAnswer)> answer) {
  {
    const std::scoped_lock lock(mutex_);
    if (waiting_.erase(id) == 0) return;  // cancelled
  }
  if (!network_) network_ = std::make_unique<QNetworkAccessManager>();
  auto transfer = std::make_unique<Transfer>();
  transfer->sizeLimit = request.sizeLimit;
  transfer->answer = std::move(answer);
  transfer->reply = network_->get(queryOf(request));
  if (isLimited(request.timeLimit)) {
    transfer->timeLimit = queue_.postDelayed(request.timeLimit, [this, id] { stop(id, kTooSlow); });
  }
  QNetworkReply* reply = transfer->reply;
  QObject* listener = &transfer->listener;
  transfers_.emplace(id, std::move(transfer));
  QObject::connect(reply, &QNetworkReply::readyRead, listener, [this, id, reply] {
    Transfer& running = *transfers_.at(id);
    const QByteArray piece = reply->readAll();
    if (running.bytes.size() + static_cast<std::size_t>(piece.size()) > running.sizeLimit) {
      return stop(id, kTooLarge);
    }
    running.bytes.insert(running.bytes.end(), piece.begin(), piece.end());
  });
  QObject::connect(reply, &QNetworkReply::finished, listener, [this, id] { finish(id); });
}

void Downloads::stop(std::uint64_t id, std::string error) {
  const auto found = transfers_.find(id);
  if (found == transfers_.end()) return;
  found->second->stopped = std::move(error);
  found->second->reply->abort();  // reports itself as finished
}

void Downloads::finish(std::uint64_t id) {
  const auto found = transfers_.find(id);
  if (found == transfers_.end()) return;
  Transfer& transfer = *found->second;
  DownloadAnswer answer;
  answer.error = transfer.stopped.empty() ? errorOf(*transfer.reply) : transfer.stopped;
  if (answer.ok()) answer.bytes = std::move(transfer.bytes);
  const auto callback = std::move(transfer.answer);
  drop(id);
  if (callback) callback(std::move(answer));
}

void Downloads::drop(std::uint64_t id) {
  const auto found = transfers_.find(id);
  if (found == transfers_.end()) return;
  const std::unique_ptr<Transfer> transfer = std::move(found->second);
  transfers_.erase(found);
  queue_.cancel(transfer->timeLimit);
  QObject::disconnect(transfer->reply, nullptr, &transfer->listener, nullptr);
  transfer->reply->abort();
  transfer->reply->deleteLater();
}

}  // namespace zq::qt
