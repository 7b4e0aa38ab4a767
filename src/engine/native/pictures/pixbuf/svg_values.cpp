#include "engine/native/pictures/pixbuf/svg_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {
namespace {

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f"), text.size()));
}

// The number without what stands around it.
std::optional<double> TakeBareNumber(std::string_view& text) {
  std::string_view rest = text;
  const bool plus = rest.starts_with('+');
  if (plus) rest.remove_prefix(1);
  if (rest.empty() || (plus && rest.front() == '-')) return std::nullopt;
  const char first = rest.front();
  if (first != '-' && first != '.' && (first < '0' || first > '9')) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
  if (error == std::errc::invalid_argument || std::isnan(number)) return std::nullopt;
  // Beyond the range of numbers is as far as it goes.
  if (error == std::errc::result_out_of_range) number = first == '-' ? -1e300 : 1e300;
  text = rest.substr(static_cast<std::size_t>(end - rest.data()));
  return number;
}

struct Unit {
  std::string_view name;
  double size;
};

constexpr std::array kUnits{Unit{"", 1},
                            Unit{"px", 1},
                            Unit{"in", kSvgDotsPerInch},
                            Unit{"cm", kSvgDotsPerInch / 2.54},
                            Unit{"mm", kSvgDotsPerInch / 25.4},
                            Unit{"pt", kSvgDotsPerInch / 72},
                            Unit{"pc", kSvgDotsPerInch / 6}};

constexpr std::array kAngleUnits{
    Unit{"", std::numbers::pi / 180}, Unit{"deg", std::numbers::pi / 180}, Unit{"rad", 1},
    Unit{"grad", std::numbers::pi / 200}, Unit{"turn", 2 * std::numbers::pi}};

std::string_view TakeWord(std::string_view& text) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  const auto end = std::ranges::find_if_not(text, isLetter) - text.begin();
  const std::string_view word = text.substr(0, static_cast<std::size_t>(end));
  text.remove_prefix(word.size());
  return word;
}

template <std::size_t kCount>
double SizeOf(const std::array<Unit, kCount>& units, std::string_view name) {
  const auto found = std::ranges::find(units, name, &Unit::name);
  return found == units.end() ? 1 : found->size;
}

// The arguments of one function, angles in radians.
std::vector<double> Arguments(std::string_view text, bool angles) {
  std::vector<double> numbers;
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f,"), text.size()));
    const std::optional<double> number = TakeBareNumber(text);
    if (!number) return numbers;
    const std::string_view unit = TakeWord(text);
    // Of rotate only the first number is an angle.
    const bool isAngle = angles && numbers.empty();
    numbers.push_back(*number * (isAngle ? SizeOf(kAngleUnits, unit) : SizeOf(kUnits, unit)));
  }
}

SvgMatrix Rotation(double angle, SvgPoint center) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return {
      c, s, -s, c, center.x - c * center.x + s * center.y, center.y - s * center.x - c * center.y};
}

SvgMatrix Function(std::string_view name, std::string_view text) {
  const bool angles = name.starts_with("rotate") || name.starts_with("skew");
  std::vector<double> a = Arguments(text, angles);
  const std::size_t count = a.size();
  a.resize(6);
  if (name == "matrix" && count == 6) return {a[0], a[1], a[2], a[3], a[4], a[5]};
  if (name == "translate") return {1, 0, 0, 1, a[0], a[1]};
  if (name == "translateX") return {1, 0, 0, 1, a[0], 0};
  if (name == "translateY") return {1, 0, 0, 1, 0, a[0]};
  if (name == "scale" && count > 0) return {a[0], 0, 0, count == 1 ? a[0] : a[1], 0, 0};
  if (name == "scaleX" && count > 0) return {a[0], 0, 0, 1, 0, 0};
  if (name == "scaleY" && count > 0) return {1, 0, 0, a[0], 0, 0};
  if (name == "rotate") return Rotation(a[0], {a[1], a[2]});
  if (name == "skewX") return {1, 0, std::tan(a[0]), 1, 0, 0};
  if (name == "skewY") return {1, std::tan(a[0]), 0, 1, 0, 0};
  if (name == "skew") return {1, std::tan(a[1]), std::tan(a[0]), 1, 0, 0};
  return {};
}

// Where the free room goes: before, on both sides, behind.
double ShareBefore(std::string_view aspectRatio, std::string_view axis) {
  const std::size_t at = aspectRatio.find(axis);
  if (at == aspectRatio.npos) return 0.5;
  const std::string_view kind = aspectRatio.substr(at + 1, 3);
  return kind == "Min" ? 0 : kind == "Max" ? 1 : 0.5;
}

SvgPoint Sum(SvgPoint one, SvgPoint other) {
  return {one.x + other.x, one.y + other.y};
}

SvgSegment Line(SvgPoint from, SvgPoint to) {
  return {from, from, to, to, false};
}

// How many numbers each command takes, again and again; none for what is no command.
std::optional<std::size_t> ArgumentsOf(char command) {
  switch (command) {
    case 'Z':
      return 0;
    case 'H':
    case 'V':
      return 1;
    case 'M':
    case 'L':
    case 'T':
      return 2;
    case 'S':
    case 'Q':
      return 4;
    case 'C':
      return 6;
    case 'A':
      return 7;
    default:
      return std::nullopt;
  }
}

class PathReader {
 public:
  explicit PathReader(std::string_view text) : text_(text), size_(text.size()) {}

  SvgPath Read() {
    SkipBlanks();
    while (!text_.empty() && ReadCommand()) SkipBlanks();
    return std::move(path_);
  }

 private:
  void SkipBlanks() {
    text_.remove_prefix(std::min(text_.find_first_not_of(" \t\r\n\f"), text_.size()));
    path_.length = size_ - text_.size();
  }

  // A command's letter stands for all the groups of numbers that follow it.
  bool ReadCommand() {
    const char letter = text_.front();
    relative_ = letter >= 'a';
    char command = relative_ ? static_cast<char>(letter - 'a' + 'A') : letter;
    const std::optional<std::size_t> count = ArgumentsOf(command);
    if (!count) return false;
    text_.remove_prefix(1);
    if (*count == 0) return Close();
    for (bool first = true;; first = false) {
      if (!TakeArguments(command, *count)) return !first;
      Apply(command);
      if (command == 'M') command = 'L';
      path_.length = size_ - text_.size();
    }
  }

  bool TakeArguments(char command, std::size_t count) {
    std::string_view rest = text_;
    for (std::size_t i = 0; i < count; ++i) {
      const bool isFlag = command == 'A' && (i == 3 || i == 4);
      const std::optional<double> number = isFlag ? TakeFlag(rest) : TakeSvgNumber(rest);
      if (!number) return false;
      numbers_[i] = *number;
    }
    text_ = rest;
    return true;
  }

  // Flags may stand together without blanks.
  static std::optional<double> TakeFlag(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f,"), text.size()));
    if (text.empty() || (text.front() != '0' && text.front() != '1')) return std::nullopt;
    const double flag = text.front() - '0';
    text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f,"), text.size()));
    return flag;
  }

  bool Close() {
    Add(Line(current_, start_));
    return true;
  }

  SvgPoint Point(std::size_t at) const {
    const SvgPoint point{numbers_[at], numbers_[at + 1]};
    return relative_ ? Sum(current_, point) : point;
  }

  void Apply(char command) {
    switch (command) {
      case 'M':
        current_ = start_ = Point(0);
        break;
      case 'H':
        Add(Line(current_, {numbers_[0] + (relative_ ? current_.x : 0), current_.y}));
        break;
      case 'V':
        Add(Line(current_, {current_.x, numbers_[0] + (relative_ ? current_.y : 0)}));
        break;
      case 'L':
        Add(Line(current_, Point(0)));
        break;
      case 'A':
        Add(Arc(Point(5)));
        break;
      default:
        AddCurve(command);
    }
  }

  // A control point that is not given mirrors the one before.
  void AddCurve(char command) {
    const SvgPoint mirrored{2 * current_.x - lastControl_.x, 2 * current_.y - lastControl_.y};
    switch (command) {
      case 'C':
        return Add({current_, Point(0), Point(2), Point(4), true});
      case 'S':
        return Add({current_, mirrored, Point(0), Point(2), true});
      case 'Q':
        return Add({current_, Point(0), Point(0), Point(2), true});
      default:
        return Add({current_, mirrored, mirrored, Point(0), true});
    }
  }

  // Radii too small for the way grow until they reach.
  SvgSegment Arc(SvgPoint to) const {
    const double way = std::hypot(to.x - current_.x, to.y - current_.y);
    const double small = std::min(std::abs(numbers_[0]), std::abs(numbers_[1]));
    const double large = std::max(std::abs(numbers_[0]), std::abs(numbers_[1]));
    if (small == 0) return Line(current_, to);
    const double reach = 2 * large * std::max(1.0, way / (2 * small));
    return {current_, Sum(current_, {-reach, -reach}), Sum(current_, {reach, reach}), to, true};
  }

  void Add(const SvgSegment& segment) {
    if (path_.segments.size() >= kMaximumSvgSegments) RefuseTooLarge();
    path_.segments.push_back(segment);
    lastControl_ = segment.isCurve ? segment.control2 : segment.to;
    current_ = segment.to;
  }

  std::string_view text_;
  std::size_t size_;
  SvgPath path_;
  bool relative_ = false;
  double numbers_[7] = {};
  SvgPoint start_, current_, lastControl_;
};

}  // namespace

SvgMatrix SvgMatrix::After(const SvgMatrix& inner) const {
  const SvgPoint origin = Apply({inner.x0, inner.y0});
  return {xx * inner.xx + xy * inner.yx,
          yx * inner.xx + yy * inner.yx,
          xx * inner.xy + xy * inner.yy,
          yx * inner.xy + yy * inner.yy,
          origin.x,
          origin.y};
}

double SvgMatrix::Scale() const {
  return std::sqrt(xx * xx + yx * yx + xy * xy + yy * yy);
}

std::optional<double> TakeSvgNumber(std::string_view& text) {
  std::string_view rest = text;
  SkipBlanks(rest);
  const std::optional<double> number = TakeBareNumber(rest);
  if (!number) return std::nullopt;
  SkipBlanks(rest);
  if (rest.starts_with(',')) rest.remove_prefix(1);
  SkipBlanks(rest);
  text = rest;
  return number;
}

std::vector<double> SvgNumbersIn(std::string_view text) {
  std::vector<double> numbers;
  while (!text.empty()) {
    if (const std::optional<double> number = TakeSvgNumber(text)) {
      numbers.push_back(*number);
    } else {
      text.remove_prefix(1);
    }
  }
  return numbers;
}

std::optional<double> SvgLength(std::string_view text, const SvgUnits& units) {
  SkipBlanks(text);
  const std::optional<double> number = TakeBareNumber(text);
  if (!number) return std::nullopt;
  if (text.starts_with('%')) return *number / 100 * units.whole;
  const std::string_view unit = TakeWord(text);
  if (unit == "em") return *number * units.fontSize;
  if (unit == "ex" || unit == "ch") return *number * units.fontSize / 2;
  const auto found = std::ranges::find(kUnits, unit, &Unit::name);
  if (found == kUnits.end()) return std::nullopt;
  return *number * found->size;
}

SvgMatrix SvgTransform(std::string_view text) {
  SvgMatrix matrix;
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f,"), text.size()));
    const std::string_view name = TakeWord(text);
    SkipBlanks(text);
    const std::size_t end = text.find(')');
    if (!text.starts_with('(') || end == text.npos) return matrix;
    matrix = matrix.After(Function(name, text.substr(1, end - 1)));
    text.remove_prefix(end + 1);
  }
}

std::optional<SvgBox> SvgViewBox(std::string_view text) {
  const std::vector<double> numbers = SvgNumbersIn(text);
  if (numbers.size() != 4 || !(numbers[2] > 0) || !(numbers[3] > 0)) return std::nullopt;
  return SvgBox{numbers[0], numbers[1], numbers[2], numbers[3]};
}

SvgMatrix SvgFit(const SvgBox& viewBox, const SvgBox& viewport, std::string_view aspectRatio) {
  SvgPoint scale{viewport.width / viewBox.width, viewport.height / viewBox.height};
  if (aspectRatio.find("none") == aspectRatio.npos) {
    const bool slice = aspectRatio.find("slice") != aspectRatio.npos;
    scale.x = scale.y = slice ? std::max(scale.x, scale.y) : std::min(scale.x, scale.y);
  }
  const double roomX = viewport.width - scale.x * viewBox.width;
  const double roomY = viewport.height - scale.y * viewBox.height;
  return {scale.x,
          0,
          0,
          scale.y,
          viewport.x + roomX * ShareBefore(aspectRatio, "x") - scale.x * viewBox.x,
          viewport.y + roomY * ShareBefore(aspectRatio, "Y") - scale.y * viewBox.y};
}

SvgPath ReadSvgPath(std::string_view text) {
  return PathReader(text).Read();
}

void AddSvgLines(std::vector<SvgSegment>& segments, const std::vector<SvgPoint>& points) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    segments.push_back(Line(points[i - 1], points[i]));
  }
}

void AddSvgRound(std::vector<SvgSegment>& segments, const SvgBox& box) {
  const double right = box.x + box.width;
  const double bottom = box.y + box.height;
  const SvgPoint left{box.x, box.y + box.height / 2};
  const SvgPoint opposite{right, left.y};
  segments.push_back({left, {box.x, box.y}, {right, box.y}, opposite, true});
  segments.push_back({opposite, {right, bottom}, {box.x, bottom}, left, true});
}

}  // namespace pagivo::native
