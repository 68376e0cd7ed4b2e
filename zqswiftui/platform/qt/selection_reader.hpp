// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>
#include <zqswiftui/platform/services/bytes.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq::qt {

// What another program has on the clipboard of an X display, or drags. It must be asked for, and
// one that hangs does not answer: so this waits on a thread and a connection of its own, two
// seconds for each piece. Questions are answered one after another, in order. Any thread may ask.
class SelectionReader {
 public:
  using Clock = std::chrono::steady_clock;
  struct Found {
    std::string type;  // the one that was chosen
    Bytes bytes;
  };
  using Answer = std::function<void(std::optional<Found>)>;

  struct Question {
    std::string selection = "CLIPBOARD";
    std::vector<std::string> types{};  // the best first
    std::size_t mostBytes = 0;
    bool cut = false;        // what is longer is cut; otherwise it is none
    bool asksTypes = true;   // what there is; otherwise each type is tried, up to the first given
    std::uint32_t time = 0;  // of the event that the question follows; 0 is now
    Clock::time_point deadline{};  // for all of it
  };

  // Null where the display is none of X.
  static std::unique_ptr<SelectionReader> create();
  ~SelectionReader();
  SelectionReader(const SelectionReader&) = delete;
  SelectionReader& operator=(const SelectionReader&) = delete;

  // The content as the first of the types that its owner offers; absent where there is none or no
  // answer. Answers on the reader's own thread; not at all once the reader has gone.
  void read(Question question, Answer answer);

  // The types that texts come in, and the text of one of them, in UTF-8.
  static std::vector<std::string> textTypes();
  static std::string text(const Found& found);

 private:
  class Connection;
  explicit SelectionReader(std::unique_ptr<Connection> connection);
  void run();

  std::unique_ptr<Connection> connection_;
  std::mutex mutex_;
  std::condition_variable asked_;
  std::deque<std::pair<Question, Answer>> questions_;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace zq::qt
