// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/platform/base/url_loader.hpp>

namespace zq {

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
  if (!answer.ok()) co_return Error{"cannot load " + url.text() + ": " + answer.error};
  co_return std::move(answer.bytes);
}

}  // namespace zq
