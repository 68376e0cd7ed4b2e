// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zq::qt {

// An open file, closed with this; -1 is none.
class OwnedFile {
 public:
  OwnedFile() = default;
  explicit OwnedFile(int descriptor) : descriptor_(descriptor) {}
  OwnedFile(OwnedFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OwnedFile& operator=(OwnedFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~OwnedFile();

  int descriptor() const { return descriptor_; }
  explicit operator bool() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
};

// The bytes in a file that lies in memory alone and cannot be changed any more, so that
// another process may read it without fear; none where the system has no memory or no file
// left.
OwnedFile sealedMemoryFile(std::string_view bytes);

// What such a file of another process holds. Nothing for whatever is not one, has not that
// size, or exceeds the limit, and never waits: a pipe that nobody writes to is not read.
std::optional<std::string> readSealedMemoryFile(int descriptor, std::uint64_t size,
                                                std::size_t limit);

}  // namespace zq::qt
