// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QMetaObject>
#include <QStringList>
#include <memory>
#include <zqswiftui/platform/qt/selection_reader.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/pasteboard.hpp>

class QMimeData;

namespace zq::qt {

// The desktop's clipboard. What belongs to another program must be asked for, and one that hangs
// lets it wait for seconds. On X a thread of our own waits. Elsewhere Qt does, on the interface
// thread, on which alone its clipboard may be used, and which has no question that answers later:
// there the owner is asked once what it has, only that is fetched, and who did not answer is not
// asked again until the content changes. On Wayland Qt gives up on a silent owner after a second.
// Pictures are encoded in the background: one that is set in another format than PNG is there at
// once, and as PNG, too, a moment later.
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
  void answerLater(Answer<T> answer, const std::vector<std::string>& types,
                   std::optional<T> (*read)(const QMimeData&, const QStringList&));
  bool ownerMayHang() const;
  const QMimeData* contents();

  zq::MainQueue& queue_;
  QMetaObject::Connection changes_;
  std::uint64_t changeCount_ = 0;
  std::uint64_t formatsOf_ = ~std::uint64_t{0};
  QStringList formats_;
  std::unique_ptr<SelectionReader> others_;  // none where the display is none of X
};

}  // namespace zq::qt
