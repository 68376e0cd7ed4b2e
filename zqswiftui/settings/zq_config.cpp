// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <memory>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/settings/file_follower.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zq_config.hpp>

namespace zq {

namespace {

// 0 is that of an empty slot.
std::uint64_t nextGeneration() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

bool sameSettings(const ZQUICProject& a, const ZQUICProject& b) {
  return a == b && a.defaultDoubleValue == b.defaultDoubleValue &&
         a.defaultIntValue == b.defaultIntValue && a.defaultBoolValue == b.defaultBoolValue;
}

}  // namespace

// The project, and where the next one comes from. Held weakly by what is still to be told when the
// store goes.
struct ZQConfig::Source {
  Source(ZQConfig* store, std::optional<ZQUICProject> given)
      : owner(store), project(std::move(given)) {}

  ZQConfig* owner;
  std::optional<ZQUICProject> project;
  // Wall time in the clock's own ticks; earlier than any file where there was none.
  std::int64_t lastBroadcast = INT64_MIN;
  Subscription broadcasts;
  std::unique_ptr<FileFollower> file;
};

ZQConfig::ZQConfig(std::optional<ZQUICProject> project)
    : generation_(nextGeneration()), source_(std::make_shared<Source>(this, std::move(project))) {}

ZQConfig::ZQConfig(std::string_view configFileName, bool debug) : ZQConfig(std::nullopt) {
  const Bundle& bundle = Platform::current().bundle();
  appBundleId_ = lowercased(bundle.identifier().value_or(""));
  const auto path = bundle.resource(configFileName, configuratorFileExtension);
  if (!path) return;
  projectFileUrl_ = Url::file(*path);
  // Before the file is read: what is written in between must not be missed.
  if (debug) follow(*projectFileUrl_);
  source_->project = ZQUICProject(*projectFileUrl_);
}

ZQConfig::~ZQConfig() = default;

const std::optional<ZQUICProject>& ZQConfig::project() const {
  return source_->project;
}

void ZQConfig::follow(const Url& file) {
  source_->broadcasts = ZQNotify::observeBroadcast(
      ZQUICProject::broadcastName(appBundleId_),
      [this](const std::string& payload) { handleNotification(payload); });
  source_->file = std::make_unique<FileFollower>(
      file, [this](const FollowedFile& written) { takeFile(written); });
}

void ZQConfig::handleNotification(std::optional<std::string_view> payload) {
  if (!payload) return;
  source_->lastBroadcast = Platform::current().clock().wallTime().time_since_epoch().count();
  auto decoded = decodeProject(*payload);
  setProject(decoded.ok() ? std::optional(std::move(decoded).value()) : std::nullopt);
  notifyUpdate();
}

void ZQConfig::takeFile(const FollowedFile& file) {
  if (!file.project.ok()) {
    std::fprintf(stderr, "zq: %s:%s; the settings stay as they were\n", file.path.c_str(),
                 file.project.error().sentence.c_str());
    return;
  }
  // The editor saves a little later than it broadcasts; its file may be behind.
  if (source_->lastBroadcast > file.writtenAt.time_since_epoch().count()) return;
  if (project() && sameSettings(*project(), file.project.value())) return;
  setProject(file.project.value());
  notifyUpdate();
}

void ZQConfig::setProject(std::optional<ZQUICProject> project) {
  source_->project.swap(project);
  // To let go of a large project takes as long as to read it.
  Queue::execute(false, [before = std::move(project)] {});
  generation_ = nextGeneration();
}

void ZQConfig::notifyUpdate() {
  Platform::current().mainQueue().post([weak = std::weak_ptr(source_.pointer())] {
    ZQConfig* store = nullptr;
    if (const auto source = weak.lock()) store = source->owner;
    if (store) store->willChange.send();
  });
}

std::string ZQConfig::zqcCode() const {
  return project() ? project()->zqcCode() : "";
}

const ZQUICItem* ZQConfig::item(std::string_view group, std::string_view key) const {
  return project() ? project()->itemForKey(key, group) : nullptr;
}

double ZQConfig::doubleValue(std::string_view group, std::string_view key) const {
  return doubleValue(group, key, Default(project() ? project()->defaultDoubleValue : 64.0));
}

double ZQConfig::doubleValue(std::string_view group, std::string_view key,
                             Default<double> def) const {
  const ZQUICItem* const found = item(group, key);
  return found != nullptr ? found->doubleValue : def.value;
}

double ZQConfig::doubleValue(std::string_view group, std::string_view key, Min<double> min) const {
  return std::max(doubleValue(group, key, Default(min.value)), min.value);
}

std::int64_t ZQConfig::intValue(std::string_view group, std::string_view key) const {
  return intValue(group, key, Default(project() ? project()->defaultIntValue : std::int64_t{0}));
}

std::int64_t ZQConfig::intValue(std::string_view group, std::string_view key,
                                Default<std::int64_t> def) const {
  const ZQUICItem* const found = item(group, key);
  return found != nullptr ? found->intValue : def.value;
}

std::int64_t ZQConfig::intValue(std::string_view group, std::string_view key,
                                Min<std::int64_t> min) const {
  return std::max(intValue(group, key, Default(min.value)), min.value);
}

bool ZQConfig::boolValue(std::string_view group, std::string_view key) const {
  return boolValue(group, key, Default(project() ? project()->defaultBoolValue : true));
}

bool ZQConfig::boolValue(std::string_view group, std::string_view key, Default<bool> def) const {
  const ZQUICItem* const found = item(group, key);
  return found != nullptr ? found->boolValue : def.value;
}

std::string ZQConfig::stringValue(std::string_view group, std::string_view key,
                                  const Default<std::string>& def) const {
  const ZQUICItem* const found = item(group, key);
  return found != nullptr ? found->stringValue : def.value;
}

ZQUICPointSize ZQConfig::pointSizeValue(std::string_view group, std::string_view key,
                                        Default<ZQUICPointSize> def) const {
  const ZQUICItem* const found = item(group, key);
  return found != nullptr ? found->pointValue : def.value;
}

void ZQConfig::look(double& value, std::string_view group, std::string_view key) const {
  value = doubleValue(group, key);
}

void ZQConfig::look(std::int64_t& value, std::string_view group, std::string_view key) const {
  value = intValue(group, key);
}

void ZQConfig::look(bool& value, std::string_view group, std::string_view key) const {
  value = boolValue(group, key);
}

void ZQConfig::look(std::string_view& value, std::string_view group, std::string_view key) const {
  const ZQUICItem* const found = item(group, key);
  value = found != nullptr ? std::string_view(found->stringValue) : std::string_view();
}

void ZQConfig::look(ZQUICPointSize& value, std::string_view group, std::string_view key) const {
  value = pointSizeValue(group, key);
}

}  // namespace zq
