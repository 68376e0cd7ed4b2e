// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/url_loader.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

Result<Bytes> bytesOf(const Url& url, DownloadAnswer answer) {
  if (!answer.ok()) return Error{"cannot load " + url.text() + ": " + answer.error};
  return std::move(answer.bytes);
}

}  // namespace

Task<Result<Bytes>> loadUrl(Url url, LoadLimits limits) {
  if (url.isFile()) {
    co_await onBackground();
    co_return readFile(url.path(), limits.bytes);
  }
  detail::Callback<DownloadAnswer>::Begin begin = [url, limits](auto answer) {
    Platform::current().downloads().fetch({url.text(), limits.seconds, limits.bytes},
                                          std::move(answer));
  };
  DownloadAnswer answer = co_await callback<DownloadAnswer>(std::move(begin));
  co_await onBackground();
  co_return bytesOf(url, std::move(answer));
}

Result<Bytes> loadUrlAndWait(const Url& url, LoadLimits limits) {
  if (url.isFile()) return readFile(url.path(), limits.bytes);
  return bytesOf(url, Platform::current().downloads().fetchAndWait(
                          {url.text(), limits.seconds, limits.bytes}));
}

}  // namespace zq
