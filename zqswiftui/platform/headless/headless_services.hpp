// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

// The services of a headless platform: each keeps in memory what a real one hands to the
// desktop, and lets a test set what it answers and see what it was asked.

class HeadlessPasteboard : public Pasteboard {
 public:
  explicit HeadlessPasteboard(MainQueue& queue) : queue_(queue) {}
  void setText(std::string text) override;
  void setImage(Bytes encoded) override;
  void setUrls(std::vector<std::string> urls) override;
  void clear() override;
  void readText(Answer<std::string> answer) override;
  void readImage(Answer<Bytes> answer) override;
  void readUrls(Answer<std::vector<std::string>> answer) override;
  std::uint64_t changeCount() const override { return changeCount_; }

  const std::optional<std::string>& text() const { return text_; }

 private:
  MainQueue& queue_;
  std::uint64_t changeCount_ = 0;
  std::optional<std::string> text_;
  std::optional<Bytes> image_;
  std::optional<std::vector<std::string>> urls_;
};

class HeadlessPreferences : public Preferences {
 public:
  std::optional<PreferenceValue> value(std::string_view key) const override;
  void setValue(std::string_view key, PreferenceValue value) override;
  void remove(std::string_view key) override;

 private:
  mutable std::mutex mutex_;
  std::map<std::string, PreferenceValue, std::less<>> values_;
};

class HeadlessBundle : public Bundle {
 public:
  std::optional<std::string> identifier() const override { return identifier_; }
  std::string path() const override { return path_; }
  std::optional<std::string> resource(std::string_view name,
                                      std::string_view extension) const override;
  std::string cacheFolder() const override { return cacheFolder_; }
  std::string dataFolder() const override { return dataFolder_; }

  // To be set before threads ask.
  void setIdentifier(std::optional<std::string> identifier) { identifier_ = std::move(identifier); }
  void setPath(std::string path) { path_ = std::move(path); }
  void setCacheFolder(std::string folder) { cacheFolder_ = std::move(folder); }
  void setDataFolder(std::string folder) { dataFolder_ = std::move(folder); }
  // fileName is the name with its extension: addResource("spin00000.png", "/frames/0.png").
  void addResource(const std::string& fileName, std::string path);

 private:
  std::optional<std::string> identifier_;
  std::string path_;
  std::string cacheFolder_;
  std::string dataFolder_;
  std::map<std::string, std::string, std::less<>> resources_;
};

// Answers each dialog with the next answer of the script, and as cancelled when none is left.
class HeadlessFileDialogs : public FileDialogs {
 public:
  explicit HeadlessFileDialogs(MainQueue& queue) : queue_(queue) {}
  void show(FileDialogRequest request,
            std::function<void(std::vector<std::string>)> answer) override;

  void answerNext(std::vector<std::string> paths) { script_.push_back(std::move(paths)); }
  const std::vector<FileDialogRequest>& requests() const { return requests_; }

 private:
  MainQueue& queue_;
  std::deque<std::vector<std::string>> script_;
  std::vector<FileDialogRequest> requests_;
};

class HeadlessRecentDocuments : public RecentDocuments {
 public:
  explicit HeadlessRecentDocuments(MainQueue& queue) : queue_(queue) {}
  void list(std::function<void(std::vector<RecentDocument>)> answer) override;
  void add(std::string url) override;
  void setDocuments(std::vector<RecentDocument> documents) { documents_ = std::move(documents); }

 private:
  MainQueue& queue_;
  std::vector<RecentDocument> documents_;
};

class HeadlessWorkspace : public Workspace {
 public:
  void open(const std::string& url) override { opened_.push_back(url); }
  const std::vector<std::string>& opened() const { return opened_; }

 private:
  std::vector<std::string> opened_;
};

// Records the drags that begin; endDrag answers the last one.
class HeadlessDragData : public DragData {
 public:
  explicit HeadlessDragData(MainQueue& queue) : queue_(queue) {}
  void begin(DragItems items, std::function<void(DropResult)> ended) override;
  void endDrag(DropResult result);
  const DragItems& dragged() const { return items_; }

 private:
  MainQueue& queue_;
  DragItems items_;
  std::function<void(DropResult)> ended_;
};

// An item for drops in tests, of any types and bytes.
class HeadlessDragItem : public DragItem {
 public:
  explicit HeadlessDragItem(std::vector<std::pair<std::string, std::string>> contents)
      : contents_(std::move(contents)) {}
  std::vector<std::string> types() const override;
  void load(std::string_view type, std::function<void(std::optional<Bytes>)> answer) const override;

 private:
  std::vector<std::pair<std::string, std::string>> contents_;
};

// Delivers inside the process.
class HeadlessNotifications : public DistributedNotifications {
 public:
  struct Posted {
    std::string name;
    std::string payload;
    bool operator==(const Posted&) const = default;
  };
  explicit HeadlessNotifications(MainQueue& queue) : queue_(queue) {}
  void post(std::string_view name, std::string_view payload) override;
  std::uint64_t observe(std::string_view name,
                        std::function<void(const std::string&)> callback) override;
  void stopObserving(std::uint64_t id) override;
  std::vector<Posted> posted() const;

 private:
  struct Observer {
    std::string name;
    std::function<void(const std::string&)> callback;
  };
  void deliver(const Posted& notification);

  MainQueue& queue_;
  mutable std::mutex mutex_;
  std::map<std::uint64_t, Observer> observers_;
  std::vector<Posted> posted_;
};

// Answers from a table; a URL that is not in it cannot be found.
class HeadlessDownloads : public Downloads {
 public:
  explicit HeadlessDownloads(MainQueue& queue) : queue_(queue) {}
  std::uint64_t fetch(DownloadRequest request, std::function<void(DownloadAnswer)> answer) override;
  // Takes no time, however slow the answer is set to be.
  DownloadAnswer fetchAndWait(const DownloadRequest& request) override {
    return lookUp(request).answer;
  }
  void cancel(std::uint64_t id) override { queue_.cancel(id); }

  void setAnswer(const std::string& url, DownloadAnswer answer, double afterSeconds = 0);
  // The URLs asked for so far, in order.
  std::vector<std::string> fetched() const;

 private:
  struct Row {
    DownloadAnswer answer;
    double delay = 0;
  };
  Row lookUp(const DownloadRequest& request);

  MainQueue& queue_;
  mutable std::mutex mutex_;
  std::unordered_map<std::string, Row> table_;
  std::vector<std::string> fetched_;
};

// Knows one format, which is no other's: "ZQIMG <width> <height>\n" and the pixels. It also
// stands in for PNG.
class HeadlessImageCodec : public ImageCodec {
 public:
  std::optional<Pixels> decode(std::span<const std::uint8_t> bytes,
                               const DecodeLimits& limits) const override;
  std::int64_t declaredPixels(std::span<const std::uint8_t> bytes) const override;
  Bytes encodePng(const Pixels& pixels) const override;
  // A picture of one opaque colour.
  static Bytes file(int width, int height, std::uint8_t red, std::uint8_t green, std::uint8_t blue);

  // A decode that succeeded: the size that the file declares, and whether the interface thread
  // had to wait for it.
  struct Decoded {
    int width;
    int height;
    bool onInterfaceThread;
    bool operator==(const Decoded&) const = default;
  };
  // All so far, in order.
  std::vector<Decoded> decoded() const;

 private:
  mutable std::mutex mutex_;
  mutable std::vector<Decoded> decoded_;
};

class HeadlessAppearance : public Appearance {
 public:
  AppearanceValues values() const override { return values_; }
  unsigned long addListener(std::function<void()> listener) override;
  void removeListener(unsigned long id) override { listeners_.erase(id); }
  void setValues(AppearanceValues values);

 private:
  AppearanceValues values_;
  std::map<unsigned long, std::function<void()>> listeners_;
};

}  // namespace zq
