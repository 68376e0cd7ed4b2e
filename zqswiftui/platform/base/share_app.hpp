// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace zq {

// A record of items that an application shares: each has an id and is a file in the record's
// folder, which may still have to be fetched. Copies share the record. Any thread.
class ZQShareApp {
 public:
  struct Item {
    std::string id;
    std::string fileName;   // one name, no path
    std::string remoteUrl;  // empty for an item that is only local
    bool operator==(const Item&) const = default;
  };

  ZQShareApp(Url folder, std::vector<Item> items);

  // The local file of an item, downloaded first where it is missing and that is asked for.
  // Absent where there is no such item, its name leaves the folder, or no file can be had. Who
  // asks for an item that is being downloaded waits for that download.
  Task<std::optional<Url>> urlForId(std::string id, bool downloadRemote) const;
  // Where an item is downloaded from; absent where it is only local, and where there is none.
  std::optional<Url> remoteUrl(const std::string& id) const;

 private:
  struct Record;
  Shared<Record> record_;
};

}  // namespace zq
