// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

// std::function, and of <functional> no more than the standard library lets us have: what else it
// brings, hash maps and searches, is a tenth of what the whole library costs who includes it.

#include <string>  // first: the header below relies on parts of it

#if __has_include(<bits/std_function.h>)
#include <bits/std_function.h>
#else
#include <functional>
#endif
