// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/zqswiftui.hpp>

int main(int argc, char**) {
  ZQ_REQUIRE(argc == 1, "the consumer takes no arguments");
}
