// ZQSwiftUI, MIT licence; see LICENSE.
#include <xcb/xcb.h>

#include <QDropEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <utility>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/drop_offer.hpp>
#include <zqswiftui/platform/qt/foreign_drop.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/qt/selection_reader.hpp>

namespace zq::qt {
namespace {

constexpr std::chrono::seconds kDropPatience{1};
// No character of UTF-16 takes more bytes of UTF-8.
constexpr std::size_t kMostTextBytes = std::size_t{3} * kLongestText;

xcb_connection_t* display() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

// A message to one of our windows among those of these types; null where it is another event.
const xcb_client_message_event_t* messageOf(const std::vector<std::uint32_t>& types,
                                            const QByteArray& kind, const void* event) {
  if (kind != "xcb_generic_event_t") return nullptr;
  const auto* message = static_cast<const xcb_client_message_event_t*>(event);
  const bool fits = (message->response_type & 0x7F) == XCB_CLIENT_MESSAGE &&
                    std::find(types.begin(), types.end(), message->type) != types.end();
  return fits ? message : nullptr;
}

// Qt knows one drag at a time, and answers the one it heard of last: while a drop is waited for,
// what other drags say is put aside, to be heard afterwards.
class OthersAside : private QAbstractNativeEventFilter {
 public:
  explicit OthersAside(const std::vector<std::uint32_t>& messages) : messages_(messages) {
    QCoreApplication::instance()->installNativeEventFilter(this);
  }
  ~OthersAside() override {
    if (QCoreApplication::instance() == nullptr) return;
    QCoreApplication::instance()->removeNativeEventFilter(this);
    for (const auto& message : aside_) {
      xcb_send_event(display(), 0, message.window, XCB_EVENT_MASK_NO_EVENT,
                     reinterpret_cast<const char*>(&message));
    }
    xcb_flush(display());
  }

 private:
  bool nativeEventFilter(const QByteArray& type, void* event, qintptr*) override {
    const auto* message = messageOf(messages_, type, event);
    if (message != nullptr) aside_.push_back(*message);
    return message != nullptr;
  }

  const std::vector<std::uint32_t> messages_;
  std::vector<xcb_client_message_event_t> aside_;
};

// Asks the program, and lets the event loop go on until it answers.
class Fetching final : public DropData {
 public:
  explicit Fetching(std::uint32_t time) : time_(time) {}

  std::optional<QByteArray> bytes(const QString& format) override {
    // Of a list that is cut the last line may not be whole; addresses and titles are not cut.
    const bool lines = format == kUriList;
    const auto found = ask({format.toStdString()}, lines);
    if (!found) return std::nullopt;
    QByteArray bytes(reinterpret_cast<const char*>(found->bytes.data()),
                     static_cast<qsizetype>(found->bytes.size()));
    if (lines && found->bytes.size() == kMostTextBytes) bytes.truncate(bytes.lastIndexOf('\n') + 1);
    return bytes;
  }
  std::optional<QString> text() override {
    const auto found = ask(SelectionReader::textTypes(), true);
    if (!found) return std::nullopt;
    return toQString(SelectionReader::text(*found));
  }
  bool late() const { return late_; }

 private:
  using Clock = SelectionReader::Clock;
  using Found = std::optional<SelectionReader::Found>;

  Found ask(std::vector<std::string> types, bool cut) {
    if (late_) return std::nullopt;
    if (!reader_) reader_ = SelectionReader::create();
    late_ = !reader_;
    if (late_) return std::nullopt;
    QEventLoop loop;
    Found found;
    bool answered = false;
    std::mutex mutex;  // once it was had after the answer, the reader has let go of these
    reader_->read({.selection = "XdndSelection",
                   .types = std::move(types),
                   .mostBytes = kMostTextBytes,
                   .cut = cut,
                   .asksTypes = false,
                   .time = time_,
                   .deadline = deadline_},
                  [&](Found given) {
                    const std::lock_guard lock(mutex);
                    found = std::move(given);
                    answered = true;
                    QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
                  });
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now());
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    timer.callOnTimeout(&loop, &QEventLoop::quit);
    timer.start(std::max(left, std::chrono::milliseconds(0)));
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    mutex.lock();
    const bool ended = answered;
    mutex.unlock();
    if (!ended) reader_.reset();  // its answer would find nobody
    late_ = !found && (!ended || Clock::now() >= deadline_);
    return found;
  }

  const std::uint32_t time_;
  const Clock::time_point deadline_ = Clock::now() + kDropPatience;
  std::unique_ptr<SelectionReader> reader_;
  bool late_ = false;
};

std::vector<std::uint32_t> messagesOf(xcb_connection_t* display) {
  std::vector<xcb_intern_atom_cookie_t> asked;
  for (const std::string_view name : {"XdndDrop", "XdndEnter", "XdndPosition", "XdndLeave"}) {
    asked.push_back(
        xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data()));
  }
  std::vector<std::uint32_t> messages;
  for (const auto cookie : asked) {
    auto* reply = xcb_intern_atom_reply(display, cookie, nullptr);
    if (reply != nullptr) messages.push_back(reply->atom);
    std::free(reply);  // NOLINT: the library made it with malloc
  }
  return messages;
}

}  // namespace

std::unique_ptr<ForeignDrop> ForeignDrop::create(HostWidget& host) {
  xcb_connection_t* x11 = display();
  if (x11 == nullptr) return nullptr;
  auto messages = messagesOf(x11);
  if (messages.empty()) return nullptr;
  return std::unique_ptr<ForeignDrop>(new ForeignDrop(host, std::move(messages)));
}

ForeignDrop::ForeignDrop(HostWidget& host, std::vector<std::uint32_t> messages)
    : host_(host), messages_(std::move(messages)) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

ForeignDrop::~ForeignDrop() {
  if (QCoreApplication::instance() != nullptr) {
    QCoreApplication::instance()->removeNativeEventFilter(this);
  }
}

void ForeignDrop::entered() {
  over_ = true;
  *waiting_ = {};
  if (QWindow* window = host_.window()->windowHandle()) window->installEventFilter(this);
}

std::optional<ForeignDrop::Fetched> ForeignDrop::take() {
  return std::exchange(waiting_->fetched, std::nullopt);
}

// A program that drags gives its data to whoever names the time of the drop.
bool ForeignDrop::nativeEventFilter(const QByteArray& type, void* event, qintptr*) {
  const auto* message = messageOf({messages_.front()}, type, event);
  if (message != nullptr) time_ = message->data.data32[2];
  return false;
}

bool ForeignDrop::eventFilter(QObject* window, QEvent* event) {
  if (event->type() != QEvent::Drop || !std::exchange(over_, false)) return false;
  auto& drop = static_cast<QDropEvent&>(*event);
  if (drop.source() != nullptr) return false;
  const auto waiting = waiting_;  // this may go meanwhile, and its host, and the window
  const auto watch = connect(window, &QObject::destroyed, [waiting] { waiting->gone = true; });
  waiting->fetched = fetch(drop);
  disconnect(watch);
  if (!waiting->gone) {
    // Qt answers the program in the name of the native window, which one that was closed has not.
    auto* stands = qobject_cast<QWindow*>(window);
    if (stands != nullptr && stands->handle() == nullptr) stands->create();
    return false;
  }
  drop.setDropAction(Qt::IgnoreAction);
  drop.ignore();
  return true;
}

ForeignDrop::Fetched ForeignDrop::fetch(const QDropEvent& drop) const {
  const QPoint at = host_.mapFromGlobal(host_.window()->mapToGlobal(drop.position().toPoint()));
  Fetched fetched;
  fetched.types = host_.host().dropTypes({toPoint(QPointF(at)), offeredTypes(*drop.mimeData())});
  QStringList formats = drop.mimeData()->formats();
  if (formats.contains(kUriList)) formats.push_back(kMozUrl);  // Qt does not tell them apart
  const OthersAside aside(messages_);
  Fetching data(time_);
  fetched.items = offeredItems(formats, fetched.types, data);
  fetched.late = data.late();
  return fetched;
}

}  // namespace zq::qt
