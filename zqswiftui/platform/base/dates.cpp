// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <ctime>
#include <zqswiftui/platform/base/dates.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq {

namespace {

constexpr std::array<std::string_view, 12> monthNames{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

std::string monthField(int month, int letters) {
  if (letters <= 2) return strUt_padN(month + 1, letters);
  const std::string_view name = monthNames[static_cast<std::size_t>(std::clamp(month, 0, 11))];
  return std::string(letters == 3 ? name.substr(0, 3) : name);
}

// The field that a run of letters stands for; the run itself where it stands for none.
std::string field(const std::tm& time, char letter, int letters) {
  switch (letter) {
    case 'd':
      return strUt_padN(time.tm_mday, letters);
    case 'M':
      return monthField(time.tm_mon, letters);
    case 'y':
      return strUt_padN(letters == 2 ? time.tm_year % 100 : time.tm_year + 1900, letters);
    case 'H':
      return strUt_padN(time.tm_hour, letters);
    case 'm':
      return strUt_padN(time.tm_min, letters);
    case 's':
      return strUt_padN(time.tm_sec, letters);
    default:
      return std::string(static_cast<std::size_t>(letters), letter);
  }
}

}  // namespace

std::string du_formatDate(std::chrono::system_clock::time_point date, std::string_view formatter) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(date);
  std::tm time{};
  if (localtime_r(&seconds, &time) == nullptr) return "";
  std::string text;
  for (std::size_t i = 0; i < formatter.size();) {
    const char letter = formatter[i];
    if (letter == '\'') {
      const std::size_t end = std::min(formatter.find('\'', i + 1), formatter.size());
      text += formatter.substr(i + 1, end - i - 1);
      i = end + 1;
      continue;
    }
    const std::size_t end = std::min(formatter.find_first_not_of(letter, i), formatter.size());
    text += field(time, letter, static_cast<int>(end - i));
    i = end;
  }
  return text;
}

}  // namespace zq
