// Files that are cut off, damaged, or announce more than they hold. Whatever stands in a file, the
// answer is a whole picture or the error InvalidPicture, soon and in little memory. What is damaged
// behind checksums that are right is another matter (damaged_png_test.cpp).
#pragma once

#include <memory>
#include <string>

#include "engine/native/pictures/picture_loader.h"
#include "support/pictures/picture_files.h"

namespace pagivo::native {

// Null when the bytes are refused; any other failure leaves the test, and so does one of pixels
// that are decoded later.
std::shared_ptr<PictureImage> DecodeOrRefuse(const Bytes& bytes);

// Each expects it of a file that is whole itself.
void ExpectRefusedOrWholeWhereverCut(const Bytes& bytes);
void ExpectRefusedWhenCutToAThird(const Bytes& bytes);
void ExpectDecodedOrRefusedWithAByteChanged(const Bytes& bytes);
void ExpectDecodedOrRefusedWithRandomBytesBehindItsSignature(const Bytes& bytes);

// For bombs: small files that would take gigabytes. `reason` stands in the error's description.
void ExpectRefusedInLittleMemory(const Bytes& bytes, const char* reason);

// The name of a file as that of a test.
std::string TestNameOf(std::string file);

}  // namespace pagivo::native
