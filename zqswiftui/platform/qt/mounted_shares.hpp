// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zq::qt {

// The folders at which shares of other machines are mounted, by the kernel's own table, which
// answers at once however dead a share is. Any thread.
class MountedShares {
 public:
  MountedShares();  // as they are now
  // Of a table in the form of /proc/self/mountinfo; lines that make no sense are left out.
  explicit MountedShares(std::string_view table);

  // The innermost mounted folder that holds the path, where that is of a share; else empty. Links
  // are followed as long as they lie on this machine, so a share is never asked.
  std::string shareOf(std::string_view path) const;

 private:
  std::string innermost(std::string_view path) const;
  struct Mount {
    std::string folder;
    bool remote;
  };
  std::vector<Mount> mounts_;
};

}  // namespace zq::qt
