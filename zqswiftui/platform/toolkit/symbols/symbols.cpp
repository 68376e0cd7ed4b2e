// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <functional>
#include <mutex>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <zqswiftui/platform/toolkit/symbols/symbol_forms.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbol_rows.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbol_text.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq {
namespace {

// Names come from hosts and their data: a flood of wrong ones must not fill the memory.
constexpr std::size_t kMostComplaints = 1000;
constexpr int kMostShown = 80;

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    return std::hash<std::string_view>{}(text);
  }
};

bool takeSuffix(std::string_view& name, std::string_view suffix) {
  if (name.size() <= suffix.size() || !name.ends_with(suffix)) return false;
  name.remove_suffix(suffix.size());
  return true;
}

class SymbolStore {
 public:
  SymbolStore() {
    for (const auto& rows :
         {arrowRows(), markRows(), controlRows(), documentRows(), thingRows(), letterRows()}) {
      for (const SymbolRow& row : rows) rows_.emplace(row.name, &row);
    }
  }

  const SymbolDrawing* find(std::string_view name) {
    const std::lock_guard lock(mutex_);
    if (const auto known = known_.find(name); known != known_.end()) return known->second;
    std::optional<SymbolDrawing> drawing = form(name);
    if (!drawing) {
      complain(name);
      return nullptr;
    }
    return keep(std::string(name), std::move(*drawing));
  }

  void add(std::string name, SymbolDrawing drawing) {
    const std::lock_guard lock(mutex_);
    // What was formed from the old one is formed anew when it is next asked for.
    std::erase_if(known_, [&](const auto& entry) {
      return entry.first.starts_with(name) && entry.first.substr(name.size()).starts_with('.') &&
             !hosts_.contains(entry.first);
    });
    hosts_.insert(name);
    keep(std::move(name), std::move(drawing));
  }

  std::vector<std::string> names() {
    const std::lock_guard lock(mutex_);
    std::set<std::string> all;
    for (const auto& [name, row] : rows_) all.emplace(name);
    for (const auto& [name, drawing] : known_) all.insert(name);
    return {all.begin(), all.end()};
  }

 private:
  struct Base {
    SymbolDrawing drawing;
    std::string_view fill;
    SymbolInner inner;
  };

  std::optional<Base> base(std::string_view name) const {
    if (hosts_.contains(name)) return Base{*known_.find(name)->second, {}, {}};
    const auto row = rows_.find(name);
    if (row == rows_.end()) return std::nullopt;
    return Base{readSymbol(row->second->drawing), row->second->fill, row->second->inner};
  }

  std::optional<SymbolDrawing> form(std::string_view name) const {
    if (const std::optional<Base> plain = base(name)) return plain->drawing;
    const bool filled = takeSuffix(name, ".fill");
    if (std::optional<SymbolDrawing> open = bare(name, filled)) return open;
    std::optional<SymbolEnclosure> enclosure;
    if (takeSuffix(name, ".circle")) {
      enclosure = SymbolEnclosure::circle;
    } else if (takeSuffix(name, ".square")) {
      enclosure = SymbolEnclosure::square;
    } else if (takeSuffix(name, ".rectangle")) {
      enclosure = SymbolEnclosure::rectangle;
    }
    const bool slashed = !base(name) && takeSuffix(name, ".slash");
    const std::optional<Base> inner = base(name);
    if (!enclosure || !inner) return std::nullopt;
    return enclosedSymbol(slashed ? slashedSymbol(inner->drawing) : inner->drawing, inner->inner,
                          *enclosure, filled);
  }

  // A name without an enclosure: the base or its filled form, with or without a slash.
  std::optional<SymbolDrawing> bare(std::string_view name, bool filled) const {
    const bool slashed = !base(name) && takeSuffix(name, ".slash");
    std::optional<Base> found = base(name);
    if (!found) return std::nullopt;
    std::optional<SymbolDrawing> drawing = std::move(found->drawing);
    if (filled) drawing = found->fill.empty() ? filledSymbol(*drawing) : readSymbol(found->fill);
    if (!drawing || !slashed) return drawing;
    return slashedSymbol(std::move(*drawing));
  }

  const SymbolDrawing* keep(std::string name, SymbolDrawing drawing) {
    const SymbolDrawing* kept = &drawings_.emplace_back(std::move(drawing));
    known_.insert_or_assign(std::move(name), kept);
    return kept;
  }

  void complain(std::string_view name) {
    if (complaints_.size() >= kMostComplaints || complaints_.contains(name)) return;
    complaints_.emplace(name);
    const int length = static_cast<int>(std::min<std::size_t>(name.size(), kMostShown));
    std::fprintf(stderr, "zqswiftui: there is no symbol \"%.*s\"\n", length, name.data());
  }

  std::mutex mutex_;
  std::unordered_map<std::string_view, const SymbolRow*> rows_;
  std::deque<SymbolDrawing> drawings_;  // grows only: what was handed out stays where it is
  std::unordered_map<std::string, const SymbolDrawing*, TextHash, std::equal_to<>> known_;
  std::unordered_set<std::string, TextHash, std::equal_to<>> hosts_;
  std::unordered_set<std::string, TextHash, std::equal_to<>> complaints_;
};

// Never destroyed: drawings are used up to the program's very end.
SymbolStore& store() {
  static SymbolStore& only = *new SymbolStore;
  return only;
}

}  // namespace

const SymbolDrawing* findSymbol(std::string_view name) {
  return store().find(name);
}

void addSymbol(std::string name, SymbolDrawing drawing) {
  store().add(std::move(name), std::move(drawing));
}

std::vector<std::string> symbolNames() {
  return store().names();
}

}  // namespace zq
