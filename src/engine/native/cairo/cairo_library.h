// What is called of cairo. A build that does not link it loads it when something of it is first
// called (PAGIVO_LATE_CAIRO, which src/CMakeLists.txt defines): a PDF file needs none of it, and it
// brings a dozen libraries along.
#pragma once

#include <cairo.h>

#ifdef PAGIVO_LATE_CAIRO
#include "system/posix/late_library.h"

namespace pagivo::native {

inline constinit const LateLibrary kCairo("libcairo.so.2");
PAGIVO_LATE_FUNCTION(kCairo, cairo_clip);
PAGIVO_LATE_FUNCTION(kCairo, cairo_close_path);
PAGIVO_LATE_FUNCTION(kCairo, cairo_create);
PAGIVO_LATE_FUNCTION(kCairo, cairo_curve_to);
PAGIVO_LATE_FUNCTION(kCairo, cairo_destroy);
PAGIVO_LATE_FUNCTION(kCairo, cairo_fill);
PAGIVO_LATE_FUNCTION(kCairo, cairo_get_current_point);
PAGIVO_LATE_FUNCTION(kCairo, cairo_get_source);
PAGIVO_LATE_FUNCTION(kCairo, cairo_image_surface_create);
PAGIVO_LATE_FUNCTION(kCairo, cairo_image_surface_create_for_data);
PAGIVO_LATE_FUNCTION(kCairo, cairo_image_surface_get_data);
PAGIVO_LATE_FUNCTION(kCairo, cairo_image_surface_get_height);
PAGIVO_LATE_FUNCTION(kCairo, cairo_image_surface_get_width);
PAGIVO_LATE_FUNCTION(kCairo, cairo_line_to);
PAGIVO_LATE_FUNCTION(kCairo, cairo_matrix_init_scale);
PAGIVO_LATE_FUNCTION(kCairo, cairo_matrix_translate);
PAGIVO_LATE_FUNCTION(kCairo, cairo_move_to);
PAGIVO_LATE_FUNCTION(kCairo, cairo_new_path);
PAGIVO_LATE_FUNCTION(kCairo, cairo_pattern_set_extend);
PAGIVO_LATE_FUNCTION(kCairo, cairo_pattern_set_filter);
PAGIVO_LATE_FUNCTION(kCairo, cairo_pattern_set_matrix);
PAGIVO_LATE_FUNCTION(kCairo, cairo_rectangle);
PAGIVO_LATE_FUNCTION(kCairo, cairo_restore);
PAGIVO_LATE_FUNCTION(kCairo, cairo_save);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_dash);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_fill_rule);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_line_cap);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_line_join);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_line_width);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_source_rgb);
PAGIVO_LATE_FUNCTION(kCairo, cairo_set_source_surface);
PAGIVO_LATE_FUNCTION(kCairo, cairo_status);
PAGIVO_LATE_FUNCTION(kCairo, cairo_stroke);
PAGIVO_LATE_FUNCTION(kCairo, cairo_surface_destroy);
PAGIVO_LATE_FUNCTION(kCairo, cairo_surface_flush);
PAGIVO_LATE_FUNCTION(kCairo, cairo_surface_mark_dirty);
PAGIVO_LATE_FUNCTION(kCairo, cairo_surface_write_to_png_stream);
PAGIVO_LATE_FUNCTION(kCairo, cairo_translate);

}  // namespace pagivo::native
#endif
