// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QByteArray>
#include <QHash>
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
  static QByteArray ok(const QByteArray& body) {
    return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\n\r\n" + body;
  }

  int connections = 0;
  int disconnections = 0;

 private:
  void answer(QTcpSocket& socket) {
    const QByteArray path = socket.readAll().split(' ').value(1);
    const auto found = answers_.constFind(path);
    if (found == answers_.constEnd()) return;
    socket.write(*found);
    socket.disconnectFromHost();
  }

  QHash<QByteArray, QByteArray> answers_;
};

}  // namespace zq::qt
