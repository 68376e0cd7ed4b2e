// ZQSwiftUI, MIT licence; see LICENSE.
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <zqswiftui/platform/qt/selection_reader.hpp>

namespace zq::qt {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{2};
constexpr std::uint32_t kWholeProperty = 1U << 28;  // in units of four bytes
constexpr int kProperties = 16;

template <class T>
struct Freed {
  void operator()(T* reply) const { std::free(reply); }  // NOLINT: the library made it with malloc
};
template <class T>
using Reply = std::unique_ptr<T, Freed<T>>;

template <class T>
Reply<T> owned(T* reply) {
  return Reply<T>(reply);
}

}  // namespace

// The conversation with the display. The reader's thread, but for interrupt.
class SelectionReader::Connection {
 public:
  Connection() : display_(xcb_connect(nullptr, nullptr)), wake_(eventfd(0, EFD_CLOEXEC)) {}
  ~Connection() {
    xcb_disconnect(display_);
    close(wake_);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  bool open();
  void interrupt() const { eventfd_write(wake_, 1); }
  std::optional<Found> read(const std::vector<std::string>& types, std::size_t mostBytes);

 private:
  struct Content {
    xcb_atom_t type = XCB_ATOM_NONE;
    Bytes bytes;
  };
  xcb_atom_t atom(const std::string& name);
  std::optional<Bytes> convert(xcb_atom_t target, std::size_t mostBytes);
  std::optional<Bytes> collect(xcb_atom_t property, std::size_t mostBytes);
  std::optional<Content> take(xcb_atom_t property);
  // The next event that fits, in time; what does not fit is put away.
  template <class Fits>
  bool await(const Fits& fits);
  Reply<xcb_generic_event_t> nextEvent(SteadyClock::time_point deadline);

  xcb_connection_t* display_;
  int wake_;
  xcb_window_t window_ = XCB_NONE;
  xcb_atom_t clipboard_ = XCB_ATOM_NONE;
  xcb_atom_t incremental_ = XCB_ATOM_NONE;
  int conversions_ = 0;
};

bool SelectionReader::Connection::open() {
  if (wake_ < 0 || xcb_connection_has_error(display_) != 0) return false;
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display_)).data;
  if (screen == nullptr) return false;
  window_ = xcb_generate_id(display_);
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(display_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK, &events);
  clipboard_ = atom("CLIPBOARD");
  incremental_ = atom("INCR");
  return xcb_connection_has_error(display_) == 0;
}

xcb_atom_t SelectionReader::Connection::atom(const std::string& name) {
  const auto cookie =
      xcb_intern_atom(display_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const auto reply = owned(xcb_intern_atom_reply(display_, cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::optional<SelectionReader::Found> SelectionReader::Connection::read(
    const std::vector<std::string>& types, std::size_t mostBytes) {
  const auto targets = convert(atom("TARGETS"), mostBytes);
  if (!targets || targets->empty()) return std::nullopt;
  std::vector<xcb_atom_t> offered(targets->size() / sizeof(xcb_atom_t));
  std::memcpy(offered.data(), targets->data(), offered.size() * sizeof(xcb_atom_t));
  for (const std::string& type : types) {
    const xcb_atom_t wanted = atom(type);
    if (std::find(offered.begin(), offered.end(), wanted) == offered.end()) continue;
    auto bytes = convert(wanted, mostBytes);
    if (!bytes) return std::nullopt;
    return Found{type, std::move(*bytes)};
  }
  return std::nullopt;
}

// Each conversion has another property than those before, so that an answer that comes too late
// is not taken for the next one.
std::optional<Bytes> SelectionReader::Connection::convert(xcb_atom_t target,
                                                          std::size_t mostBytes) {
  conversions_ = (conversions_ + 1) % kProperties;
  const xcb_atom_t property = atom("ZQ_SELECTION_" + std::to_string(conversions_));
  xcb_delete_property(display_, window_, property);
  xcb_convert_selection(display_, window_, clipboard_, target, property, XCB_CURRENT_TIME);
  bool given = false;
  const bool answered = await([&](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7F) != XCB_SELECTION_NOTIFY) return false;
    const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    given = notice.property == property;
    if (given) return true;
    if (notice.property == XCB_ATOM_NONE) return notice.target == target;
    xcb_delete_property(display_, window_, notice.property);
    return false;
  });
  return answered && given ? collect(property, mostBytes) : std::nullopt;
}

// Large contents come in pieces: each is fetched and deleted, which asks for the next one, and
// an empty one is the end.
std::optional<Bytes> SelectionReader::Connection::collect(xcb_atom_t property,
                                                          std::size_t mostBytes) {
  auto content = take(property);
  if (!content) return std::nullopt;
  if (content->type != incremental_) {
    if (content->bytes.size() > mostBytes) return std::nullopt;
    return std::move(content->bytes);
  }
  Bytes all;
  while (all.size() <= mostBytes) {
    const bool came = await([&](const xcb_generic_event_t& event) {
      if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY) return false;
      const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      return notice.atom == property && notice.state == XCB_PROPERTY_NEW_VALUE;
    });
    const auto piece = came ? take(property) : std::nullopt;
    if (!piece) return std::nullopt;
    if (piece->bytes.empty()) return all;
    all.insert(all.end(), piece->bytes.begin(), piece->bytes.end());
  }
  return std::nullopt;
}

std::optional<SelectionReader::Connection::Content> SelectionReader::Connection::take(
    xcb_atom_t property) {
  const auto cookie = xcb_get_property(display_, 1, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                       kWholeProperty);
  const auto reply = owned(xcb_get_property_reply(display_, cookie, nullptr));
  if (!reply) return std::nullopt;
  const auto* begin = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
  const int length = xcb_get_property_value_length(reply.get());
  return Content{reply->type, Bytes(begin, begin + length)};
}

template <class Fits>
bool SelectionReader::Connection::await(const Fits& fits) {
  const auto deadline = SteadyClock::now() + kPatience;
  while (const auto event = nextEvent(deadline)) {
    if (fits(*event)) return true;
  }
  return false;
}

Reply<xcb_generic_event_t> SelectionReader::Connection::nextEvent(
    SteadyClock::time_point deadline) {
  xcb_flush(display_);
  while (xcb_connection_has_error(display_) == 0) {
    if (auto event = owned(xcb_poll_for_event(display_))) return event;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - SteadyClock::now());
    if (left.count() <= 0) return nullptr;
    pollfd both[] = {{xcb_get_file_descriptor(display_), POLLIN, 0}, {wake_, POLLIN, 0}};
    poll(both, 2, static_cast<int>(left.count()));
    if (both[1].revents != 0) return nullptr;
  }
  return nullptr;
}

std::unique_ptr<SelectionReader> SelectionReader::create() {
  if (QGuiApplication::platformName() != QLatin1String("xcb")) return nullptr;
  auto connection = std::make_unique<Connection>();
  if (!connection->open()) return nullptr;
  return std::unique_ptr<SelectionReader>(new SelectionReader(std::move(connection)));
}

SelectionReader::SelectionReader(std::unique_ptr<Connection> connection)
    : connection_(std::move(connection)), thread_([this] { run(); }) {}

SelectionReader::~SelectionReader() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  asked_.notify_all();
  connection_->interrupt();
  thread_.join();
}

void SelectionReader::read(std::vector<std::string> types, std::size_t mostBytes, Answer answer) {
  {
    const std::lock_guard lock(mutex_);
    questions_.push_back({std::move(types), mostBytes, std::move(answer)});
  }
  asked_.notify_one();
}

void SelectionReader::run() {
  std::unique_lock lock(mutex_);
  while (true) {
    asked_.wait(lock, [this] { return stopping_ || !questions_.empty(); });
    if (stopping_) return;
    const Question question = std::move(questions_.front());
    questions_.pop_front();
    lock.unlock();
    question.answer(connection_->read(question.types, question.mostBytes));
    lock.lock();
  }
}

}  // namespace zq::qt
