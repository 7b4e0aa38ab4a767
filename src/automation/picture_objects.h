// The host's picture objects.
#pragma once

#include <oaidl.h>

#include "pagivo/object.h"

namespace pagivo::automation {

// Makes a picture of ours of the host's: of the file that it was loaded from where it still has
// that, else of its pixels, and of a metafile as it looks at kMetafileDotsPerInch. Pictures of
// equal contents are one as long as somebody holds it, so that a document stores them once. Null
// for null and for an object that is no picture or cannot be read as one.
ObjectRef ReadPicture(IUnknown* object);

inline constexpr int kMetafileDotsPerInch = 300;

}  // namespace pagivo::automation
