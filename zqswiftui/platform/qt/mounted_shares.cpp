// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <zqswiftui/platform/qt/mounted_shares.hpp>

namespace zq::qt {
namespace {

// What answers over a network, or through a program that may hang.
bool isRemote(std::string_view type) {
  constexpr std::array<std::string_view, 11> kTypes{"nfs", "nfs4", "cifs", "smb3",  "smbfs", "9p",
                                                    "afs", "ceph", "coda", "davfs", "autofs"};
  return type.starts_with("fuse") || std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

// The table writes blanks, tabs, line feeds and backslashes as \ and three octal digits.
std::string unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto digit = [&](std::size_t at) { return text[i + at] >= '0' && text[i + at] <= '7'; };
    if (text[i] == '\\' && i + 3 < text.size() && digit(1) && digit(2) && digit(3)) {
      plain += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 +
                                 (text[i + 3] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

bool holds(std::string_view folder, std::string_view path) {
  if (folder == "/") return path.starts_with('/');
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

std::string kernelTable() {
  std::ifstream file("/proc/self/mountinfo");
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

MountedShares::MountedShares() : MountedShares(kernelTable()) {}

MountedShares::MountedShares(std::string_view table) {
  // id, parent, device, root, folder, options, any number of fields, "-", type, source, options
  constexpr std::size_t kFolder = 4;
  std::istringstream lines{std::string(table)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    const std::vector<std::string> fields{std::istream_iterator<std::string>(words), {}};
    const auto end = std::find(fields.begin(), fields.end(), "-");
    if (fields.size() <= kFolder || end == fields.end() || end + 1 == fields.end()) continue;
    mounts_.push_back({unescaped(fields[kFolder]), isRemote(*(end + 1))});
  }
}

std::string MountedShares::shareOf(std::string_view path) const {
  constexpr int kMostLinks = 40;  // as many as the kernel follows
  std::filesystem::path done("/");
  std::filesystem::path todo = std::filesystem::path(path).lexically_normal().relative_path();
  for (int links = 0; links <= kMostLinks && !todo.empty();) {
    const auto part = todo.begin();
    done /= *part;
    std::filesystem::path rest;
    for (auto it = std::next(part); it != todo.end(); ++it) rest /= *it;
    if (auto share = innermost(done.native()); !share.empty()) return share;
    std::error_code none;
    const auto to = std::filesystem::read_symlink(done, none);
    if (!none) {
      ++links;
      rest = ((to.is_absolute() ? to : done.parent_path() / to) / rest).lexically_normal();
      rest = rest.relative_path();
      done = "/";
    }
    todo = std::move(rest);
  }
  return {};
}

std::string MountedShares::innermost(std::string_view path) const {
  const Mount* innermost = nullptr;
  for (const Mount& mount : mounts_) {
    // Of two at one folder the later hides the earlier.
    if (holds(mount.folder, path) &&
        (innermost == nullptr || mount.folder.size() >= innermost->folder.size())) {
      innermost = &mount;
    }
  }
  return innermost != nullptr && innermost->remote ? innermost->folder : std::string();
}

}  // namespace zq::qt
