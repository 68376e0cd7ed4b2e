// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <utility>
#include <zqswiftui/bindings/change_notice.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq::detail {

struct ChangeNotice::Line {
  std::atomic<bool> waiting{false};
  Signal<> due;
};

// The work that waits. Where it is dropped with the platform's queue, the next change posts anew.
class ChangeNotice::Ticket {
 public:
  explicit Ticket(const std::shared_ptr<Line>& line) : line_(line) {}
  Ticket(const Ticket&) = delete;
  Ticket& operator=(const Ticket&) = delete;
  ~Ticket() { take(); }

  void use() {
    if (const auto line = take()) line->due.send();
  }

 private:
  // Open for the next before anything is told: a change that comes now is told again.
  std::shared_ptr<Line> take() {
    auto line = std::exchange(line_, {}).lock();
    if (line) line->waiting = false;
    return line;
  }
  std::weak_ptr<Line> line_;
};

ChangeNotice::ChangeNotice(ObservableObject& owner)
    : line_(std::make_shared<Line>()),
      heard_(line_->due.connect([&owner] { owner.willChange.send(); })) {}

void ChangeNotice::post() {
  if (line_->waiting.exchange(true)) return;
  XMain::executeWhileThere([ticket = std::make_shared<Ticket>(line_.pointer())] { ticket->use(); });
}

}  // namespace zq::detail
