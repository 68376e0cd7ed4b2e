// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

// The whole library but its platforms, for programs that rather write one line than ten:
//   #include <zqswiftui/zqswiftui.hpp>
// The host's platform is included beside it. Inside the library include what you use.

#include <zqswiftui/bindings/zq_deferred_binding.hpp>
#include <zqswiftui/bindings/zq_notificable_image.hpp>
#include <zqswiftui/bindings/zq_notificable_image_view.hpp>
#include <zqswiftui/bindings/zq_notificable_percentage_view.hpp>
#include <zqswiftui/bindings/zq_notificable_text.hpp>
#include <zqswiftui/bindings/zq_notificable_text_view.hpp>
#include <zqswiftui/bindings/zq_notificable_value.hpp>
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/menu.hpp>
#include <zqswiftui/controls/number_field.hpp>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/controls/switch.hpp>
#include <zqswiftui/controls/zq_borderless_button.hpp>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/controls/zq_cancel_continue_lower_bar.hpp>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/controls/zq_favorite_button.hpp>
#include <zqswiftui/controls/zq_labeled_spinner.hpp>
#include <zqswiftui/controls/zq_large_square_button.hpp>
#include <zqswiftui/controls/zq_plus_minus_buttons.hpp>
#include <zqswiftui/controls/zq_progress_bar_view.hpp>
#include <zqswiftui/controls/zq_system_image_button.hpp>
#include <zqswiftui/controls/zq_tooltip_question_mark.hpp>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/files/zq_app_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_drag_and_upload_image_area_view.hpp>
#include <zqswiftui/files/zq_drag_image_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_label.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_folder_drag_area_view.hpp>
#include <zqswiftui/files/zq_multiple_files_drag_area_view.hpp>
#include <zqswiftui/files/zq_recent_file_view.hpp>
#include <zqswiftui/files/zq_recent_files.hpp>
#include <zqswiftui/files/zq_sub_file_image_well_view.hpp>
#include <zqswiftui/files/zq_text_drag_area_view.hpp>
#include <zqswiftui/images/picture_limits.hpp>
#include <zqswiftui/images/zq_an_image.hpp>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/images/zq_concurrent_deferred_image.hpp>
#include <zqswiftui/images/zq_deferred_image.hpp>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/images/zq_pasteboard_image.hpp>
#include <zqswiftui/images/zq_shared_cached_image.hpp>
#include <zqswiftui/images/zq_sub_file_cached_image.hpp>
#include <zqswiftui/images/zq_url_image.hpp>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/layout/row_list.hpp>
#include <zqswiftui/layout/selection_list.hpp>
#include <zqswiftui/layout/split_view.hpp>
#include <zqswiftui/layout/zq_canvas_range_rect_view.hpp>
#include <zqswiftui/layout/zq_canvas_rect_drawing_view.hpp>
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/layout/zq_mini_timeline.hpp>
#include <zqswiftui/layout/zq_ruler_bar.hpp>
#include <zqswiftui/layout/zq_ruler_view.hpp>
#include <zqswiftui/layout/zq_tags_view.hpp>
#include <zqswiftui/layout/zq_timecode_view.hpp>
#include <zqswiftui/layout/zq_tokens_view.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>
#include <zqswiftui/settings/zq_config.hpp>
