// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/options.hpp>
#include <array>
#include <charconv>

namespace zq::gallery {
namespace {

constexpr std::size_t kUpperMostWords = 1'000'000;
constexpr std::size_t kOptionColumn = 20;

struct OptionRow {
  std::string_view name;
  std::string_view value;
  std::string_view what;
};

constexpr std::array<OptionRow, 9> kRows = {{
    {"--page", "NAME", "open that page; with --snapshot, paint it alone"},
    {"--words", "FILE", "show the words of that text file on the tags page"},
    {"--max-words", "N", "show at most N of them (10000)"},
    {"--pictures", "DIR", "show the first 500 pictures of that folder on the wall"},
    {"--snapshot", "DIR", "paint every page into DIR, light and dark; needs no display"},
    {"--text-scale", "N", "with --snapshot, texts of that size, 0.5 to 4"},
    {"--right-to-left", "", "with --snapshot, mirrored"},
    {"--list", "", "print the names of the pages"},
    {"--help", "", "print this"},
}};

Result<std::size_t> readCount(const std::string& text) {
  std::size_t count = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), count);
  const bool whole = fault == std::errc() && end == text.data() + text.size();
  if (!whole || count == 0 || count > kUpperMostWords) {
    return Error{"--max-words takes a number from 1 to " + std::to_string(kUpperMostWords) +
                 ", not \"" + text + "\"."};
  }
  return count;
}

Result<double> readTextScale(const std::string& text) {
  double scale = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), scale);
  const bool whole = fault == std::errc() && end == text.data() + text.size();
  if (!whole || !(scale >= 0.5 && scale <= 4)) {
    return Error{"--text-scale takes a number from 0.5 to 4, not \"" + text + "\"."};
  }
  return scale;
}

Result<void> apply(Options& options, std::string_view name, std::string value) {
  if (value.empty()) return Error{std::string(name) + " needs a value; see --help."};
  if (name == "--page") {
    options.page = std::move(value);
  } else if (name == "--words") {
    options.words = std::move(value);
  } else if (name == "--pictures") {
    options.pictures = std::move(value);
  } else if (name == "--snapshot") {
    options.snapshot = std::move(value);
  } else if (name == "--text-scale") {
    const Result<double> scale = readTextScale(value);
    if (!scale.ok()) return scale.error();
    options.textScale = scale.value();
  } else {
    const Result<std::size_t> count = readCount(value);
    if (!count.ok()) return count.error();
    options.mostWords = count.value();
  }
  return {};
}

}  // namespace

Result<Options> readOptions(std::span<const std::string_view> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string_view name = arguments[i];
    if (name == "-h" || name == "--help") {
      options.help = true;
      continue;
    }
    if (name == "--list") {
      options.list = true;
      continue;
    }
    if (name == "--right-to-left") {
      options.rightToLeft = true;
      continue;
    }
    std::optional<std::string> value;
    if (const std::size_t equals = name.find('='); equals != std::string_view::npos) {
      value = std::string(name.substr(equals + 1));
      name = name.substr(0, equals);
    }
    bool known = false;
    for (const OptionRow& row : kRows) known = known || (row.name == name && !row.value.empty());
    if (!known) return Error{"Unknown argument: " + std::string(arguments[i]) + "; see --help."};
    if (!value && i + 1 < arguments.size()) value = std::string(arguments[++i]);
    const Result<void> applied = apply(options, name, value.value_or(""));
    if (!applied.ok()) return applied.error();
  }
  return options;
}

std::string helpText(bool coloured) {
  const std::string bold = coloured ? "\033[1m" : "";
  const std::string name = coloured ? "\033[36m" : "";
  const std::string plain = coloured ? "\033[0m" : "";
  std::string text = bold + "zq-gallery" + plain + ": every component, live, with its code\n\n" +
                     bold + "Usage" + plain + "\n  zq-gallery [options]\n\n" + bold + "Options" +
                     plain + "\n";
  for (const OptionRow& row : kRows) {
    std::string left(row.name);
    if (!row.value.empty()) left += " " + std::string(row.value);
    text += "  " + name + left + plain + std::string(kOptionColumn - left.size(), ' ') +
            std::string(row.what) + "\n";
  }
  return text + "\n" + bold + "Keys" + plain +
         "\n  Up and Down change the page, Ctrl+F searches, Tab moves the focus, Space presses.\n";
}

}  // namespace zq::gallery
