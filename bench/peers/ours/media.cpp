// ZQSwiftUI, MIT licence; see LICENSE.
#include "media.hpp"

namespace bench {

bool media(const Arguments& arguments) {
  static const MediaJob jobs[] = {{"ruler", ruler},
                                  {"timeline", timeline},
                                  {"canvas-rects", canvasRects},
                                  {"notifications", notifications},
                                  {"drop", drop},
                                  {"recent", recent}};
  return runMedia(arguments, jobs);
}

}  // namespace bench
