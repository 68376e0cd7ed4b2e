// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/qt/recent_list.hpp>
#include <zqswiftui/platform/qt/xml_events.hpp>

namespace zq::qt {
namespace {

using std::chrono::microseconds;

constexpr std::size_t kMaxHref = 8192;
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kNameEnds = " \t\r\n/>";
constexpr std::string_view kRootName = "xbel";
constexpr std::string_view kBookmarks = "http://www.freedesktop.org/standards/desktop-bookmarks";
constexpr std::string_view kMime = "http://www.freedesktop.org/standards/shared-mime-info";
constexpr std::string_view kOwner = "http://freedesktop.org";
constexpr std::string_view kEmptyList =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<xbel version=\"1.0\""
    " xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\""
    " xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\">\n</xbel>\n";

// Of digits alone; absent else.
std::optional<int> number(std::string_view digits) {
  int value = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

// How far a place is ahead of UTC: "Z" or nothing, or as in "-05:30".
std::optional<std::chrono::minutes> offset(std::string_view zone) {
  if (zone.empty() || zone == "Z") return std::chrono::minutes(0);
  if (zone.size() != 6 || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':') return std::nullopt;
  const auto hours = number(zone.substr(1, 2)), minutes = number(zone.substr(4));
  if (!hours || !minutes) return std::nullopt;
  return std::chrono::minutes((zone[0] == '+' ? 1 : -1) * (*hours * 60 + *minutes));
}

// Since 1970, of a time as in 2025-01-02T10:00:00.123456Z; 0 of what makes no sense.
microseconds moment(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00T00:00:00";
  constexpr std::size_t kMostDigits = 6;
  if (text.size() < kForm.size()) return {};
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '0' ? !isDigit : text[i] != kForm[i]) return {};
  }
  const auto part = [&](std::size_t at, std::size_t size) {
    return *number(text.substr(at, size));
  };
  const std::chrono::year_month_day day(std::chrono::year(part(0, 4)),
                                        std::chrono::month(static_cast<unsigned>(part(5, 2))),
                                        std::chrono::day(static_cast<unsigned>(part(8, 2))));
  microseconds fraction(0);
  std::string_view zone = text.substr(kForm.size());
  if (zone.starts_with('.')) {
    const std::size_t end = std::min(zone.find_first_not_of("0123456789", 1), zone.size());
    std::string digits(zone.substr(1, std::min(end - 1, kMostDigits)));
    digits.resize(kMostDigits, '0');
    fraction = microseconds(*number(digits));
    zone.remove_prefix(end);
  }
  const auto ahead = offset(zone);
  if (!day.ok() || !ahead) return {};
  return std::chrono::sys_days(day).time_since_epoch() + std::chrono::hours(part(11, 2)) +
         std::chrono::minutes(part(14, 2)) + std::chrono::seconds(part(17, 2)) + fraction - *ahead;
}

std::string timeText(std::chrono::system_clock::time_point when) {
  const auto days = std::chrono::floor<std::chrono::days>(when);
  const std::chrono::year_month_day day(days);
  const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::milliseconds>(when - days));
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
                static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                static_cast<unsigned>(day.day()), static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
                static_cast<int>(time.subseconds().count()));
  return text.data();
}

// Name and value of an attribute, in letters that are the same in every encoding of a list.
std::string attribute(std::string_view name, std::string_view value) {
  std::string text = ' ' + std::string(name) + "=\"";
  for (std::size_t position = 0; position < value.size();) {
    const char32_t c = nextScalar(value, position);
    const bool isPlain = c >= U' ' && c <= U'~' &&
                         std::u32string_view(U"&<>\"'").find(c) == std::u32string_view::npos;
    const bool isForbidden =
        (c < U' ' && c != U'\t' && c != U'\n' && c != U'\r') || (c >= 0xFFFE && c <= 0xFFFF);
    if (isPlain) {
      text += static_cast<char>(c);
    } else {
      text += "&#" + std::to_string(static_cast<unsigned>(isForbidden ? U'\uFFFD' : c)) + ';';
    }
  }
  return text + '"';
}

// As it is written, of the tag that begins there.
std::string_view nameAt(std::string_view list, std::size_t tag) {
  return list.substr(tag + 1, list.find_first_of(kNameEnds, tag) - tag - 1);
}

// Whether what follows "xmlns:" can begin the name of an element, in any encoding.
bool isPrefix(std::string_view text) {
  const auto isAscii = [](char c) { return (c & 0x80) == 0; };
  if (text.empty() || !std::all_of(text.begin(), text.end(), isAscii)) return false;
  const char lower = static_cast<char>(text[0] | 0x20);
  return (lower >= 'a' && lower <= 'z') || text[0] == '_';
}

// What one of the applications has registered.
class Registered final : XmlEvents {
 public:
  Registered(std::string_view list, const std::vector<std::string>& applications,
             const std::function<void(const std::string&)>& tell)
      : XmlEvents(list), applications_(applications), tell_(tell) {
    read();
  }
  // With the time at which the last of them opened it.
  std::vector<std::pair<microseconds, std::string>> found;

 private:
  void start(const Tag& tag, const XmlAttributes& attributes) override {
    ++depth_;
    if (bookmarkDepth_ == 0) {
      if (tag.localName == "bookmark") begin(attributes);
    } else if (tag.localName == "application" && isOurs(attributes["name"])) {
      const microseconds own = moment(attributes["modified"]);
      last_ = std::max(last_.value_or(microseconds(0)), own > own.zero() ? own : moment(modified_));
    }
  }
  void begin(const XmlAttributes& attributes) {
    bookmarkDepth_ = depth_;
    href_ = attributes["href"];
    modified_ = attributes["modified"];
    last_.reset();
  }
  // Half an entry is none.
  void end(const Tag&) override {
    if (depth_-- != bookmarkDepth_) return;
    bookmarkDepth_ = 0;
    if (!last_ || href_.empty() || href_.size() > kMaxHref) return;
    found.emplace_back(*last_, href_);
    if (tell_) tell_(href_);
  }
  bool isOurs(std::string_view name) const {
    return std::find(applications_.begin(), applications_.end(), name) != applications_.end();
  }

  const std::vector<std::string>& applications_;
  const std::function<void(const std::string&)>& tell_;
  std::size_t depth_ = 0;
  std::size_t bookmarkDepth_ = 0;  // 0: in none
  std::string href_, modified_;
  std::optional<microseconds> last_;
};

// Finds what must change in a list for one more document, and leaves the rest as it is.
class ListEdit final : XmlEvents {
 public:
  ListEdit(std::string_view list, const OpenedDocument& document)
      : XmlEvents(list), document_(document), when_(timeText(document.when)) {}

  std::optional<std::string> run() {
    if (!read() || !added_) return std::nullopt;
    std::stable_sort(edits_.begin(), edits_.end(),
                     [](const Edit& a, const Edit& b) { return a.begin < b.begin; });
    std::string list;
    std::size_t done = 0;
    for (const Edit& edit : edits_) {
      list.append(text(), done, edit.begin - done).append(edit.text);
      done = edit.end;
    }
    return list.append(text(), done);
  }

 private:
  enum Depth { kRoot = 1, kBookmark = 2, kInfo = 3, kMetadata = 4, kApplications = 5 };
  // Of the list's bytes.
  struct Edit {
    std::size_t begin, end;
    std::string text;
  };

  void start(const Tag& tag, const XmlAttributes& attributes) override {
    ++depth_;
    if (depth_ == kRoot) {
      if (tag.localName != kRootName) return stop();
      bookmarkPrefix_ = prefix(tag, attributes, kBookmarks, "bookmark");
      mimePrefix_ = prefix(tag, attributes, kMime, "mime");
    }
    if (depth_ == kBookmark && tag.localName == "bookmark" && !added_ &&
        attributes["href"] == document_.href) {
      inDocument_ = true;
      set(tag, "modified", when_);
      set(tag, "visited", when_);
    }
    if (depth_ == kMetadata && inDocument_ && tag.localName == "metadata") {
      inOwnMetadata_ = attributes["owner"] == kOwner;
    }
    if (depth_ == kApplications + 1 && inOwnMetadata_ && tag.localName == "application" &&
        attributes["name"] == document_.application) {
      added_ = true;
      set(tag, "exec", document_.exec);
      set(tag, "modified", when_);
      set(tag, "count", std::to_string(timesOpened(attributes["count"]) + 1));
    }
  }

  void end(const Tag& tag) override {
    if (inDocument_ && !added_) {
      const bool isApplications = tag.localName == "applications";
      if (depth_ == kApplications && inOwnMetadata_ && isApplications) append(tag, application());
      if (depth_ == kMetadata && inOwnMetadata_) append(tag, applications());
      if (depth_ == kInfo && tag.localName == "info") append(tag, metadata());
      if (depth_ == kBookmark) append(tag, info());
    }
    if (depth_ == kRoot && !added_) append(tag, bookmark());
    if (depth_ == kMetadata) inOwnMetadata_ = false;
    if (depth_ == kBookmark) inDocument_ = false;
    --depth_;
  }

  static int timesOpened(std::string_view count) {
    int times = 0;
    std::from_chars(count.data(), count.data() + count.size(), times);
    return std::clamp(times, 0, 1'000'000'000);
  }

  // The one that the list has for a namespace; else it gets it, under a name that is free.
  std::string prefix(const Tag& root, const XmlAttributes& attributes, std::string_view uri,
                     std::string usual) {
    constexpr std::string_view kDeclares = "xmlns:";
    const std::string_view declaration = attributes.nameOf(uri, kDeclares);
    const std::string_view known =
        declaration.substr(std::min(kDeclares.size(), declaration.size()));
    if (isPrefix(known)) return std::string(known);
    while (attributes.has(std::string(kDeclares) + usual)) usual += '_';
    set(root, std::string(kDeclares) + usual, uri);
    return usual;
  }

  // The tag is whole and right, so whatever is looked for is there.
  void set(const Tag& tag, std::string_view name, std::string_view value) {
    const std::string_view bytes = text().substr(0, tag.end);
    std::size_t at = bytes.find_first_of(kNameEnds, tag.begin);
    while (true) {
      at = bytes.find_first_not_of(kBlanks, at);
      if (bytes[at] == '/' || bytes[at] == '>') break;
      const std::size_t nameEnd = bytes.find_first_of(" \t\r\n=", at);
      const std::size_t quote = bytes.find_first_of("\"'", nameEnd);
      const std::size_t valueEnd = bytes.find(bytes[quote], quote + 1) + 1;
      if (bytes.substr(at, nameEnd - at) == name) {
        edits_.push_back({at - 1, valueEnd, attribute(name, value)});
        return;
      }
      at = valueEnd;
    }
    edits_.push_back({at, at, attribute(name, value)});
  }

  // At the end of an element.
  void append(const Tag& end, const std::string& content) {
    added_ = true;
    if (end.begin < end.end) {
      edits_.push_back({end.begin, end.begin, content});
    } else {  // behind <name/>
      const std::string name(nameAt(text(), text().rfind('<', end.begin - 1)));
      edits_.push_back({end.begin - 2, end.begin, '>' + content + "</" + name + '>'});
    }
  }

  std::string application() const {
    return '<' + bookmarkPrefix_ + ":application" + attribute("name", document_.application) +
           attribute("exec", document_.exec) + attribute("modified", when_) +
           attribute("count", "1") + "/>";
  }
  std::string applications() const {
    const std::string name = bookmarkPrefix_ + ":applications";
    return '<' + name + '>' + application() + "</" + name + '>';
  }
  std::string metadata() const {
    const std::string_view type = document_.mimeType;
    return "<metadata" + attribute("owner", kOwner) + "><" + mimePrefix_ + ":mime-type" +
           attribute("type", type.empty() ? "application/octet-stream" : type) + "/>" +
           applications() + "</metadata>";
  }
  std::string info() const { return "<info>" + metadata() + "</info>"; }
  std::string bookmark() const {
    return "  <bookmark" + attribute("href", document_.href) + attribute("added", when_) +
           attribute("modified", when_) + attribute("visited", when_) + '>' + info() +
           "</bookmark>\n";
  }

  const OpenedDocument& document_;
  const std::string when_;
  std::vector<Edit> edits_;
  std::string bookmarkPrefix_, mimePrefix_;
  int depth_ = 0;
  bool inDocument_ = false;
  bool inOwnMetadata_ = false;
  bool added_ = false;
};

// How much of a list holds whole entries.
class WholeEntries final : XmlEvents {
 public:
  explicit WholeEntries(std::string_view list) : XmlEvents(list) { read(); }
  std::size_t size = 0;
  std::string_view root;

 private:
  void start(const Tag& tag, const XmlAttributes&) override {
    if (depth_++ > 0) return;
    if (tag.localName != kRootName) return stop();
    root = nameAt(text(), tag.begin);
  }
  void end(const Tag& tag) override {
    if (--depth_ == 1) size = tag.end;
  }

  std::size_t depth_ = 0;
};

}  // namespace

std::vector<std::string> documentsOf(std::string_view list,
                                     const std::vector<std::string>& applications,
                                     const std::function<void(const std::string&)>& found) {
  auto registered = Registered(list, applications, found).found;
  std::stable_sort(registered.begin(), registered.end(),
                   [](const auto& a, const auto& b) { return b.first < a.first; });
  std::vector<std::string> documents;
  documents.reserve(registered.size());
  for (auto& [when, href] : registered) documents.push_back(std::move(href));
  return documents;
}

std::optional<std::string> withDocument(std::string_view list, const OpenedDocument& document) {
  const bool isEmpty = list.find_first_not_of(kBlanks) == std::string_view::npos;
  return ListEdit(isEmpty ? kEmptyList : list, document).run();
}

std::string undamaged(std::string_view list) {
  const WholeEntries whole(list);
  if (whole.size == 0) return std::string(kEmptyList);
  return std::string(list.substr(0, whole.size)) + "\n</" + std::string(whole.root) + ">\n";
}

}  // namespace zq::qt
