// ZQSwiftUI, MIT licence; see LICENSE.
// Any widths, gaps and sizes through the flow layout: every child has its place in one row.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <zqswiftui/layout/flow_layout.hpp>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<double> numbers(size / sizeof(double));
  if (numbers.size() < 4) return 0;
  std::memcpy(numbers.data(), data, numbers.size() * sizeof(double));
  std::vector<zq::Size> sizes;
  for (std::size_t i = 2; i + 1 < numbers.size(); i += 2) {
    sizes.push_back({numbers[i], numbers[i + 1]});
  }
  const zq::FlowResult result = zq::flowRows(numbers[0], sizes, numbers[1]);
  std::int64_t next = 0;
  for (const zq::FlowRow& row : result.rows) {
    if (row.range.lowerBound != next || row.range.upperBound <= row.range.lowerBound) std::abort();
    if (row.xOffsets.size() !=
        static_cast<std::size_t>(row.range.upperBound - row.range.lowerBound))
      std::abort();
    next = row.range.upperBound;
  }
  if (next != static_cast<std::int64_t>(sizes.size())) std::abort();
  return 0;
}
