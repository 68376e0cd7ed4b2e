// ZQSwiftUI, MIT licence; see LICENSE.
// floor: toolkit
// says: zqswiftui/zqswiftui.hpp
#include <zqswiftui/zqswiftui.hpp>

int main() {}
