// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>
#include <zqswiftui/bindings/zq_deferred_binding.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A value's owner that remembers all that it was told.
template <class T>
struct Owner {
  T value{};
  std::vector<T> heard;
  Binding<T> binding() {
    return Binding<T>([this] { return value; },
                      [this](const T& v) {
                        value = v;
                        heard.push_back(v);
                      });
  }
};

class DeferredBinding : public testing::Test {
 protected:
  HeadlessPlatform platform;
};

template <class Kind, class T>
void tellsTheLastValueAfter(double delay, std::vector<T> written, HeadlessPlatform& platform) {
  Owner<T> owner;
  const auto deferred = Kind::create(owner.binding());
  for (const T& v : written) {
    deferred->value().set(v);
    EXPECT_EQ(deferred->value().get(), v) << "the control sees its own value at once";
    platform.advance(delay * 0.9);  // each write starts the wait anew
    EXPECT_THAT(owner.heard, IsEmpty());
  }
  platform.advance(delay * 0.09);
  EXPECT_THAT(owner.heard, IsEmpty());
  platform.advance(delay * 0.02);
  EXPECT_THAT(owner.heard, ElementsAre(written.back()));
  platform.advance(10);
  EXPECT_EQ(owner.heard.size(), 1u);
}

TEST_F(DeferredBinding, tellsTheOwnerTheLastValueOnceTheControlIsStill) {
  tellsTheLastValueAfter<ZQDeferredBinding<int>, int>(0.5, {1, 2, 3}, platform);
  tellsTheLastValueAfter<ZQDeferredDoubleBinding, double>(0.1, {0.5, 0.25}, platform);
  tellsTheLastValueAfter<ZQDeferredTextBinding, std::string>(0.5, {"a", "ab"}, platform);
  tellsTheLastValueAfter<ZQDeferredIntBinding, std::int64_t>(1.0, {7, 8, 9}, platform);
}

TEST_F(DeferredBinding, takesTheOwnersValueOnceAndNeverAgain) {
  Owner<int> owner{.value = 4, .heard = {}};
  const auto deferred = ZQDeferredBinding<int>::create(owner.binding());
  owner.value = 5;
  EXPECT_EQ(deferred->internalValue(), 4);
  deferred->value().set(4);  // the owner has another one, but nothing was changed here
  EXPECT_FALSE(deferred->queue()->isPending());
}

TEST_F(DeferredBinding, anEqualValueNeitherSchedulesNorDisturbsWhatIsPending) {
  Owner<double> owner;
  const auto deferred = ZQDeferredDoubleBinding::create(owner.binding());
  deferred->value().set(0);
  deferred->value().set(-0.0);  // equal, as numbers are
  EXPECT_FALSE(deferred->queue()->isPending());

  deferred->value().set(1);
  platform.advance(0.06);
  deferred->value().set(1);
  platform.advance(0.05);
  EXPECT_THAT(owner.heard, ElementsAre(1));

  deferred->value().set(std::numeric_limits<double>::quiet_NaN());
  deferred->value().set(std::numeric_limits<double>::quiet_NaN());
  platform.advance(0.11);
  EXPECT_TRUE(std::isnan(owner.value));
}

template <class Kind, class T>
std::size_t heardAfterRelease(const T& written, HeadlessPlatform& platform) {
  Owner<T> owner;
  // The task outlives the binding, so that only the binding's own hold is tried.
  const auto queue = std::make_shared<ZQPressureTask>();
  Kind::create(owner.binding(), queue)->value().set(written);
  platform.advance(2);
  return owner.heard.size();
}

TEST_F(DeferredBinding, onlyTheGenericOneIsSilentWhenItWasReleased) {
  EXPECT_EQ((heardAfterRelease<ZQDeferredBinding<int>, int>(1, platform)), 0u);
  EXPECT_EQ((heardAfterRelease<ZQDeferredDoubleBinding, double>(1, platform)), 1u);
  EXPECT_EQ((heardAfterRelease<ZQDeferredTextBinding, std::string>("x", platform)), 1u);
  EXPECT_EQ((heardAfterRelease<ZQDeferredIntBinding, std::int64_t>(1, platform)), 1u);
}

TEST_F(DeferredBinding, aStrongOneGoesOnceItHasWritten) {
  Owner<std::string> owner;
  std::weak_ptr<ZQDeferredTextBinding> weak;
  {
    const auto deferred = ZQDeferredTextBinding::create(owner.binding());
    weak = deferred;
    deferred->value().set("x");
  }
  EXPECT_FALSE(weak.expired());
  platform.advance(0.5);
  EXPECT_TRUE(weak.expired());
  EXPECT_EQ(owner.value, "x");
}

TEST_F(DeferredBinding, anImmediateWriteLeavesThePendingOneToComeLater) {
  Owner<int> owner;
  const auto deferred = ZQDeferredBinding<int>::create(owner.binding());
  deferred->setValue(1, false);
  platform.advance(0.2);
  deferred->setValue(2, true);
  deferred->setValue(2, true);  // equal: told once
  EXPECT_THAT(owner.heard, ElementsAre(2));
  platform.advance(0.3);
  EXPECT_THAT(owner.heard, ElementsAre(2, 1));
  EXPECT_EQ(deferred->internalValue(), 2);
}

TEST_F(DeferredBinding, afterCommitTheOwnerHearsNothingMore) {
  Owner<int> owner;
  std::weak_ptr<ZQDeferredBinding<int>> weak;
  {
    const auto deferred = ZQDeferredBinding<int>::create(owner.binding());
    weak = deferred;
    deferred->setValue(1, false);
    deferred->commit();
    EXPECT_EQ(deferred->bindedValue().get(), 1);
    platform.advance(1);
    deferred->setValue(2, false);
    platform.advance(1);
    deferred->setValue(3, true);
    EXPECT_EQ(deferred->internalValue(), 3);
  }
  EXPECT_THAT(owner.heard, IsEmpty());
  EXPECT_TRUE(weak.expired()) << "bound to itself, it must not keep itself alive";
}

TEST_F(DeferredBinding, aViewThatObservesItShowsEachValueAtOnce) {
  struct Field {
    std::shared_ptr<ZQDeferredTextBinding> deferred;
    View body(Context& context) const { return Text(context.observe(deferred).internalText()); }
  };
  Owner<std::string> owner{.value = "old", .heard = {}};
  const auto deferred = ZQDeferredTextBinding::create(owner.binding());
  Harness screen(Field{deferred});
  EXPECT_TRUE(screen.findText("old"));
  deferred->value().set("new");
  screen.settle();
  EXPECT_TRUE(screen.findText("new"));
  EXPECT_THAT(owner.heard, IsEmpty());
}

}  // namespace
}  // namespace zq
