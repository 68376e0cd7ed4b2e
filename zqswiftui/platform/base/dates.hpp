// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace zq {

// A date in local time by a pattern such as "dd MMM yy [HH:mm]": d day, M month (three are
// its short, four its full English name), y year (two: of the century), H hour, m minute,
// s second, as many digits as letters; text between ' and all else stands for itself. Any
// thread.
std::string du_formatDate(std::chrono::system_clock::time_point date, std::string_view formatter);

}  // namespace zq
