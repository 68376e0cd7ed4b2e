// ZQSwiftUI, MIT licence; see LICENSE.
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>
#include <apps/gallery/picture_server.hpp>
#include <cmath>
#include <filesystem>
#include <set>
#include <string_view>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/services/image_codec.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::gallery {
namespace {

constexpr int kWidth = 192, kHeight = 128;
constexpr int kPieces = 10;             // of a slow picture
constexpr int kMostPieces = 300;        // of one that is called endless
constexpr int kBetweenPieces = 100;     // milliseconds
constexpr qsizetype kMostAsked = 8192;  // bytes of a request

// Hills before a sky, of a colour and a shape that the text decides.
Bytes hills(const std::string& text) {
  const auto seed = static_cast<unsigned>(std::hash<std::string>()(text));
  const auto part = [seed](int shift) { return static_cast<int>(seed >> shift & 63); };
  Pixels pixels{kWidth, kHeight, {}};
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      int red = 255 - y / 2, green = 190 + part(0) - y / 2, blue = 120 + 2 * part(6) + y / 8;
      for (int hill = 1; hill <= 3; ++hill) {
        const double wave = std::sin(x * (0.012 + 0.008 * hill) + part(4 * hill) * 0.4);
        if (y < 26 + 26 * hill - 12 * wave) continue;
        red = part(12) + 90 - 28 * hill;
        green = part(18) + 130 - 30 * hill;
        blue = part(24) + 110 - 22 * hill;
      }
      for (const int each : {red, green, blue, 255}) {
        pixels.rgba.push_back(static_cast<std::uint8_t>(std::clamp(each, 0, 255)));
      }
    }
  }
  return Platform::current().imageCodec().encodePng(pixels);
}

QByteArray toWire(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QByteArray head(const char* status, const QByteArray& rest) {
  return QByteArray("HTTP/1.1 ") + status + "\r\nConnection: close\r\n" + rest + "\r\n";
}

QByteArray ok(const char* type, qsizetype length) {
  return head("200 OK", QByteArray("Content-Type: ") + type +
                            "\r\nContent-Length: " + QByteArray::number(length) + "\r\n");
}

// A piece of the bytes each time, then the end; or all of them again and again, for half a minute.
void sendSlowly(QTcpSocket* socket, const QByteArray& bytes, bool ends) {
  auto* clock = new QTimer(socket);
  QObject::connect(clock, &QTimer::timeout, socket, [=, sent = qsizetype{0}]() mutable {
    const qsizetype piece = ends ? bytes.size() / kPieces + 1 : bytes.size();
    socket->write(ends ? bytes.mid(sent, piece) : bytes);
    sent += piece;
    if (sent >= bytes.size() * (ends ? 1 : kMostPieces)) socket->disconnectFromHost();
  });
  clock->start(kBetweenPieces);
}

std::string keptPath(const std::string& address) {
  return fu_getCacheFolderUrl(true)
      .appending("Vendel")
      .appending("ZQURLImage")
      .appending(ZQId::md5(address))
      .path();
}

}  // namespace

class PictureServer::Listener : public QTcpServer {
 public:
  Listener() {
    connect(this, &QTcpServer::newConnection, this, [this] {
      while (QTcpSocket* socket = nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
      }
    });
  }
  ~Listener() override {
    std::error_code ignored;
    for (const std::string& address : addresses_) {
      std::filesystem::remove(keptPath(address), ignored);
    }
  }

  std::string address(const std::string& path) {
    if (!isListening() && !listen(QHostAddress::LocalHost)) return {};
    std::string address = "http://127.0.0.1:" + std::to_string(serverPort()) + path;
    addresses_.insert(address);
    return address;
  }

 private:
  // Whole, though only the first line is looked at: closing before all was read resets the
  // connection, and the answer may be lost with it.
  void read(QTcpSocket* socket) {
    const QByteArray request = socket->peek(kMostAsked);
    if (request.contains("\r\n\r\n")) {
      socket->readAll();
      disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
      answer(socket, request.split(' ').value(1).toStdString());
    } else if (request.size() == kMostAsked) {
      socket->abort();
    }
  }

  void answer(QTcpSocket* socket, const std::string& path) const {
    const auto is = [&](std::string_view beginning) { return path.starts_with(beginning); };
    const QByteArray picture = toWire(hills(path));
    if (is("/slow")) {
      socket->write(ok("image/png", picture.size()));
      return sendSlowly(socket, picture, true);
    }
    if (is("/endless")) {
      socket->write(head("200 OK", "Content-Type: image/png\r\n"));
      return sendSlowly(socket, ".", false);
    }
    if (is("/picture")) {
      socket->write(ok("image/png", picture.size()) + picture);
    } else if (is("/moved")) {
      const QByteArray to = QByteArray::fromStdString("/picture" + path);
      socket->write(head("302 Found", "Content-Length: 0\r\nLocation: " + to + "\r\n"));
    } else if (is("/cut")) {
      socket->write(ok("image/png", picture.size()) + picture.left(picture.size() / 2));
    } else if (is("/text")) {
      const QByteArray text = "No picture, though it says so.";
      socket->write(ok("image/png", text.size()) + text);
    } else {
      socket->write(head("404 Not Found", "Content-Length: 0\r\n"));
    }
    socket->disconnectFromHost();
  }

  std::set<std::string> addresses_;
};

PictureServer::PictureServer() : listener_(std::make_unique<Listener>()) {}

PictureServer::~PictureServer() = default;

std::string PictureServer::address(const std::string& path) const {
  return listener_->address(path);
}

void PictureServer::keepPicture(const std::string& path,
                                std::function<void(const std::string&)> then) const {
  const std::string address = listener_->address(path);
  Queue::execute(false, [path, address, then = std::move(then)]() mutable {
    const Url file = Url::file(keptPath(address));
    // Without it the address has no kept picture, as at its first time.
    if (fu_createParentFolderIfNeeded(file))
      (void)replaceFile(file.path(), hills("old " + path)).ok();
    XMain::post([address, then = std::move(then)] { then(address); });
  });
}

}  // namespace zq::gallery
