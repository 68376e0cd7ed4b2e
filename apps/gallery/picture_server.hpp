// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zq::gallery {

// Pictures from far away, as near as this machine: a server of HTTP on the loopback, at a port
// that the system chooses, on the event loop of the interface thread. It listens from the first
// address that is asked for until it goes, and then takes the pictures of its addresses out of the
// cache. What it answers is in the path, which may go on as it likes; a picture is drawn by the
// whole path, so the same path always shows the same one.
//   /picture  at once                     /moved    by way of another address
//   /slow     in pieces, over a second    /endless  for half a minute, and no picture
//   /cut      half of it, then no more    /text     a text that claims to be one
// Anything else is not found.
class PictureServer {
 public:
  PictureServer();
  ~PictureServer();
  PictureServer(const PictureServer&) = delete;
  PictureServer& operator=(const PictureServer&) = delete;

  // The address of a path; none where no port can be had.
  std::string address(const std::string& path) const;
  // The same, once a picture of it lies in the cache as if an earlier process had left it there.
  void keepPicture(const std::string& path, std::function<void(const std::string&)> then) const;

 private:
  class Listener;
  std::unique_ptr<Listener> listener_;
};

// The server that pages ask; null: nobody answers.
struct PictureServerKey {
  using Value = std::shared_ptr<const PictureServer>;
  static Value defaultValue() { return nullptr; }
};

}  // namespace zq::gallery
