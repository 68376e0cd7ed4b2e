// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/zqswiftui.hpp>

int main() {}
