// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

struct FollowedFile;

namespace detail {

// Whether a number or text that a caller writes down means a value of type T.
template <typename From, typename T>
concept MeansValue =
    std::same_as<From, T> || (std::floating_point<T> && std::is_arithmetic_v<From>) ||
    (std::integral<From> && std::integral<T> && !std::same_as<T, bool>) ||
    (!std::is_arithmetic_v<T> && std::convertible_to<From, T>);

}  // namespace detail

// What an accessor answers where the project has no such item.
template <typename T>
struct Default {
  constexpr explicit Default(T given) : value(std::move(given)) {}
  template <typename Other>
    requires(!std::same_as<Other, T> && detail::MeansValue<Other, T>)
  constexpr Default(const Default<Other>& other) : value(static_cast<T>(other.value)) {}
  T value;
};

// A floor: what an accessor answers where nothing is found, or what is found is smaller.
template <typename T>
struct Min {
  constexpr explicit Min(T given) : value(given) {}
  template <typename Other>
    requires(!std::same_as<Other, T> && detail::MeansValue<Other, T>)
  constexpr Min(const Min<Other>& other) : value(static_cast<T>(other.value)) {}
  T value;
};

// The place that a generated property has found in a store's project, as long as the project
// stays. Needs no initialisation at run time.
template <typename T>
class SettingSlot {
 public:
  constexpr SettingSlot() = default;

 private:
  friend class ZQConfig;
  std::uint64_t generation_ = 0;
  T value_{};
};

// The settings as a running application reads them, from the project file of its bundle. In a
// debug build (debug: true) it follows the editor, which broadcasts each change, and changes of
// the file made by hand; views that observe it are then drawn again. Interface thread only.
// Groups and keys are given by their tokens, which swiftTokenize makes.
//   const ZQConfig& settings = context.observe(config);
//   double zoom = settings.doubleValue("Canvas", "maxZoom", Default{1.0});
class ZQConfig : public ObservableObject {
 public:
  static constexpr std::string_view defaultFileName = "ZQConfigurator";
  static constexpr std::string_view configuratorFileExtension =
      ZQUICProject::configuratorFileExtension;
#ifdef NDEBUG
  static constexpr bool followsByDefault = false;
#else
  static constexpr bool followsByDefault = true;
#endif

  // The name of the bundle's resource, without extension. Reads the file at once.
  explicit ZQConfig(std::string_view configFileName = defaultFileName,
                    bool debug = followsByDefault);
  // Of a project that is at hand, or of none; it follows nothing.
  explicit ZQConfig(std::optional<ZQUICProject> project);
  ~ZQConfig() override;

  const std::optional<ZQUICProject>& project() const;
  // Of the running application in lower case, or empty.
  const std::string& appBundleId() const { return appBundleId_; }
  const std::optional<Url>& projectFileUrl() const { return projectFileUrl_; }

  // Without a default: that of the project for the kind, or 64.0, 0 and true.
  double doubleValue(std::string_view group, std::string_view key) const;
  double doubleValue(std::string_view group, std::string_view key, Default<double> def) const;
  double doubleValue(std::string_view group, std::string_view key, Min<double> min) const;
  std::int64_t intValue(std::string_view group, std::string_view key) const;
  std::int64_t intValue(std::string_view group, std::string_view key,
                        Default<std::int64_t> def) const;
  std::int64_t intValue(std::string_view group, std::string_view key, Min<std::int64_t> min) const;
  bool boolValue(std::string_view group, std::string_view key) const;
  bool boolValue(std::string_view group, std::string_view key, Default<bool> def) const;
  std::string stringValue(std::string_view group, std::string_view key,
                          const Default<std::string>& def = Default<std::string>("")) const;
  ZQUICPointSize pointSizeValue(
      std::string_view group, std::string_view key,
      Default<ZQUICPointSize> def = Default(ZQUICPointSize::zero())) const;

  // For generated properties: as the accessors, looked up once a project. A text lives until
  // the store has another project.
  double value(SettingSlot<double>& slot, std::string_view group, std::string_view key) const {
    return cached(slot, group, key);
  }
  std::int64_t value(SettingSlot<std::int64_t>& slot, std::string_view group,
                     std::string_view key) const {
    return cached(slot, group, key);
  }
  bool value(SettingSlot<bool>& slot, std::string_view group, std::string_view key) const {
    return cached(slot, group, key);
  }
  std::string_view value(SettingSlot<std::string_view>& slot, std::string_view group,
                         std::string_view key) const {
    return cached(slot, group, key);
  }
  ZQUICPointSize value(SettingSlot<ZQUICPointSize>& slot, std::string_view group,
                       std::string_view key) const {
    return cached(slot, group, key);
  }

  // The generated Swift source of the project, or nothing where there is none.
  std::string zqcCode() const;
  // Tells the observers, later on the interface thread.
  void notifyUpdate();
  // Takes a broadcast. What holds no text changes nothing; a text that is no project leaves
  // the store without one until the next good broadcast.
  void handleNotification(std::optional<std::string_view> payload);

 private:
  template <typename T>
  const T& cached(SettingSlot<T>& slot, std::string_view group, std::string_view key) const {
    if (slot.generation_ != generation_) [[unlikely]] {
      look(slot.value_, group, key);
      slot.generation_ = generation_;
    }
    return slot.value_;
  }
  const ZQUICItem* item(std::string_view group, std::string_view key) const;
  void look(double& value, std::string_view group, std::string_view key) const;
  void look(std::int64_t& value, std::string_view group, std::string_view key) const;
  void look(bool& value, std::string_view group, std::string_view key) const;
  void look(std::string_view& value, std::string_view group, std::string_view key) const;
  void look(ZQUICPointSize& value, std::string_view group, std::string_view key) const;
  void setProject(std::optional<ZQUICProject> project);
  void follow(const Url& file);
  void takeFile(const FollowedFile& file);

  struct Source;

  std::string appBundleId_;
  std::optional<Url> projectFileUrl_;
  // No two projects of the process share one, whatever store has them: slots are shared by
  // stores.
  std::uint64_t generation_;
  const Shared<Source> source_;
};

}  // namespace zq
