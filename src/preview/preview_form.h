// The one preview window of the process.
#pragma once

#include "preview/frm_afdrukken.h"

namespace pagivo {

// Created, not loaded, on the platform in use when there is none.
frmAfdrukken& PreviewForm();

// Sets the reference to none: the next use creates a new window.
void ReleasePreviewForm();

// Places the preview window over the host's and shows it modally. Errors are ignored.
void ToonVoorbeeld();

}  // namespace pagivo
