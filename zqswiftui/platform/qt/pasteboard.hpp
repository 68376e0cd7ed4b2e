// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QMetaObject>
#include <QStringList>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/pasteboard.hpp>

class QMimeData;

namespace zq::qt {

// The desktop's clipboard. Each question waits for the content's owner, and a hung one lets it
// wait for seconds: so the owner is asked once what it has, only that is fetched, and who did
// not answer is not asked again until the content changes.
class Pasteboard final : public zq::Pasteboard {
 public:
  explicit Pasteboard(zq::MainQueue& queue);
  ~Pasteboard() override;

  void setText(std::string text) override;
  void setImage(Bytes encoded) override;
  void setUrls(std::vector<std::string> urls) override;
  void clear() override;
  void readText(Answer<std::string> answer) override;
  void readImage(Answer<Bytes> answer) override;
  void readUrls(Answer<std::vector<std::string>> answer) override;
  std::uint64_t changeCount() const override { return changeCount_; }

 private:
  template <class T>
  void answerLater(Answer<T> answer, std::optional<T> (Pasteboard::*read)());
  std::optional<std::string> text();
  std::optional<Bytes> image();
  std::optional<std::vector<std::string>> urls();
  const QMimeData* contents();

  zq::MainQueue& queue_;
  QMetaObject::Connection changes_;
  std::uint64_t changeCount_ = 0;
  std::uint64_t formatsOf_ = ~std::uint64_t{0};
  QStringList formats_;
};

}  // namespace zq::qt
