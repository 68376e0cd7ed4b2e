// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <string>

namespace zq::qt {

// A server for one test: each path has an answer, written as it goes over the wire. A path
// without one is never answered.
class LocalServer : public QTcpServer {
 public:
  LocalServer() {
    connect(this, &QTcpServer::newConnection, this, [this] {
      while (QTcpSocket* socket = nextPendingConnection()) {
        ++connections;
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(*socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this] { ++disconnections; });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
      }
    });
  }
  bool start() { return listen(QHostAddress::LocalHost); }
  std::string url(const char* path) const {
    return "http://127.0.0.1:" + std::to_string(serverPort()) + path;
  }
  // The connection ends after the answer, so a body needs no length.
  void set(const QByteArray& path, const QByteArray& wire) { answers_[path] = wire; }
  // Whoever asks for a path that is held waits until it is not.
  void hold(const QByteArray& path, bool held) {
    if (held) {
      held_.insert(path, {});
      return;
    }
    for (const QPointer<QTcpSocket>& socket : held_.take(path)) {
      if (socket) answer(*socket, path);
    }
  }
  // After its head an answer of that piece again and again, each as soon as the last one is gone.
  void setEndless(const QByteArray& path, const QByteArray& head, const QByteArray& piece) {
    answers_[path] = head;
    pieces_[path] = piece;
  }
  static QByteArray ok(const QByteArray& body) {
    return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\n\r\n" + body;
  }

  int connections = 0;
  int disconnections = 0;

 private:
  void answer(QTcpSocket& socket) {
    const QByteArray path = socket.readAll().split(' ').value(1);
    if (held_.contains(path)) return held_[path].append(&socket);
    answer(socket, path);
  }
  void answer(QTcpSocket& socket, const QByteArray& path) {
    const auto found = answers_.constFind(path);
    if (found == answers_.constEnd()) return;
    if (const QByteArray piece = pieces_.value(path); !piece.isEmpty()) {
      connect(&socket, &QTcpSocket::bytesWritten, &socket,
              [&socket, piece] { socket.write(piece); });
      socket.write(*found);
      return;
    }
    socket.write(*found);
    socket.disconnectFromHost();
  }

  QHash<QByteArray, QByteArray> answers_;
  QHash<QByteArray, QByteArray> pieces_;
  QHash<QByteArray, QList<QPointer<QTcpSocket>>> held_;
};

}  // namespace zq::qt
