// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zq {

// The application as it is installed. Any thread; paths are absolute and in UTF-8.
class Bundle {
 public:
  virtual ~Bundle() = default;
  // Such as "com.example.Editor"; absent where the application has none.
  virtual std::optional<std::string> identifier() const = 0;
  // The folder of the application.
  virtual std::string path() const = 0;
  // The file of a resource; an empty extension means that the name is complete. Absent where
  // there is none.
  virtual std::optional<std::string> resource(std::string_view name,
                                              std::string_view extension) const = 0;
  // The user's own folders for this application, which need not exist yet.
  virtual std::string cacheFolder() const = 0;
  virtual std::string dataFolder() const = 0;
};

}  // namespace zq
