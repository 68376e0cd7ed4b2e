// ZQSwiftUI, MIT licence; see LICENSE.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <zqswiftui/platform/qt/memory_file.hpp>

namespace zq::qt {
namespace {

// Neither shorter nor longer nor other.
constexpr int kUnchangeable = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

}  // namespace

OwnedFile::~OwnedFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

OwnedFile sealedMemoryFile(std::string_view bytes) {
  OwnedFile file(::memfd_create("zq-notification", MFD_CLOEXEC | MFD_ALLOW_SEALING));
  while (file && !bytes.empty()) {
    const ssize_t written = ::write(file.descriptor(), bytes.data(), bytes.size());
    if (written > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0 || errno != EINTR) {
      return {};
    }
  }
  if (file && ::fcntl(file.descriptor(), F_ADD_SEALS, kUnchangeable | F_SEAL_SEAL) != 0) return {};
  return file;
}

std::optional<std::string> readSealedMemoryFile(int descriptor, std::uint64_t size,
                                                std::size_t limit) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (size > limit || static_cast<std::uint64_t>(status.st_size) != size) return std::nullopt;
  const int seals = ::fcntl(descriptor, F_GET_SEALS);
  if (seals < 0 || (seals & kUnchangeable) != kUnchangeable) return std::nullopt;

  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got =
        ::pread(descriptor, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
    if (got > 0) {
      done += static_cast<std::size_t>(got);
    } else if (got == 0 || errno != EINTR) {
      return std::nullopt;
    }
  }
  return bytes;
}

}  // namespace zq::qt
