// What is called of the libraries that decode the rarer kinds of pictures.
#pragma once

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <librsvg/rsvg.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include "system/posix/late_library.h"

namespace pagivo::native {

inline constinit const LateLibrary kGdkPixbuf("libgdk_pixbuf-2.0.so.0");
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_get_has_alpha);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_get_height);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_get_pixels);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_get_rowstride);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_get_width);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_loader_close);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_loader_get_pixbuf);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_loader_new);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_loader_new_with_type);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_loader_set_size);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, gdk_pixbuf_loader_write);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, g_object_unref);
PAGIVO_LATE_FUNCTION(kGdkPixbuf, g_signal_connect_data);

// It brings GLib along.
inline constinit const LateLibrary kRsvg("librsvg-2.so.2");
PAGIVO_LATE_FUNCTION(kRsvg, g_ascii_dtostr);
PAGIVO_LATE_FUNCTION(kRsvg, g_ascii_strcasecmp);
PAGIVO_LATE_FUNCTION(kRsvg, g_base64_decode);
PAGIVO_LATE_FUNCTION(kRsvg, g_base64_encode);
PAGIVO_LATE_FUNCTION(kRsvg, g_free);
PAGIVO_LATE_FUNCTION(kRsvg, g_memory_input_stream_new_from_data);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_get_geometry_for_element);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_get_intrinsic_dimensions);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_get_intrinsic_size_in_pixels);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_new_with_flags);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_read_stream_sync);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_render_document);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_set_dpi);
PAGIVO_LATE_FUNCTION(kRsvg, rsvg_handle_set_stylesheet);

inline constinit const LateLibrary kXml("libxml2.so.2");
PAGIVO_LATE_FUNCTION(kXml, xmlCreatePushParserCtxt);
PAGIVO_LATE_FUNCTION(kXml, xmlCtxtUseOptions);
PAGIVO_LATE_FUNCTION(kXml, xmlFreeDoc);
PAGIVO_LATE_FUNCTION(kXml, xmlFreeParserCtxt);
PAGIVO_LATE_FUNCTION(kXml, xmlParseChunk);
PAGIVO_LATE_FUNCTION(kXml, xmlSAX2EndDocument);
PAGIVO_LATE_FUNCTION(kXml, xmlSAX2EntityDecl);
PAGIVO_LATE_FUNCTION(kXml, xmlSAX2GetEntity);
PAGIVO_LATE_FUNCTION(kXml, xmlSAX2InternalSubset);
PAGIVO_LATE_FUNCTION(kXml, xmlSAX2StartDocument);
PAGIVO_LATE_FUNCTION(kXml, xmlStopParser);

}  // namespace pagivo::native
