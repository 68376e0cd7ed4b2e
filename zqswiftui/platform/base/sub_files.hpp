// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/bytes.hpp>

namespace zq {

// A folder of files that are known by an id, and owned by a document or an application. An id
// that is not one of the store's names nothing, wherever it points. Any thread; the work is
// done in the background.
class ZQSubFiles {
 public:
  explicit ZQSubFiles(Url folder);

  // The bytes of an item; absent where there is none.
  Task<std::optional<Bytes>> read(std::string id) const;
  // Keeps a copy of what the URL names under a new id, which ends with its extension; absent
  // where that fails, and then nothing is left behind.
  Task<std::optional<std::string>> add(Url source) const;
  // Whether an item was there and is gone.
  Task<bool> remove(std::string id) const;

  bool operator==(const ZQSubFiles&) const = default;

 private:
  Url folder_;
};

}  // namespace zq
