// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/services/bundle.hpp>

namespace zq::qt {

// The running program, as it stood when this was made: its identifier is the organisation's
// domain, turned about, and the name; its resources lie beside the program, in the data
// folders of the desktop, or in the program itself.
class Bundle final : public zq::Bundle {
 public:
  Bundle();
  std::optional<std::string> identifier() const override { return identifier_; }
  std::string path() const override { return path_; }
  std::optional<std::string> resource(std::string_view name,
                                      std::string_view extension) const override;
  std::string cacheFolder() const override { return cacheFolder_; }
  std::string dataFolder() const override { return dataFolder_; }

 private:
  std::optional<std::string> unpacked(const std::string& file) const;

  std::optional<std::string> identifier_;
  std::string path_;
  std::string cacheFolder_;
  std::string dataFolder_;
  std::vector<std::string> folders_;
};

}  // namespace zq::qt
