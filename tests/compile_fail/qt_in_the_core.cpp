// ZQSwiftUI, MIT licence; see LICENSE.
// floor: components
// says: QString
#include <QString>

int main() {}
