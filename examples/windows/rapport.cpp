// Writes the first pages of a report as PDF: rapport BESTAND.pdf
//
// Texts and pictures are those that rapport.txt beside the program names, one element of a page a
// line. rapport.vbs makes the same file as a script. The component is registered first: regsvr32
// pagivo.dll. Built by any compiler for Windows, e.g.
//
//   g++ -std=c++20 -municode -static -I ../../include rapport.cpp -o rapport.exe -lole32 -loleaut32
//   cl /std:c++20 /EHsc /I ..\..\include rapport.cpp ole32.lib oleaut32.lib
#include <windows.h>
// After it, which they stand on.
#include <oleauto.h>
#include <pagivo_automation.h>
#include <wrl/client.h>

#include <clocale>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Microsoft::WRL::ComPtr;
using Path = std::filesystem::path;

// Lengths are millimetres, sizes of type points, colours those of the macro RGB.
constexpr double kHang = 22;
constexpr double kTextLeft = 36;
constexpr double kTextRight = 190;
constexpr LONG kInk = RGB(33, 41, 51);
constexpr LONG kMuted = RGB(98, 110, 122);
constexpr LONG kRule = RGB(196, 204, 211);
constexpr LONG kAccent = RGB(14, 85, 120);
constexpr LONG kShade = RGB(243, 246, 248);
constexpr LONG kSolid = 0;  // pens
constexpr LONG kDotted = 2;
constexpr LONG kInvisible = 5;

// --- Calling the component -------------------------------------------------------------------

// A failed call, in words for the user.
struct Failure {
  std::wstring description;
};

// What a failed call has left as the thread's error information.
std::wstring DescriptionOfFailure() {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, &information) != S_OK) return {};
  BSTR description = nullptr;
  information->GetDescription(&description);
  const std::wstring text(description == nullptr ? L"" : description);
  SysFreeString(description);
  return text;
}

void Check(HRESULT status) {
  if (SUCCEEDED(status)) return;
  const std::wstring description = DescriptionOfFailure();
  throw Failure{description.empty() ? L"fout " + std::to_wstring(status) : description};
}

// An argument of a call, passed by reference as the interface has it. One without a value holds the
// component's default.
class Argument {
 public:
  Argument() { Set(VT_ERROR).scode = DISP_E_PARAMNOTFOUND; }
  Argument(double value) { Set(VT_R8).dblVal = value; }
  Argument(LONG value) { Set(VT_I4).lVal = value; }
  Argument(bool value) { Set(VT_BOOL).boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
  Argument(const wchar_t* text) { Set(VT_BSTR).bstrVal = SysAllocString(text); }
  Argument(const std::wstring& text) : Argument(text.c_str()) {}
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;
  ~Argument() { VariantClear(&value_); }

  operator VARIANT*() { return &value_; }
  operator BSTR*() { return &value_.bstrVal; }
  operator DOUBLE*() { return &value_.dblVal; }

 private:
  VARIANT& Set(VARTYPE kind) {
    VariantInit(&value_);
    value_.vt = kind;
    return value_;
  }

  VARIANT value_;
};

// --- Text and figures on the page under the pen ----------------------------------------------

class Sheet {
 public:
  Sheet() {
    if (FAILED(CoCreateInstance(CLSID_PgPrint, nullptr, CLSCTX_INPROC_SERVER, IID__PgPrint,
                                &print_))) {
      throw Failure{L"Pagivo is niet geregistreerd: regsvr32 pagivo.dll"};
    }
    SHORT millimetres = 6;
    Check(print_->VsPPInit());
    Check(print_->VsPPSetScaleMode(&millimetres));
    Check(print_->VsPPSetPaperSize(Argument(LONG{9})));    // A4
    Check(print_->VsPPSetOrientation(Argument(LONG{1})));  // portrait
  }
  _PgPrint* operator->() const { return print_.Get(); }

  void UseType(double size, bool isBold, LONG colour) {
    Check(print_->VsPPSetFont(Argument(L"Arial"), Argument(size), Argument(isBold), Argument(false),
                              Argument(false)));
    Check(print_->VsPPZetKleur(&colour));
    typeSize_ = size;
  }
  double WidthOf(const std::wstring& text) {
    Argument width;
    Check(print_->VsPPTextWidthS(Argument(text), width));
    return *static_cast<DOUBLE*>(width);
  }
  void Text(const std::wstring& text, double left, double baseline) {
    Check(print_->VsPPPrint(Argument(text), Argument(left), Argument(TopOf(baseline)), Argument(),
                            Argument(), Argument(), Argument(), Argument()));
  }
  void TextRight(const std::wstring& text, double right, double baseline) {
    Check(print_->VsPPPrintR(Argument(text), Argument(right), Argument(TopOf(baseline)), Argument(),
                             Argument(), Argument(), Argument(), Argument()));
  }
  void Rule(double left, double right, double y, LONG style, LONG width) {
    Check(print_->VsPPLine(Argument(left), Argument(y), Argument(right), Argument(y), Argument(),
                           Argument(), Argument(kRule), Argument(), Argument(style),
                           Argument(width)));
  }
  void FillBox(double left, double top, double right, double bottom, LONG colour) {
    Check(print_->VsPPLine(Argument(left), Argument(top), Argument(right), Argument(bottom),
                           Argument(true), Argument(true), Argument(colour), Argument(),
                           Argument(kInvisible), Argument()));
  }
  void FillCircle(double x, double y, double radius, LONG colour) {
    Check(print_->VsPPCircle(Argument(x), Argument(y), Argument(radius), Argument(), Argument(),
                             Argument(true), Argument(colour), Argument(), Argument(kInvisible),
                             Argument()));
  }
  void Picture(const Path& path, double left, double top, double right, double bottom) {
    Check(print_->VsPPPicture(Argument(path.wstring()), &left, &top, &right, &bottom));
  }

 private:
  // The component places a text by its top; lines of type are placed by what their letters stand
  // on.
  double TopOf(double baseline) const {
    constexpr double kAscent = 0.905;  // of the type's size, which is in points
    return baseline - kAscent * typeSize_ * 25.4 / 72;
  }

  ComPtr<_PgPrint> print_;
  double typeSize_ = 0;
};

// --- The report --------------------------------------------------------------------------------

using Element = std::vector<std::wstring>;  // its kind, and what it consists of

std::vector<std::wstring> Split(const std::wstring& text, wchar_t separator) {
  std::vector<std::wstring> parts(1);
  for (const wchar_t character : text) {
    if (character == separator) {
      parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  return parts;
}

class Report {
 public:
  // `folder` is where pictures are looked for.
  explicit Report(Path folder) : folder_(std::move(folder)) {}

  void Compose(const Element& element) {
    const std::wstring& kind = element[0];
    if (kind == L"rapport") shared_ = element;
    if (kind == L"beeld") Picture(element);
    if (kind == L"titelblad") TitlePage(element);
    if (kind == L"gegeven") Detail(element[1], element[2]);
    if (kind == L"inhoud") Contents(element[1]);
    if (kind == L"verwijzing") ContentsEntry(element[1], element[2], element[3]);
    if (kind == L"hoofdstuk") Chapter(element[1], element[2]);
    if (kind == L"paragraaf") Section(element[1], element[2]);
    if (kind == L"alinea") Paragraph(element[1]);
    if (kind == L"punt") Bullet(element[1]);
    if (kind == L"kengetal") KeyFigure(element);
    if (kind == L"ruimte") y_ += std::stod(element[1]);
  }

  void Write(const std::wstring& file) {
    Check(sheet_->VsPPNewPage());  // ends the last page
    Check(sheet_->VsPPFinish(*static_cast<BSTR*>(Argument(shared_[2]))));
    DrawFeet();
    Check(sheet_->VSPDF(Argument(file)));
    Check(sheet_->VsPPEinde());
  }

 private:
  void Picture(const Element& element) {
    sheet_.Picture(folder_ / element[1], std::stod(element[2]), std::stod(element[3]),
                   std::stod(element[4]), std::stod(element[5]));
  }

  void TitlePage(const Element& element) {
    sheet_.FillBox(kHang, 157.5, kHang + 24, 158.6, kAccent);
    sheet_.UseType(26, true, kAccent);
    sheet_.Text(element[1], kHang, 172);
    sheet_.UseType(14, false, kInk);
    sheet_.Text(element[2], kHang, 184);
    sheet_.UseType(14, false, kMuted);
    sheet_.Text(element[3], kHang, 192);
    y_ = 232;
  }

  void Detail(const std::wstring& label, const std::wstring& text) {
    sheet_.UseType(9.5, false, kMuted);
    sheet_.Text(label, kHang, y_);
    sheet_.UseType(9.5, false, kInk);
    sheet_.Text(text, kHang + 38, y_);
    y_ += 6.2;
  }

  void Contents(const std::wstring& title) {
    NewPage(L"");
    sheet_.UseType(18, true, kAccent);
    sheet_.Text(title, kTextLeft, y_ + 3);
    y_ += 18;
  }

  void ContentsEntry(const std::wstring& number, const std::wstring& title,
                     const std::wstring& page) {
    const bool isChapter = number.find(L'.') == std::wstring::npos;
    const double numberLeft = isChapter ? kHang : kTextLeft;
    const double titleLeft = isChapter ? kTextLeft : kTextLeft + 10;
    if (isChapter) y_ += 2.2;
    sheet_.UseType(9.5, isChapter, kInk);
    sheet_.Text(number, numberLeft, y_);
    sheet_.Text(title, titleLeft, y_);
    sheet_.Rule(titleLeft + sheet_.WidthOf(title) + 2, kTextRight - 9, y_, kDotted, 6);
    sheet_.TextRight(page, kTextRight, y_);
    y_ += isChapter ? 5.6 : 5;
  }

  void Chapter(const std::wstring& number, const std::wstring& title) {
    NewPage(title);
    Check(sheet_->VsPPZetInhoud(Argument(number + L"  " + title)));  // the preview's contents
    y_ += 3;
    sheet_.UseType(18, true, kAccent);
    sheet_.Text(number, kHang, y_);
    sheet_.Text(title, kTextLeft, y_);
    y_ += 11;
  }

  void Section(const std::wstring& number, const std::wstring& title) {
    Check(sheet_->VsPPZetInhoud(Argument(L"    " + number + L"  " + title)));
    y_ += 3.5;
    sheet_.UseType(11.5, true, kAccent);
    sheet_.Text(number, kHang, y_);
    sheet_.Text(title, kTextLeft, y_);
    y_ += 6.8;
  }

  void Paragraph(const std::wstring& text) {
    sheet_.UseType(9.5, false, kInk);
    Lines(text, kTextLeft, kTextRight - kTextLeft, 4.9);
    y_ += 2.4;
  }

  void Bullet(const std::wstring& text) {
    sheet_.FillCircle(kTextLeft + 1.2, y_ - 1.2, 0.55, kAccent);
    sheet_.UseType(9.5, false, kInk);
    Lines(text, kTextLeft + 4.5, kTextRight - kTextLeft - 4.5, 4.9);
    y_ += 0.9;
  }

  // A figure in a box of its own, one of three side by side: place, title, value, unit, remark.
  void KeyFigure(const Element& element) {
    constexpr double kGap = 4;
    constexpr double kHeight = 31;
    constexpr double kWidth = (kTextRight - kTextLeft - 2 * kGap) / 3;
    const double left = kTextLeft + (std::stod(element[1]) - 1) * (kWidth + kGap);
    const double top = y_ + 1;
    sheet_.FillBox(left, top, left + kWidth, top + kHeight, kShade);
    sheet_.FillBox(left, top, left + 1.1, top + kHeight, kAccent);
    const double textLeft = left + 4.5;
    sheet_.UseType(8, false, kMuted);
    sheet_.Text(element[2], textLeft, top + 6);
    sheet_.UseType(19, true, kAccent);
    sheet_.Text(element[3], textLeft, top + 16);
    const double unitLeft = textLeft + sheet_.WidthOf(element[3]) + 1.6;
    sheet_.UseType(8.5, false, kInk);
    sheet_.Text(element[4], unitLeft, top + 16);
    sheet_.UseType(8, false, kMuted);
    y_ = top + 22.2;
    Lines(element[5], textLeft, kWidth - 6, 3.8);
    y_ = top - 1;
  }

  void NewPage(const std::wstring& chapterTitle) {
    Check(sheet_->VsPPNewPage());
    sheet_.UseType(7.5, false, kMuted);
    sheet_.Text(shared_[1], kHang, 17);
    sheet_.TextRight(chapterTitle, kTextRight, 17);
    sheet_.Rule(kHang, kTextRight, 19.5, kSolid, 8);
    y_ = 32;
  }

  // Drawn over the finished pages; the empty page behind the last one counts.
  void DrawFeet() {
    SHORT count = 0;
    Check(sheet_->VsPPGetPageCount(&count));
    for (SHORT page = 1; page < count; ++page) {
      Check(sheet_->VsPPStartOverlay(&page));
      sheet_.Rule(kHang, kTextRight, 280.5, kSolid, 8);
      sheet_.UseType(7.5, false, kMuted);
      sheet_.Text(shared_[3], kHang, 285);
      sheet_.TextRight(L"Blad " + std::to_wstring(page) + L" van " + shared_[4], kTextRight, 285);
      Check(sheet_->VsPPEndOverlay());
    }
  }

  // As many words a line as fit.
  void Lines(const std::wstring& text, double left, double width, double leading) {
    std::wstring line;
    for (const std::wstring& word : Split(text, L' ')) {
      const std::wstring longer = line.empty() ? word : line + L" " + word;
      if (line.empty() || sheet_.WidthOf(longer) <= width) {
        line = longer;
        continue;
      }
      sheet_.Text(line, left, y_);
      y_ += leading;
      line = word;
    }
    sheet_.Text(line, left, y_);
    y_ += leading;
  }

  Sheet sheet_;
  Path folder_;
  Element shared_;  // running title, document's title, foot, pages of the whole report
  double y_ = 0;    // how far down the page is filled
};

// --- The program -------------------------------------------------------------------------------

Path FolderOfProgram() {
  wchar_t file[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, file, MAX_PATH);
  return Path(file).parent_path();
}

// A file's lines, in UTF-16 behind its mark.
std::vector<std::wstring> LinesOf(const Path& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  if (!file) throw Failure{L"kan " + path.wstring() + L" niet lezen"};
  const auto size = static_cast<std::streamsize>(file.tellg());
  std::wstring text(static_cast<std::size_t>(size) / sizeof(wchar_t), L'\0');
  file.seekg(0).read(reinterpret_cast<char*>(text.data()), size);
  std::erase(text, L'\r');
  return Split(text.substr(1), L'\n');
}

void WriteReport(const wchar_t* file) {
  const Path folder = FolderOfProgram();
  Report report(folder);
  for (const std::wstring& line : LinesOf(folder / L"rapport.txt")) {
    report.Compose(Split(line, L'|'));
  }
  report.Write(file);
}

}  // namespace

int wmain(int count, wchar_t** values) {
  std::setlocale(LC_CTYPE, "");  // descriptions in the console's letters
  if (count != 2) {
    std::fputws(L"Gebruik: rapport BESTAND.pdf\n", stderr);
    return 2;
  }
  try {
    Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    WriteReport(values[1]);
    CoUninitialize();
    return 0;
  } catch (const Failure& failure) {
    std::fputws((failure.description + L"\n").c_str(), stderr);
    return 1;
  }
}
