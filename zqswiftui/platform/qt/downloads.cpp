// ZQSwiftUI, MIT licence; see LICENSE.
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>
#include <cmath>
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

std::string errorOf(const QNetworkReply& reply) {
  const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (status >= 400) return "The server answered with status " + std::to_string(status) + '.';
  if (reply.error() == QNetworkReply::NoError) return {};
  return reply.errorString().toStdString();
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
  QNetworkRequest query(QUrl(toQString(request.url)));
  query.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                     QNetworkRequest::NoLessSafeRedirectPolicy);
  auto transfer = std::make_unique<Transfer>();
  transfer->sizeLimit = request.sizeLimit;
  transfer->answer = std::move(answer);
  transfer->reply = network_->get(query);
  if (request.timeLimit > 0 && std::isfinite(request.timeLimit)) {
    transfer->timeLimit = queue_.postDelayed(
        request.timeLimit, [this, id] { stop(id, "The time limit has passed."); });
  }
  QNetworkReply* reply = transfer->reply;
  QObject* listener = &transfer->listener;
  transfers_.emplace(id, std::move(transfer));
  QObject::connect(reply, &QNetworkReply::readyRead, listener, [this, id, reply] {
    Transfer& running = *transfers_.at(id);
    const QByteArray piece = reply->readAll();
    if (running.bytes.size() + static_cast<std::size_t>(piece.size()) > running.sizeLimit) {
      return stop(id, "The content is larger than the limit.");
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
