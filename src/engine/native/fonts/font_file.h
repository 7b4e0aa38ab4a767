// How the bytes of a font file are reached. Each system's folder below this one defines it beside
// its face finder.
#pragma once

#include <hb.h>

#include <string>

namespace pagivo::native {

// The bytes of the file that a FaceFile names, for the caller to destroy; they hold as long as the
// file is not written to. Null when it cannot be read.
hb_blob_t* OpenFontFile(const std::string& path);

}  // namespace pagivo::native
