// ZQSwiftUI, MIT licence; see LICENSE.
// floor: components
// says: platform/headless
#include <zqswiftui/platform/headless/harness.hpp>

int main() {}
