// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <atomic>
#include <charconv>
#include <iterator>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/headless/headless_services.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

// Of the process, not of the platform: who outlives one must not stop a listener of the next.
std::uint64_t newListenerId() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

struct PictureHeader {
  int width = 0;
  int height = 0;
  std::size_t length = 0;
  std::int64_t pixels() const { return std::int64_t{width} * height; }
};

std::optional<PictureHeader> readHeader(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view mark = "ZQIMG ";
  const auto* data = reinterpret_cast<const char*>(bytes.data());
  const std::string_view file(data, bytes.size());
  const auto lineEnd = file.find('\n');
  if (!file.starts_with(mark) || lineEnd == std::string_view::npos) return std::nullopt;
  PictureHeader header{0, 0, lineEnd + 1};
  const auto width = std::from_chars(data + mark.size(), data + lineEnd, header.width);
  if (width.ec != std::errc{} || *width.ptr != ' ') return std::nullopt;
  const auto height = std::from_chars(width.ptr + 1, data + lineEnd, header.height);
  if (height.ec != std::errc{} || height.ptr != data + lineEnd) return std::nullopt;
  if (header.width <= 0 || header.height <= 0) return std::nullopt;
  return header;
}

}  // namespace

void HeadlessPasteboard::clear() {
  ++changeCount_;
  text_.reset();
  image_.reset();
  urls_.reset();
}

void HeadlessPasteboard::setText(std::string text) {
  clear();
  text_ = std::move(text);
}

void HeadlessPasteboard::setImage(Bytes encoded) {
  clear();
  image_ = std::move(encoded);
}

void HeadlessPasteboard::setUrls(std::vector<std::string> urls) {
  clear();
  urls_ = std::move(urls);
}

void HeadlessPasteboard::readText(Answer<std::string> answer) {
  queue_.post([content = text_, answer = std::move(answer)] {
    if (answer) answer(content);
  });
}

void HeadlessPasteboard::readImage(Answer<Bytes> answer) {
  queue_.post([content = image_, answer = std::move(answer)] {
    if (answer) answer(content);
  });
}

void HeadlessPasteboard::readUrls(Answer<std::vector<std::string>> answer) {
  queue_.post([content = urls_, answer = std::move(answer)] {
    if (answer) answer(content);
  });
}

std::optional<PreferenceValue> HeadlessPreferences::value(std::string_view key) const {
  const std::lock_guard lock(mutex_);
  const auto found = values_.find(key);
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

void HeadlessPreferences::setValue(std::string_view key, PreferenceValue value) {
  const std::lock_guard lock(mutex_);
  values_.insert_or_assign(std::string(key), std::move(value));
}

void HeadlessPreferences::remove(std::string_view key) {
  const std::lock_guard lock(mutex_);
  const auto found = values_.find(key);
  if (found != values_.end()) values_.erase(found);
}

std::optional<std::string> HeadlessBundle::resource(std::string_view name,
                                                    std::string_view extension) const {
  std::string fileName(name);
  if (!extension.empty()) fileName.append(".").append(extension);
  const auto found = resources_.find(fileName);
  if (found == resources_.end()) return std::nullopt;
  return found->second;
}

void HeadlessBundle::addResource(const std::string& fileName, std::string path) {
  resources_.insert_or_assign(fileName, std::move(path));
}

void HeadlessFileDialogs::show(FileDialogRequest request,
                               std::function<void(std::vector<std::string>)> answer) {
  requests_.push_back(std::move(request));
  std::vector<std::string> chosen;
  if (!script_.empty()) {
    chosen = std::move(script_.front());
    script_.pop_front();
  }
  queue_.post([chosen = std::move(chosen), answer = std::move(answer)] {
    if (answer) answer(chosen);
  });
}

void HeadlessRecentDocuments::list(std::function<void(std::vector<RecentDocument>)> answer) {
  queue_.post([documents = documents_, answer = std::move(answer)] {
    if (answer) answer(documents);
  });
}

void HeadlessRecentDocuments::add(std::string url) {
  std::erase_if(documents_, [&](const RecentDocument& known) { return known.url == url; });
  documents_.insert(documents_.begin(), {std::move(url)});
}

void HeadlessDragData::begin(DragItems items, std::function<void(DropResult)> ended) {
  if (items.empty() || ended_) {
    if (ended) queue_.post([ended = std::move(ended)] { ended(DropResult::refused); });
    return;
  }
  items_ = std::move(items);
  ended_ = std::move(ended);
}

void HeadlessDragData::endDrag(DropResult result) {
  items_.clear();
  if (const auto ended = std::exchange(ended_, nullptr)) ended(result);
}

std::vector<std::string> HeadlessDragItem::types() const {
  std::vector<std::string> types;
  types.reserve(contents_.size());
  for (const auto& [type, bytes] : contents_) types.push_back(type);
  return types;
}

void HeadlessDragItem::load(std::string_view type,
                            std::function<void(std::optional<Bytes>)> answer) const {
  std::optional<Bytes> bytes;
  for (const auto& [offered, content] : contents_) {
    if (offered != type) continue;
    bytes.emplace(content.begin(), content.end());
    break;
  }
  // As from a real drag source, the answer comes later and on another thread.
  Platform::current().background().post(
      [bytes = std::move(bytes), answer = std::move(answer)] { answer(bytes); }, true);
}

void HeadlessNotifications::post(std::string_view name, std::string_view payload) {
  Posted notification{std::string(name), std::string(payload)};
  if (payload.size() > maxPayloadSize) return;
  {
    const std::lock_guard lock(mutex_);
    posted_.push_back(notification);
  }
  queue_.post([this, notification = std::move(notification)] { deliver(notification); });
}

void HeadlessNotifications::deliver(const Posted& notification) {
  std::vector<std::uint64_t> ids;
  {
    const std::lock_guard lock(mutex_);
    for (const auto& [id, observer] : observers_) {
      if (observer.name == notification.name) ids.push_back(id);
    }
  }
  for (const std::uint64_t id : ids) {
    std::function<void(const std::string&)> callback;
    {
      const std::lock_guard lock(mutex_);
      const auto observer = observers_.find(id);
      if (observer != observers_.end()) callback = observer->second.callback;
    }
    if (callback) callback(notification.payload);
  }
}

std::uint64_t HeadlessNotifications::observe(std::string_view name,
                                             std::function<void(const std::string&)> callback) {
  const std::lock_guard lock(mutex_);
  const std::uint64_t id = newListenerId();
  observers_.emplace(id, Observer{std::string(name), std::move(callback)});
  return id;
}

void HeadlessNotifications::stopObserving(std::uint64_t id) {
  Observer dropped;
  const std::lock_guard lock(mutex_);
  const auto observer = observers_.find(id);
  if (observer == observers_.end()) return;
  dropped = std::move(observer->second);
  observers_.erase(observer);
}

std::vector<HeadlessNotifications::Posted> HeadlessNotifications::posted() const {
  const std::lock_guard lock(mutex_);
  return posted_;
}

HeadlessDownloads::Row HeadlessDownloads::lookUp(const DownloadRequest& request) {
  Row row{{{}, "the server has no " + request.url}, 0};
  {
    const std::lock_guard lock(mutex_);
    fetched_.push_back(request.url);
    const auto found = table_.find(request.url);
    if (found != table_.end()) row = found->second;
  }
  if (row.answer.bytes.size() > request.sizeLimit) row.answer = {{}, "the answer is too big"};
  if (request.timeLimit > 0 && row.delay > request.timeLimit) {
    row = {{{}, "the answer takes too long"}, request.timeLimit};
  }
  return row;
}

std::uint64_t HeadlessDownloads::fetch(DownloadRequest request,
                                       std::function<void(DownloadAnswer)> answer) {
  Row row = lookUp(request);
  return queue_.postDelayed(row.delay,
                            [content = std::move(row.answer), answer = std::move(answer)] {
                              if (answer) answer(content);
                            });
}

void HeadlessDownloads::setAnswer(const std::string& url, DownloadAnswer answer,
                                  double afterSeconds) {
  const std::lock_guard lock(mutex_);
  table_.insert_or_assign(url, Row{std::move(answer), afterSeconds});
}

std::vector<std::string> HeadlessDownloads::fetched() const {
  const std::lock_guard lock(mutex_);
  return fetched_;
}

std::optional<Pixels> HeadlessImageCodec::decode(std::span<const std::uint8_t> bytes,
                                                 const DecodeLimits& limits) const {
  const auto header = readHeader(bytes);
  if (!header || header->pixels() > limits.maxPixels) return std::nullopt;
  const auto rows = bytes.subspan(header->length);
  if (rows.size() % 4 != 0 || static_cast<std::int64_t>(rows.size()) / 4 != header->pixels()) {
    return std::nullopt;
  }
  Pixels pixels{header->width, header->height, Bytes(rows.begin(), rows.end())};
  {
    const std::lock_guard lock(mutex_);
    decoded_.push_back({pixels.width, pixels.height,
                        Platform::installed() && Platform::current().mainQueue().isMainThread()});
  }
  if (limits.maxSide <= 0 || std::max(pixels.width, pixels.height) <= limits.maxSide) return pixels;
  const auto image = ZQImage::fromPixels(std::move(pixels));
  const auto small = image ? image->resizeWithMaxSide(limits.maxSide) : std::nullopt;
  return small ? std::optional(small->pixels()) : std::nullopt;
}

std::int64_t HeadlessImageCodec::declaredPixels(std::span<const std::uint8_t> bytes) const {
  const auto header = readHeader(bytes);
  return header ? header->pixels() : 0;
}

std::vector<HeadlessImageCodec::Decoded> HeadlessImageCodec::decoded() const {
  const std::lock_guard lock(mutex_);
  return decoded_;
}

Bytes HeadlessImageCodec::encodePng(const Pixels& pixels) const {
  if (pixels.width <= 0 || pixels.height <= 0 || pixels.rgba.size() % 4 != 0 ||
      pixels.rgba.size() / 4 !=
          static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height)) {
    return {};
  }
  const std::string header =
      "ZQIMG " + std::to_string(pixels.width) + " " + std::to_string(pixels.height) + "\n";
  Bytes file(header.begin(), header.end());
  file.insert(file.end(), pixels.rgba.begin(), pixels.rgba.end());
  return file;
}

Bytes HeadlessImageCodec::file(int width, int height, std::uint8_t red, std::uint8_t green,
                               std::uint8_t blue) {
  Pixels pixels{width, height, {}};
  const std::int64_t count = std::int64_t{width} * height;
  for (std::int64_t i = 0; i < count; ++i) {
    pixels.rgba.insert(pixels.rgba.end(), {red, green, blue, 255});
  }
  return HeadlessImageCodec().encodePng(pixels);
}

unsigned long HeadlessAppearance::addListener(std::function<void()> listener) {
  const std::uint64_t id = newListenerId();
  listeners_.emplace(id, std::move(listener));
  return id;
}

void HeadlessAppearance::setValues(AppearanceValues values) {
  if (values == values_) return;
  values_ = values;
  const auto listeners = listeners_;
  for (const auto& [id, listener] : listeners) {
    if (listeners_.contains(id)) listener();
  }
}

}  // namespace zq
