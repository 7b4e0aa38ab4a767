#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "engine/native/pictures/pixbuf/svg_document.h"

namespace pagivo::native {
namespace {

constexpr std::string_view kBlank = " \t\r\n\f";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlank);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

// The part before the separator, which is taken away from the text together with it.
std::string_view TakeUntil(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

bool IsNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsName(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, IsNameCharacter);
}

std::string WithoutComments(std::string_view text) {
  std::string plain;
  for (;;) {
    const std::size_t begin = text.find("/*");
    plain += text.substr(0, begin);
    if (begin == text.npos) return plain;
    const std::size_t end = text.find("*/", begin + 2);
    if (end == text.npos) return plain;
    text.remove_prefix(end + 2);
    plain.push_back(' ');
  }
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c;
  return lower;
}

// What refers outside the file or escapes our reading is not for the SVG library.
bool IsSafe(std::string_view key, std::string_view value) {
  if (key == "filter" || value.find_first_of("\\{}@") != value.npos) return false;
  const std::string lower = Lower(value);
  const std::size_t address = lower.find("url");
  if (address == lower.npos) return true;
  return address == 0 && !ReferenceIn(value).empty() && lower.find("url", 1) == lower.npos;
}

struct Declaration {
  std::string key;
  std::string value;
  bool important = false;
};

std::vector<Declaration> ReadDeclarations(std::string_view text) {
  std::vector<Declaration> declarations;
  while (!text.empty()) {
    std::string_view part = TakeUntil(text, ';');
    const std::string_view key = Trimmed(TakeUntil(part, ':'));
    Declaration declaration{Lower(key), {}, false};
    const std::size_t mark = part.find('!');
    declaration.important = Trimmed(part.substr(std::min(mark, part.size()))) == "!important";
    declaration.value = Trimmed(part.substr(0, mark));
    if (IsName(key) && !declaration.value.empty() && IsSafe(declaration.key, declaration.value)) {
      declarations.push_back(std::move(declaration));
    }
  }
  return declarations;
}

// What one element must be: "rect.dark#first".
struct Compound {
  std::string type;  // empty for any
  std::string id;
  std::vector<std::string> classes;
  bool isChild =
      false;  // of the element that the compound before this one tells, not just below it
};

struct Selector {
  std::vector<Compound> compounds;  // from the outside to the element itself
  std::array<std::size_t, 3> specificity{};
};

std::string TakeName(std::string_view& text) {
  const auto end = std::ranges::find_if_not(text, IsNameCharacter) - text.begin();
  std::string name(text.substr(0, static_cast<std::size_t>(end)));
  text.remove_prefix(static_cast<std::size_t>(end));
  return name;
}

// False for a selector of another kind.
bool ReadCompound(std::string_view text, Compound& compound) {
  if (text.starts_with("*")) {
    text.remove_prefix(1);
  } else {
    compound.type = TakeName(text);
  }
  while (!text.empty()) {
    const char mark = text.front();
    text.remove_prefix(1);
    std::string name = TakeName(text);
    if (name.empty() || (mark != '.' && mark != '#')) return false;
    if (mark == '#') {
      compound.id = std::move(name);
    } else {
      compound.classes.push_back(std::move(name));
    }
  }
  return true;
}

std::optional<Selector> ReadSelector(std::string_view text) {
  Selector selector;
  bool isChild = false;
  while (!(text = Trimmed(text)).empty()) {
    if (text.front() == '>') {
      isChild = true;
      text.remove_prefix(1);
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(" \t\r\n\f>"), text.size());
    Compound compound;
    if (!ReadCompound(text.substr(0, end), compound)) return std::nullopt;
    text.remove_prefix(end);
    compound.isChild = std::exchange(isChild, false);
    selector.specificity[0] += compound.id.empty() ? 0U : 1U;
    selector.specificity[1] += compound.classes.size();
    selector.specificity[2] += compound.type.empty() ? 0U : 1U;
    selector.compounds.push_back(std::move(compound));
  }
  if (selector.compounds.empty() || isChild) return std::nullopt;
  return selector;
}

struct Rule {
  Selector selector;
  std::size_t block = 0;  // into the sheet's blocks, in the order of the file
};

class StyleSheet {
 public:
  void Read(std::string_view text) {
    const std::string plain = WithoutComments(text);
    text = plain;
    while (!text.empty()) {
      std::string_view prelude = Trimmed(TakeUntil(text, '{'));
      while (prelude.starts_with("@") && prelude.find(';') != prelude.npos) {
        TakeUntil(prelude, ';');  // an import or a character set
        prelude = Trimmed(prelude);
      }
      if (prelude.starts_with("@")) {
        SkipBlock(text);
      } else {
        AddRules(prelude, TakeUntil(text, '}'));
      }
    }
  }

  void Sort() {
    std::ranges::stable_sort(rules_, {},
                             [](const Rule& rule) { return rule.selector.specificity; });
  }

  const std::vector<Rule>& Rules() const { return rules_; }
  const std::vector<Declaration>& Block(const Rule& rule) const { return blocks_[rule.block]; }

 private:
  // Of a rule for other media or of a font, whose blocks may hold blocks.
  static void SkipBlock(std::string_view& text) {
    std::size_t depth = 1;
    while (depth > 0 && !text.empty()) {
      depth += text.front() == '{' ? 1U : 0U;
      depth -= text.front() == '}' ? 1U : 0U;
      text.remove_prefix(1);
    }
  }

  void AddRules(std::string_view selectors, std::string_view block) {
    blocks_.push_back(ReadDeclarations(block));
    while (!selectors.empty()) {
      std::optional<Selector> selector = ReadSelector(TakeUntil(selectors, ','));
      if (!selector) continue;
      if (rules_.size() >= kMaximumSvgSelectors) RefuseTooLarge();
      rules_.push_back({std::move(*selector), blocks_.size() - 1});
    }
  }

  std::vector<Rule> rules_;
  std::vector<std::vector<Declaration>> blocks_;
};

bool HasClass(std::string_view classes, std::string_view wanted) {
  while (!classes.empty()) {
    classes = Trimmed(classes);
    const std::size_t end = std::min(classes.find_first_of(kBlank), classes.size());
    if (classes.substr(0, end) == wanted) return true;
    classes.remove_prefix(end);
  }
  return false;
}

bool IsMeant(const Compound& compound, const SvgNode& node) {
  return (compound.type.empty() || compound.type == node.name) &&
         (compound.id.empty() || compound.id == node.Attribute("id")) &&
         std::ranges::all_of(compound.classes, [&node](const std::string& name) {
           return HasClass(node.Attribute("class"), name);
         });
}

class StyleResolver {
 public:
  explicit StyleResolver(const StyleSheet& sheet) : sheet_(sheet) {}

  void Resolve(SvgNode& node) {
    if (node.name.empty()) return;
    matchings_ += sheet_.Rules().size();
    if (matchings_ > kMaximumSvgMatchings) RefuseTooLarge();
    path_.push_back(&node);
    Declare(node);
    std::erase_if(node.attributes, [](const auto& attribute) {
      return attribute.first == "style" || IsUnsafeAttribute(attribute.first, attribute.second);
    });
    for (SvgNode& child : node.children) Resolve(child);
    path_.pop_back();
  }

 private:
  static bool IsUnsafeAttribute(const std::string& key, const std::string& value) {
    if (key == "xlink:href") return false;  // looked at where it is used
    if (key == "class" || key == "id") return value.find_first_of("\\{}@") != value.npos;
    return !IsSafe(key, value);
  }

  // Important declarations go before others, of either kind the later ones before the earlier.
  void Declare(SvgNode& node) const {
    const std::vector<Declaration> own = ReadDeclarations(WithoutComments(node.Attribute("style")));
    for (const bool important : {false, true}) {
      for (const Rule& rule : sheet_.Rules()) {
        if (Matches(rule.selector, path_.size())) Put(node, sheet_.Block(rule), important);
      }
      Put(node, own, important);
    }
  }

  static void Put(SvgNode& node, const std::vector<Declaration>& declarations, bool important) {
    for (const Declaration& declaration : declarations) {
      if (declaration.important != important) continue;
      node.Put(node.style, declaration.key, declaration.value);
    }
  }

  // Whether the last of the first `count` elements of the path is meant.
  bool Matches(const Selector& selector, std::size_t count) const {
    std::size_t wanted = selector.compounds.size();
    bool next = true;
    while (wanted > 0 && count > 0) {
      const Compound& compound = selector.compounds[wanted - 1];
      if (IsMeant(compound, *path_[count - 1])) {
        next = compound.isChild;
        --wanted;
      } else if (next) {
        return false;
      }
      --count;
    }
    return wanted == 0;
  }

  const StyleSheet& sheet_;
  std::vector<const SvgNode*> path_;
  std::size_t matchings_ = 0;
};

void TakeSheets(SvgNode& node, StyleSheet& sheet) {
  for (SvgNode& child : node.children) {
    TakeSheets(child, sheet);
    if (child.name != "style") continue;
    for (const SvgNode& text : child.children) sheet.Read(text.text);
  }
  std::erase_if(node.children, [](const SvgNode& child) { return child.name == "style"; });
}

}  // namespace

void ResolveSvgStyle(SvgNode& root) {
  StyleSheet sheet;
  TakeSheets(root, sheet);
  sheet.Sort();
  StyleResolver(sheet).Resolve(root);
}

}  // namespace pagivo::native
