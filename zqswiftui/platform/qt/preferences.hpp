// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QString>
#include <map>
#include <memory>
#include <mutex>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/preferences.hpp>

class QSettings;

namespace zq::qt {

// A settings file of the application, read whole at the start; changes are written together,
// a moment after the first of them and at the end.
class Preferences final : public zq::Preferences {
 public:
  // An empty path is the application's own file.
  explicit Preferences(zq::MainQueue& queue, const QString& path = {});
  ~Preferences() override;

  std::optional<PreferenceValue> value(std::string_view key) const override;
  void setValue(std::string_view key, PreferenceValue value) override;
  void remove(std::string_view key) override;

 private:
  using Change = std::optional<PreferenceValue>;
  void change(std::string_view key, Change change);
  void write();

  zq::MainQueue& queue_;
  std::unique_ptr<QSettings> file_;
  mutable std::mutex mutex_;
  std::map<std::string, PreferenceValue, std::less<>> values_;
  std::map<std::string, Change, std::less<>> changes_;
  DelayedCallId pending_ = 0;
};

}  // namespace zq::qt
