// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zq {

// Lists of addresses as programs hand them to each other (text/uri-list): one a line, lines that
// begin with # are comments. Others write them, so anything may come. Any thread.

inline constexpr std::size_t kMostAddresses = 100'000;

// The lines that are addresses, as views of the list; blanks around them, lines without a scheme
// and lines of more than 65,536 bytes are left out. No more than kMostAddresses.
std::vector<std::string_view> addressLines(std::string_view list);

// An address by itself; empty where it would be left out of a list.
std::string_view addressLine(std::string_view line);

// Whether it is one of files, whatever the case of its scheme.
bool isFileAddress(std::string_view line);

// A line as an address of escaped ASCII: blanks and all that is not ASCII are escaped, escapes
// stay, and file: addresses of this machine have no host. Addresses of other machines stay as they
// are.
std::string addressOf(std::string_view line, std::string_view thisHost);

}  // namespace zq
