// ZQSwiftUI, MIT licence; see LICENSE.
// floor: components
// says: platform/qt
#include <zqswiftui/platform/qt/platform.hpp>

int main() {}
