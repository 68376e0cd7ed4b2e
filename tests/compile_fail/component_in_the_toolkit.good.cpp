// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/services/require.hpp>

int main() {}
