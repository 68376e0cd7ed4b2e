// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>
#include <zqswiftui/platform/services/bytes.hpp>

namespace zq::qt {

// What another program has on the clipboard of an X display. It must be asked for, and one that
// hangs does not answer: so this waits on a thread and a connection of its own, two seconds for
// each piece. Questions are answered one after another, in order. Any thread may ask.
class SelectionReader {
 public:
  struct Found {
    std::string type;  // the one that was chosen
    Bytes bytes;
  };
  using Answer = std::function<void(std::optional<Found>)>;

  // Null where the display is none of X.
  static std::unique_ptr<SelectionReader> create();
  ~SelectionReader();
  SelectionReader(const SelectionReader&) = delete;
  SelectionReader& operator=(const SelectionReader&) = delete;

  // The content as the first of these types that its owner offers, at most that many bytes;
  // absent where there is none or no answer. Answers on the reader's own thread.
  void read(std::vector<std::string> types, std::size_t mostBytes, Answer answer);

 private:
  class Connection;
  struct Question {
    std::vector<std::string> types;
    std::size_t mostBytes;
    Answer answer;
  };
  explicit SelectionReader(std::unique_ptr<Connection> connection);
  void run();

  std::unique_ptr<Connection> connection_;
  std::mutex mutex_;
  std::condition_variable asked_;
  std::deque<Question> questions_;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace zq::qt
