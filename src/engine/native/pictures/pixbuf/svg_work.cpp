#include "engine/native/pictures/pixbuf/svg_work.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace pagivo::native {
namespace {

// Measured with librsvg 2.54 and cairo 1.16.
constexpr double kElement = 15e3;
constexpr double kEdge = 200;
constexpr double kEdgeRow = 150;  // an edge in a row of pixels
constexpr double kMeeting = 8;    // of an edge and another one beside it
constexpr double kDash = 1e3;
constexpr double kSolidPixel = 1;
constexpr double kLinearPixel = 2;
constexpr double kRadialPixel = 20;
constexpr double kPatternPixel = 20;
constexpr double kPatternSeam = 12e3;  // in a row, where one tile meets the next
constexpr double kClippedPixel = 6;
constexpr double kLayerPixel = 6;
constexpr double kMaskPixel = 14;
constexpr double kImagePixel = 40;
constexpr double kGradientStop = 300;
constexpr double kTextElement = 400e3;
constexpr double kCharacter = 20e3;
constexpr double kFont = 3e6;

constexpr int kMostReferences = 16;  // from a gradient or pattern to the next

class TooMuchWork {};

class WorkMeter {
 public:
  WorkMeter(const SvgIds& ids, SvgSize pixels) : ids_(ids), pixels_(pixels) {}

  void Measure(const SvgNode& root, SvgSize own) {
    SvgFrame frame;
    frame.extent = pixels_;
    const SvgBox viewport{0, 0, pixels_.width, pixels_.height};
    frame.viewport =
        SvgViewBox(root.Attribute("viewBox")).value_or(SvgBox{0, 0, own.width, own.height});
    frame.matrix = SvgFit(frame.viewport, viewport, root.Attribute("preserveAspectRatio"));
    Visit(root, frame, true);
  }

 private:
  void Spend(double work) {
    spent_ += work;
    if (!(spent_ <= kMaximumSvgWork)) throw TooMuchWork();
  }

  const SvgNode* Find(std::string_view reference) const {
    const auto found = ids_.find(ReferenceIn(reference));
    return found == ids_.end() ? nullptr : found->second;
  }

  double Area() const { return pixels_.width * pixels_.height; }

  // Elements that are reached from themselves are drawn once at most, as the SVG library does.
  void Visit(const SvgNode& node, SvgFrame frame, bool isRoot = false) {
    if (node.name.empty() || node.Property("display") == "none") return;
    Spend(kElement);
    if (!active_.insert(&node).second) return;
    if (active_.size() > kMaximumSvgDepth) throw TooMuchWork();
    Enter(node, frame);
    if (node.name == "svg" && !isRoot) EnterSvgViewport(node, node, frame);
    Draw(node, frame);
    active_.erase(&node);
  }

  void VisitChildren(const SvgNode& node, const SvgFrame& frame) {
    for (const SvgNode& child : node.children) Visit(child, frame);
  }

  void Enter(const SvgNode& node, SvgFrame& frame) {
    frame.matrix = frame.matrix.After(SvgTransform(node.Property("transform")));
    InheritSvgStyle(frame, node);
    for (const char* key : {"marker", "marker-start", "marker-mid", "marker-end"}) {
      if (Find(node.Property(key)) != nullptr) frame.markers = node.Property(key);
    }
    EnterLayer(node, frame);
    EnterClip(node, frame);
    EnterMask(node, frame);
  }

  void AddLayer(SvgFrame& frame, double count) {
    frame.layerBytes += 4 * count * Area();
    if (frame.layerBytes > kMaximumSvgLayerBytes) throw TooMuchWork();
    Spend(count * kLayerPixel * Area());
  }

  void EnterLayer(const SvgNode& node, SvgFrame& frame) {
    const std::string_view opacity = node.Property("opacity");
    const std::string_view blending = node.Property("mix-blend-mode");
    const bool isLayer = (!opacity.empty() && SvgLength(opacity, {1, 1}).value_or(0) < 1) ||
                         (!blending.empty() && blending != "normal") ||
                         node.Property("isolation") == "isolate";
    if (isLayer) AddLayer(frame, 1);
  }

  void EnterMask(const SvgNode& node, SvgFrame& frame) {
    const SvgNode* mask = Find(node.Property("mask"));
    if (mask == nullptr || mask->name != "mask") return;
    AddLayer(frame, 1);
    Spend(kMaskPixel * Area());
    SvgFrame content = frame;
    content.layerBytes += 8 * Area();
    if (content.layerBytes > kMaximumSvgLayerBytes) throw TooMuchWork();
    if (mask->Attribute("maskContentUnits") == "objectBoundingBox") content.isAnywhere = true;
    Visit(*mask, content);
  }

  void EnterClip(const SvgNode& node, SvgFrame& frame) {
    const SvgNode* clip = Find(node.Property("clip-path"));
    if (clip == nullptr || clip->name != "clipPath" || !active_.insert(clip).second) return;
    Spend(kElement);
    SvgFrame content = frame;
    content.matrix = content.matrix.After(SvgTransform(clip->Property("transform")));
    if (clip->Attribute("clipPathUnits") == "objectBoundingBox") {
      AddLayer(frame, 1);
      content.isAnywhere = true;
    }
    EnterClip(*clip, frame);
    for (const SvgNode& child : clip->children) AddToClip(child, content, frame);
    active_.erase(clip);
  }

  void AddToClip(const SvgNode& node, SvgFrame content, SvgFrame& frame) {
    if (node.name.empty()) return;
    Spend(kElement);
    content.matrix = content.matrix.After(SvgTransform(node.Property("transform")));
    if (node.name == "use") {
      const SvgNode* target = Find(node.Attribute("xlink:href"));
      if (target != nullptr && target->name != "use") {
        TranslateSvg(node, content);
        AddToClip(*target, content, frame);
      }
      return;
    }
    const std::optional<SvgOutline> outline = Outline(node, content);
    if (outline) AddTo(frame.clip, *outline);
    if (node.name == "text") MeasureText(node, content);
  }

  static void AddTo(SvgOutline& sum, const SvgOutline& outline) {
    sum.edges += outline.edges;
    sum.rise += outline.rise;
    sum.bottom = std::max(sum.bottom, outline.bottom - outline.top);
  }

  void Draw(const SvgNode& node, const SvgFrame& frame) {
    static const std::set<std::string_view> kGroups{"svg", "g", "a", "switch", "mask"};
    if (kGroups.contains(node.name)) {
      VisitChildren(node, frame);
    } else if (node.name == "use") {
      Use(node, frame);
    } else if (node.name == "text") {
      DrawText(node, frame);
    } else if (node.name == "image") {
      DrawImage(node, frame);
    } else {
      DrawShape(node, frame);
    }
  }

  void Use(const SvgNode& node, SvgFrame frame) {
    const SvgNode* target = Find(node.Attribute("xlink:href"));
    if (target == nullptr) return;
    TranslateSvg(node, frame);
    if (target->name != "symbol" && target->name != "svg") return Visit(*target, frame);
    Spend(kElement);
    if (!active_.insert(target).second) return;
    Enter(*target, frame);
    EnterSvgViewport(*target, node, frame);
    VisitChildren(*target, frame);
    active_.erase(target);
  }

  // None for what is no shape.
  std::optional<SvgOutline> Outline(const SvgNode& node, const SvgFrame& frame) {
    const auto segments = SvgSegmentsOf(node, frame.Units());
    if (!segments) return std::nullopt;
    if (frame.isAnywhere) {
      return OutlineAnywhere(*segments, frame.extent.width, frame.extent.height);
    }
    return OutlineOf(*segments, frame.matrix);
  }

  void DrawShape(const SvgNode& node, const SvgFrame& frame) {
    const std::optional<SvgOutline> outline = Outline(node, frame);
    if (!outline) return;
    Paint(*outline, outline->bottom - outline->top, frame.fill, frame);
    if (frame.stroke != "none") DrawStroke(*outline, frame);
    if (const SvgNode* marker = Find(frame.markers)) DrawMarkers(*marker, *outline, frame);
  }

  void DrawStroke(const SvgOutline& outline, const SvgFrame& frame) {
    const SvgStroke stroke = SvgStrokeIn(frame);
    if (stroke.width <= 0) return;
    const SvgOutline stroked = Stroked(outline, stroke);
    Spend((stroked.edges - 2 * outline.edges) * kDash / 8);
    Paint(stroked, stroked.bottom - stroked.top, frame.stroke, frame);
  }

  // `height` is that of the box in which the edges lie beside each other.
  void Paint(const SvgOutline& outline, double height, std::string_view paint,
             const SvgFrame& frame) {
    if (paint == "none") return;
    const double rows = RowsOf(outline, frame);
    const double area = CoveredArea(outline, frame);
    Spend(outline.edges * kEdge + Meetings(outline.edges, outline.rise, height));
    Spend(std::min(outline.rise + outline.edges, outline.edges * (rows + 1)) * kEdgeRow);
    if (frame.clip.edges > 0) {
      Spend(area * kClippedPixel + Meetings(outline.edges + frame.clip.edges,
                                            outline.rise + frame.clip.rise,
                                            std::min(height, frame.clip.bottom)));
    }
    Spend(area * PaintWork(paint, outline, frame));
  }

  double RowsOf(const SvgOutline& outline, const SvgFrame& frame) const {
    return frame.isAnywhere ? frame.extent.height
                            : Shared(outline.top, outline.bottom, pixels_.height);
  }

  double CoveredArea(const SvgOutline& outline, const SvgFrame& frame) const {
    const double width =
        frame.isAnywhere ? frame.extent.width : Shared(outline.left, outline.right, pixels_.width);
    return std::min(Area(), width * RowsOf(outline, frame));
  }

  // Pixels from `begin` to `end` that lie on a side of the picture.
  static double Shared(double begin, double end, double side) {
    return std::clamp(end + 1, 0.0, side) - std::clamp(begin - 1, 0.0, side);
  }

  static double Meetings(double edges, double rise, double height) {
    const double beside = std::min(edges, rise / std::max(1.0, height) + 1);
    return edges * beside * kMeeting;
  }

  // A pixel's work; what the paint needs before is spent.
  double PaintWork(std::string_view paint, const SvgOutline& outline, const SvgFrame& frame) {
    const SvgNode* source = Find(paint);
    if (source == nullptr) return kSolidPixel;
    if (source->name == "pattern") return PatternWork(*source, outline, frame);
    const SvgNode* next = source;
    for (int references = 0; next != nullptr; ++references) {
      if (references == kMostReferences) throw TooMuchWork();
      Spend(kElement + kGradientStop * static_cast<double>(next->children.size()));
      next = Find(next->Attribute("xlink:href"));
    }
    return source->name == "radialGradient" ? kRadialPixel : kLinearPixel;
  }

  // The first element that has the attribute, along the references from one pattern to the next.
  std::string_view PatternAttribute(const SvgNode& pattern, std::string_view key) {
    const SvgNode* next = &pattern;
    for (int references = 0; next != nullptr; ++references) {
      if (references == kMostReferences) throw TooMuchWork();
      Spend(kElement);
      if (const std::string_view value = next->Property(key); !value.empty()) return value;
      next = Find(next->Attribute("xlink:href"));
    }
    return {};
  }

  double PatternWork(const SvgNode& pattern, const SvgOutline& outline, const SvgFrame& frame) {
    const bool ofUser = PatternAttribute(pattern, "patternUnits") == "userSpaceOnUse";
    const double scale = SvgTransform(PatternAttribute(pattern, "patternTransform")).Scale() *
                         (ofUser ? frame.Scale() : 1);
    const auto side = [&](std::string_view key, double box) {
      const SvgUnits units{frame.fontSize, ofUser ? frame.Units().whole : 1};
      const double length = SvgLength(PatternAttribute(pattern, key), units).value_or(0);
      return length * scale * (ofUser ? 1 : box) + 1;
    };
    SvgFrame tile = frame;
    tile.isAnywhere = true;
    tile.clip = {};
    tile.extent = {side("width", outline.right - outline.left),
                   side("height", outline.bottom - outline.top)};
    const double area = tile.extent.width * tile.extent.height;
    tile.layerBytes += 4 * area;
    if (!(tile.layerBytes <= kMaximumSvgLayerBytes)) throw TooMuchWork();
    Spend(area * kLayerPixel);
    const SvgNode* next = &pattern;
    while (next != nullptr && next->children.empty()) next = Find(next->Attribute("xlink:href"));
    if (next != nullptr && active_.insert(next).second) {
      VisitChildren(*next, tile);
      active_.erase(next);
    }
    return kPatternPixel + kPatternSeam / tile.extent.width;
  }

  // All corners are marked alike: what one mark takes, each of them takes.
  void DrawMarkers(const SvgNode& marker, const SvgOutline& outline, const SvgFrame& frame) {
    if (marker.name != "marker" || !active_.insert(&marker).second) return;
    const double before = spent_;
    SvgFrame mark = frame;
    mark.isAnywhere = true;
    mark.markers = {};
    const double scale =
        marker.Attribute("markerUnits") == "userSpaceOnUse"
            ? frame.Scale()
            : frame.Scale() * SvgLength(frame.strokeWidth, frame.Units()).value_or(1);
    const auto side = [&](std::string_view key, double whole) {
      if (!marker.Property("overflow").empty()) return whole;
      return std::min(whole, SvgLength(marker.Attribute(key), frame.Units()).value_or(3) * scale);
    };
    mark.extent = {side("markerWidth", frame.extent.width),
                   side("markerHeight", frame.extent.height)};
    VisitChildren(marker, mark);
    active_.erase(&marker);
    Spend((spent_ - before) * outline.corners + kElement * outline.corners);
  }

  void DrawText(const SvgNode& node, const SvgFrame& frame) {
    const SvgOutline glyphs = MeasureText(node, frame);
    const double height = std::max(1.0, glyphs.rise / 20);
    Paint(glyphs, height, frame.fill, frame);
    if (frame.stroke == "none") return;
    Paint(Stroked(glyphs, {frame.fontSize * frame.Scale(), 4, {}}), height, frame.stroke, frame);
  }

  // Glyphs lie anywhere on the picture.
  SvgOutline MeasureText(const SvgNode& node, SvgFrame frame) {
    if (node.name.empty()) return Glyphs(node.text.size(), frame);
    InheritSvgFont(frame, node);
    Spend(kTextElement);
    if (fonts_.insert(frame.font).second) Spend(kFont);
    SvgOutline sum;
    for (const SvgNode& child : node.children) {
      const SvgOutline glyphs = MeasureText(child, frame);
      sum.edges += glyphs.edges;
      sum.rise += glyphs.rise;
      sum.length += glyphs.length;
      sum.corners += glyphs.corners;
      sum.right = std::min(pixels_.width, sum.right + glyphs.right);
      sum.bottom = std::max(sum.bottom, glyphs.bottom);
    }
    return sum;
  }

  SvgOutline Glyphs(std::size_t count, const SvgFrame& frame) {
    constexpr double kEdgesOfAGlyph = 40;
    constexpr double kRiseOfAGlyph = 20;
    const auto characters = static_cast<double>(count);
    const double size = frame.fontSize * frame.Scale();
    Spend(characters * kCharacter);
    SvgOutline glyphs;
    glyphs.edges = characters * kEdgesOfAGlyph;
    glyphs.rise = characters * kRiseOfAGlyph * size;
    glyphs.length = 2 * glyphs.rise;
    glyphs.corners = glyphs.edges;
    glyphs.right = std::min(pixels_.width, characters * size);
    glyphs.bottom = std::min(pixels_.height, size);
    return glyphs;
  }

  void DrawImage(const SvgNode& node, const SvgFrame& frame) {
    SvgNode place = node;
    place.name = "rect";
    const std::optional<SvgOutline> outline = Outline(place, frame);
    Spend(kImagePixel * (outline ? CoveredArea(*outline, frame) : Area()));
    Spend(kImagePixel * node.pixels);
  }

  const SvgIds& ids_;
  SvgSize pixels_;
  double spent_ = 0;
  std::set<const SvgNode*> active_;
  std::set<std::string> fonts_;
};

}  // namespace

bool SvgWorkIsBounded(const SvgNode& root, const SvgIds& ids, SvgSize own, SvgSize pixels) {
  try {
    WorkMeter(ids, pixels).Measure(root, own);
    return true;
  } catch (const TooMuchWork&) {
    return false;
  }
}

}  // namespace pagivo::native
