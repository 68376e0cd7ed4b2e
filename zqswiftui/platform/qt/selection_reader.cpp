// ZQSwiftUI, MIT licence; see LICENSE.
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QString>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <zqswiftui/platform/qt/selection_reader.hpp>

namespace zq::qt {
namespace {

constexpr std::chrono::seconds kReadPatience{2};
constexpr int kProperties = 16;
constexpr const char* kLatinText = "STRING";

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
  void interrupt() {
    interrupted_ = true;
    eventfd_write(wake_, 1);
  }
  std::optional<Found> read(const Question& question);

 private:
  struct Content {
    xcb_atom_t type = XCB_ATOM_NONE;
    Bytes bytes;
  };
  xcb_atom_t atom(const std::string& name);
  std::optional<std::vector<xcb_atom_t>> offered(const Question& question);
  std::optional<Bytes> convert(xcb_atom_t target, const Question& question);
  std::optional<Bytes> collect(xcb_atom_t property, const Question& question);
  std::optional<Content> take(xcb_atom_t property, std::size_t mostBytes);
  // The next event that fits, in time; what does not fit is put away.
  template <class Fits>
  bool await(Clock::time_point deadline, const Fits& fits);
  Reply<xcb_generic_event_t> nextEvent(Clock::time_point deadline);

  xcb_connection_t* display_;
  int wake_;
  std::atomic<bool> interrupted_ = false;
  xcb_window_t window_ = XCB_NONE;
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
  incremental_ = atom("INCR");
  return xcb_connection_has_error(display_) == 0;
}

xcb_atom_t SelectionReader::Connection::atom(const std::string& name) {
  const auto cookie =
      xcb_intern_atom(display_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const auto reply = owned(xcb_intern_atom_reply(display_, cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::optional<SelectionReader::Found> SelectionReader::Connection::read(const Question& question) {
  std::optional<std::vector<xcb_atom_t>> there;
  if (question.asksTypes) {
    there = offered(question);
    if (!there) return std::nullopt;
  }
  for (const std::string& type : question.types) {
    const xcb_atom_t wanted = atom(type);
    if (there && std::find(there->begin(), there->end(), wanted) == there->end()) continue;
    auto bytes = convert(wanted, question);
    if (bytes) return Found{type, std::move(*bytes)};
    if (there) return std::nullopt;
  }
  return std::nullopt;
}

std::optional<std::vector<xcb_atom_t>> SelectionReader::Connection::offered(
    const Question& question) {
  const auto bytes = convert(atom("TARGETS"), question);
  if (!bytes || bytes->empty()) return std::nullopt;
  std::vector<xcb_atom_t> types(bytes->size() / sizeof(xcb_atom_t));
  std::memcpy(types.data(), bytes->data(), types.size() * sizeof(xcb_atom_t));
  return types;
}

// Each conversion has another property than those before, so that an answer that comes too late
// is not taken for the next one.
std::optional<Bytes> SelectionReader::Connection::convert(xcb_atom_t target,
                                                          const Question& question) {
  conversions_ = (conversions_ + 1) % kProperties;
  const xcb_atom_t property = atom("ZQ_SELECTION_" + std::to_string(conversions_));
  xcb_delete_property(display_, window_, property);
  xcb_convert_selection(display_, window_, atom(question.selection), target, property,
                        question.time);
  bool given = false;
  const bool answered = await(question.deadline, [&](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7F) != XCB_SELECTION_NOTIFY) return false;
    const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
    given = notice.property == property;
    if (given) return true;
    if (notice.property == XCB_ATOM_NONE) {
      // Who drags may refuse without a word of what.
      return notice.target == target || notice.target == XCB_ATOM_NONE;
    }
    xcb_delete_property(display_, window_, notice.property);
    return false;
  });
  return answered && given ? collect(property, question) : std::nullopt;
}

// Large contents come in pieces: each is fetched and deleted, which asks for the next one, and
// an empty one is the end.
std::optional<Bytes> SelectionReader::Connection::collect(xcb_atom_t property,
                                                          const Question& question) {
  auto content = take(property, question.mostBytes);
  if (!content) return std::nullopt;
  const bool whole = content->type != incremental_;
  Bytes all = whole ? std::move(content->bytes) : Bytes();
  while (!whole && all.size() <= question.mostBytes) {
    const bool came = await(question.deadline, [&](const xcb_generic_event_t& event) {
      if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY) return false;
      const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      return notice.atom == property && notice.state == XCB_PROPERTY_NEW_VALUE;
    });
    const auto piece = came ? take(property, question.mostBytes - all.size()) : std::nullopt;
    if (!piece) return std::nullopt;
    if (piece->bytes.empty()) return all;
    all.insert(all.end(), piece->bytes.begin(), piece->bytes.end());
  }
  if (all.size() > question.mostBytes) {
    if (!question.cut) return std::nullopt;
    all.resize(question.mostBytes);
  }
  return all;
}

// At least one byte more than the most, where there is as much.
std::optional<SelectionReader::Connection::Content> SelectionReader::Connection::take(
    xcb_atom_t property, std::size_t mostBytes) {
  const auto units = static_cast<std::uint32_t>(mostBytes / 4 + 1);
  const auto cookie =
      xcb_get_property(display_, 1, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0, units);
  const auto reply = owned(xcb_get_property_reply(display_, cookie, nullptr));
  if (!reply) return std::nullopt;
  if (reply->bytes_after > 0) xcb_delete_property(display_, window_, property);
  const auto* begin = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
  const int length = xcb_get_property_value_length(reply.get());
  return Content{reply->type, Bytes(begin, begin + length)};
}

template <class Fits>
bool SelectionReader::Connection::await(Clock::time_point deadline, const Fits& fits) {
  const auto end = std::min(deadline, Clock::now() + kReadPatience);
  while (const auto event = nextEvent(end)) {
    if (fits(*event)) return true;
  }
  return false;
}

// Looks at the time first: who sends without end must not keep the thread for ever.
Reply<xcb_generic_event_t> SelectionReader::Connection::nextEvent(Clock::time_point deadline) {
  xcb_flush(display_);
  while (xcb_connection_has_error(display_) == 0 && !interrupted_) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) return nullptr;
    if (auto event = owned(xcb_poll_for_event(display_))) return event;
    pollfd both[] = {{xcb_get_file_descriptor(display_), POLLIN, 0}, {wake_, POLLIN, 0}};
    poll(both, 2, static_cast<int>(left.count()));
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

void SelectionReader::read(Question question, Answer answer) {
  {
    const std::lock_guard lock(mutex_);
    questions_.emplace_back(std::move(question), std::move(answer));
  }
  asked_.notify_one();
}

std::vector<std::string> SelectionReader::textTypes() {
  return {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain", kLatinText};
}

std::string SelectionReader::text(const Found& found) {
  const std::string bytes(found.bytes.begin(), found.bytes.end());
  return found.type == kLatinText ? QString::fromLatin1(bytes).toStdString() : bytes;
}

void SelectionReader::run() {
  std::unique_lock lock(mutex_);
  while (true) {
    asked_.wait(lock, [this] { return stopping_ || !questions_.empty(); });
    if (stopping_) return;
    const auto [question, answer] = std::move(questions_.front());
    questions_.pop_front();
    lock.unlock();
    answer(connection_->read(question));
    lock.lock();
  }
}

}  // namespace zq::qt
