// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/bindings/kept_holder.hpp>
#include <zqswiftui/bindings/zq_notificable_percentage_view.hpp>
#include <zqswiftui/bindings/zq_notificable_value.hpp>
#include <zqswiftui/controls/zq_progress_bar_view.hpp>

namespace zq {

ZQNotificablePercentageView::ZQNotificablePercentageView(Parameters parameters)
    : parameters_(std::move(parameters)),
      notificableValue_(std::make_shared<ZQNotificableValue>(parameters_.key.get())) {}

View ZQNotificablePercentageView::body(Context& context) const {
  return ZQProgressBarView({.foregroundColor = parameters_.foregroundColor,
                            .backgroundColor = parameters_.backgroundColor,
                            .percentage = detail::observeKept(context, notificableValue_).value(),
                            .showPercentage = parameters_.showPercentage,
                            .add1Digit = false,
                            .height = std::nullopt,
                            .animation = true});
}

}  // namespace zq
