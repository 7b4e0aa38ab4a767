// Picture objects of the system as arguments, and what of them the document's file holds.
#include <olectl.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "automation_test.h"
#include "host_object.h"
#include "support/read_file.h"

namespace pagivo::automation::testing {
namespace {

ComPtr<IPicture> MakePicture(PICTDESC description) {
  description.cbSizeofstruct = sizeof description;
  ComPtr<IPicture> picture;
  EXPECT_HRESULT_SUCCEEDED(OleCreatePictureIndirect(
      &description, IID_IPicture, TRUE, reinterpret_cast<void**>(picture.GetAddressOf())));
  return picture;
}

// A bitmap of so many bits a pixel, `side` pixels square.
template <typename Paint>
ComPtr<IPicture> PaintPicture(WORD bitsPerPixel, LONG side, Paint paint) {
  BITMAPINFO layout{};
  layout.bmiHeader.biSize = sizeof layout.bmiHeader;
  layout.bmiHeader.biWidth = side;
  layout.bmiHeader.biHeight = side;
  layout.bmiHeader.biPlanes = 1;
  layout.bmiHeader.biBitCount = bitsPerPixel;
  const HDC dc = CreateCompatibleDC(nullptr);
  void* pixels = nullptr;
  PICTDESC description{};
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = CreateDIBSection(dc, &layout, DIB_RGB_COLORS, &pixels, nullptr, 0);
  const HGDIOBJ before = SelectObject(dc, description.bmp.hbitmap);
  paint(dc);
  SelectObject(dc, before);
  DeleteDC(dc);
  return MakePicture(description);
}

// Each pixel has a colour of its own.
ComPtr<IPicture> MakeBitmapPicture(WORD bitsPerPixel, LONG side = 16) {
  return PaintPicture(bitsPerPixel, side, [side](HDC dc) {
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) SetPixel(dc, x, y, RGB(x * 7, y * 5, 200));
    }
  });
}

// A black quarter at the left above, an inch wide and high.
ComPtr<IPicture> MakeMetafilePicture() {
  constexpr int kInchInHimetric = 2540;
  const HDC dc = CreateMetaFileW(nullptr);
  SetMapMode(dc, MM_ANISOTROPIC);
  SetWindowExtEx(dc, 10, 10, nullptr);
  PatBlt(dc, 0, 0, 5, 5, BLACKNESS);
  PICTDESC description{};
  description.picType = PICTYPE_METAFILE;
  description.wmf.hmeta = CloseMetaFile(dc);
  description.wmf.xExt = kInchInHimetric;
  description.wmf.yExt = kInchInHimetric;
  return MakePicture(description);
}

// A file of the pixels of MakeBitmapPicture, red last.
void WriteBitmapFile(const char* path, LONG side = 16) {
  const auto pixelBytes = static_cast<DWORD>(3 * side * side);
  BITMAPFILEHEADER start{0x4D42, 54 + pixelBytes, 0, 0, 54};
  BITMAPINFOHEADER layout{40, side, side, 1, 24, 0, 0, 0, 0, 0, 0};
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(&start), sizeof start);
  file.write(reinterpret_cast<const char*>(&layout), sizeof layout);
  for (LONG y = side - 1; y >= 0; --y) {
    for (LONG x = 0; x < side; ++x) {
      file.put('\xC8').put(static_cast<char>(y * 5)).put(static_cast<char>(x * 7));
    }
  }
}

// The images in a file, as they stand in it.
std::vector<std::string> ImagesIn(const std::string& pdf) {
  std::vector<std::string> images;
  for (std::size_t at = 0; (at = pdf.find("/Subtype/Image", at)) != std::string::npos; ++at) {
    images.push_back(pdf.substr(at, pdf.find("endstream", at) - at));
  }
  return images;
}

class PictureArguments : public AutomationTest {
 protected:
  Outcome Draw(const Value& picture, double at = 100) {
    return Print(L"VsPPRealPicture", {picture, at, at, at + 1000, at + 1000});
  }
  // What the document's file holds of the pictures that were drawn. Another document begins.
  std::vector<std::string> Images() {
    Print(L"VsPPNewPage");
    EXPECT_EQ(Print(L"VsPPFinish", {L"Foto"}).status, S_OK);
    EXPECT_EQ(Print(L"VSPDF", {L"foto.pdf"}).status, S_OK);
    std::vector<std::string> images = ImagesIn(ReadFile("foto.pdf"));
    DeleteFileW(L"foto.pdf");
    Print(L"VsPPInit");
    return images;
  }
  // The image of the same pixels in a file.
  std::vector<std::string> ImageOfFile() {
    WriteBitmapFile("foto.bmp");
    Print(L"VsPPPicture", {L"foto.bmp", 100.0, 100.0, 1100.0, 1100.0});
    std::vector<std::string> images = Images();
    DeleteFileW(L"foto.bmp");
    EXPECT_EQ(images.size(), 1U);
    return images;
  }
};

TEST_F(PictureArguments, OfBitmapsAreDrawnInTheirColours) {
  Draw(MakeBitmapPicture(24).Get());
  const std::vector<std::string> of24Bits = Images();
  Draw(MakeBitmapPicture(32).Get());
  const std::vector<std::string> of32Bits = Images();
  const std::vector<std::string> ofFile = ImageOfFile();
  EXPECT_EQ(of24Bits, ofFile);
  EXPECT_EQ(of32Bits, ofFile);
}

TEST_F(PictureArguments, AreTakenByReference) {
  Value picture = MakeBitmapPicture(32).Get();
  const std::array<Value, 2> corners{100.0, 1100.0};
  EXPECT_EQ(Call(*print_.Get(), L"VsPPRealPicture",
                 {Reference(picture), corners[0].Get(), corners[0].Get(), corners[1].Get(),
                  corners[1].Get()})
                .status,
            S_OK);
  const std::vector<std::string> drawn = Images();
  EXPECT_EQ(drawn, ImageOfFile());
}

TEST_F(PictureArguments, OfEqualContentsAreStoredOnce) {
  for (const double at : {100.0, 2000.0, 4000.0}) Draw(MakeBitmapPicture(32).Get(), at);
  Draw(MakeBitmapPicture(32, 32).Get(), 6000);
  EXPECT_EQ(Images().size(), 2U);
}

TEST_F(PictureArguments, ComeOutOfADefaultProperty) {
  HostObject pictureBox;
  pictureBox.Put(L"", MakeBitmapPicture(32).Get());
  EXPECT_EQ(Draw(&pictureBox).status, S_OK);
  const std::vector<std::string> drawn = Images();
  EXPECT_EQ(drawn, ImageOfFile());
}

TEST_F(PictureArguments, OfMetafilesAreDrawnAtThreeHundredDotsAnInch) {
  Draw(MakeMetafilePicture().Get());
  const std::vector<std::string> drawn = Images();
  const ComPtr<IPicture> painted = PaintPicture(24, 300, [](HDC dc) {
    PatBlt(dc, 0, 0, 300, 300, WHITENESS);
    PatBlt(dc, 0, 0, 150, 150, BLACKNESS);
  });
  Draw(painted.Get());
  EXPECT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn, Images());
}

TEST_F(PictureArguments, DrawNothingWhenTheyAreEmptyOrNone) {
  HostObject noPicture;
  EXPECT_EQ(Draw(&noPicture).status, S_OK);
  EXPECT_EQ(Draw(L"foto").status, S_OK);
  EXPECT_EQ(Draw(static_cast<IUnknown*>(nullptr)).status, S_OK);
  PICTDESC empty{};
  empty.picType = PICTYPE_NONE;
  EXPECT_EQ(Draw(MakePicture(empty).Get()).status, S_OK);
  EXPECT_EQ(Images().size(), 0U);
}

}  // namespace
}  // namespace pagivo::automation::testing
