// What the pictures ask of Windows beside their pixels.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"
#include "support/pictures/picture_files.h"

namespace pagivo::native {
namespace {

HRESULT ApartmentOfThread() {
  APTTYPE type{};
  APTTYPEQUALIFIER qualifier{};
  return CoGetApartmentType(&type, &qualifier);
}

void ExpectDecoded() {
  EXPECT_EQ(LoadPictureFile(PicturePath("colors.tif"))->Width(), 16);
  EXPECT_EQ(LoadPictureFile(PicturePath("colors.gif"))->Width(), 16);
}

TEST(PicturesOnAThread, WithoutComLeaveItWithoutCom) {
  ASSERT_EQ(ApartmentOfThread(), CO_E_NOTINITIALIZED);
  ExpectDecoded();
  EXPECT_EQ(ApartmentOfThread(), CO_E_NOTINITIALIZED);
}

TEST(PicturesOnAThread, WithComLeaveTheHostItsApartment) {
  for (const COINIT apartment : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
    ASSERT_EQ(CoInitializeEx(nullptr, apartment), S_OK);
    ExpectDecoded();
    EXPECT_EQ(ApartmentOfThread(), S_OK);
    CoUninitialize();
    EXPECT_EQ(ApartmentOfThread(), CO_E_NOTINITIALIZED);
  }
}

TEST(Svg, IsRefusedForNothingDrawsIt) {
  try {
    LoadPictureFile(PicturePath("colors.svg"));
    FAIL() << "it was loaded";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    EXPECT_THAT(error.what(), testing::EndsWith("colors.svg\" kan niet worden gebruikt: deze soort "
                                                "afbeelding kan op deze computer niet worden "
                                                "gelezen"));
  }
}

}  // namespace
}  // namespace pagivo::native
