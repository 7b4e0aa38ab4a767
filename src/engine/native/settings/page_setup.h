// The page setup: the paper and the margins that the next page is begun with, and the printer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/native/document/document.h"
#include "engine/papers.h"
#include "values/measures.h"

namespace pagivo::native {

class PrinterChoice;

// A user-defined width or height, twips: 3 mm, which no Single holds exactly, to 200 inches.
inline constexpr double kMinimumPaperExtent = 170;
inline constexpr double kMaximumPaperExtent = 288000;

// A paper and the way it is turned. The page is the paper as it is turned: in landscape the page's
// width is the paper's height. Setters raise ErrorNumber::InvalidPropertyValue and then change
// nothing.
class TurnedPaper {
 public:
  std::int32_t Code() const noexcept { return code_; }
  // Takes known codes and kPaperUserDefined, which keeps the size in force.
  void PutCode(std::int32_t code);

  bool IsLandscape() const noexcept { return isLandscape_; }
  void PutLandscape(bool on) noexcept { isLandscape_ = on; }

  double PageWidth() const noexcept { return isLandscape_ ? paperHeight_ : paperWidth_; }
  double PageHeight() const noexcept { return isLandscape_ ? paperWidth_ : paperHeight_; }
  PageGeometry Geometry() const noexcept;

  // Each makes the paper user-defined and keeps the other extent. Twips, kMinimumPaperExtent to
  // kMaximumPaperExtent.
  void PutPageWidth(double width);
  void PutPageHeight(double height);
  void PutPaperWidth(double width);
  void PutPaperHeight(double height);

  double PaperWidth() const noexcept { return paperWidth_; }
  double PaperHeight() const noexcept { return paperHeight_; }

  friend bool operator==(const TurnedPaper&, const TurnedPaper&) = default;

 private:
  void PutExtent(double& extent, double value, const char* property);

  std::int32_t code_ = kPaperA4;
  bool isLandscape_ = false;
  double paperWidth_ = FindPaper(kPaperA4)->width;
  double paperHeight_ = FindPaper(kPaperA4)->height;
};

// Distances from the paper's edges, twips.
struct Margins {
  double left = kTwipsPerInch;
  double top = kTwipsPerInch;
  double right = kTwipsPerInch;
  double bottom = kTwipsPerInch;
  friend bool operator==(const Margins&, const Margins&) = default;
};

struct PageSetup {
  TurnedPaper paper;
  Margins margins;
  // The printer that is to be chosen; when none is named, the one in force stays.
  std::optional<std::string> printer;
  friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

// The engine as the dialogs see it that set up its pages.
class PageSetupOwner {
 public:
  // What is in force. It names no printer, for it asks none.
  virtual const PageSetup& Setup() const = 0;
  // Puts all of it in force or, when that raises an error, nothing.
  virtual void Apply(const PageSetup& setup) = 0;
  // Answers what a dialog asks about printers.
  virtual PrinterChoice& Printers() = 0;
  // There is a document, whose pages keep what they were begun with.
  virtual bool HasDocument() const = 0;

 protected:
  ~PageSetupOwner() = default;
};

}  // namespace pagivo::native
