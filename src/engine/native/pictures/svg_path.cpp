#include "engine/native/pictures/svg_path.h"

#include <algorithm>
#include <cmath>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {
namespace {

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
