// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace zq {

struct LoadLimits {
  double seconds = 60;  // of a download; 0: none
  std::uint64_t bytes = defaultReadLimit;
};

// The whole of what a URL names: a file is read, anything else downloaded. Goes on in the
// background. Any thread.
Task<Result<Bytes>> loadUrl(Url url, LoadLimits limits = {});
// The same on this thread, which waits for it.
Result<Bytes> loadUrlAndWait(const Url& url, LoadLimits limits = {});

}  // namespace zq
