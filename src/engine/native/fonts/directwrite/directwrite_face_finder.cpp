// Faces by DirectWrite. It knows what is installed and which face has a character; which families
// stand in for others is ours (family_stand_ins.h).
//
// Nothing is given back when the process ends (Forget): by then a library that DirectWrite needs
// may be gone.
#include <algorithm>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/native/fonts/directwrite/family_stand_ins.h"
#include "engine/native/fonts/directwrite/installed_face.h"
#include "engine/native/fonts/directwrite/system_fallback.h"
#include "engine/native/fonts/face_finder.h"
#include "pagivo/error.h"
#include "system/windows/com_result.h"
#include "system/windows/wide_text.h"

namespace pagivo::native {
namespace {

using Microsoft::WRL::ComPtr;

// Needs no COM of the host's threads.
ComPtr<IDWriteFactory> MakeFactory() {
  ComPtr<IUnknown> made;
  ComPtr<IDWriteFactory> factory;
  if (!Succeeded(
          DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory), &made)) ||
      !Succeeded(made.As(&factory))) {
    throw Error(ErrorNumber::FileAccess,
                "De geïnstalleerde lettertypen kunnen niet worden gelezen");
  }
  return factory;
}

std::wstring EnglishName(IDWriteLocalizedStrings& names) {
  UINT32 index = 0;
  BOOL exists = FALSE;
  const bool isFound =
      Succeeded(names.FindLocaleName(L"en-us", &index, &exists)) && exists != FALSE;
  return StringAt(names, isFound ? index : 0);
}

std::wstring FirstWord(const std::wstring& name) {
  return name.substr(0, name.find(L' '));
}

// Faces, those that come first first.
using FaceOrder = std::vector<const InstalledFace*>;

// What is installed, by families as DirectWrite cuts them: with all their widths and weights.
class Installation {
 public:
  explicit Installation(IDWriteFactory& factory) {
    if (!Succeeded(factory.GetSystemFontCollection(&collection_, FALSE))) return;
    families_.resize(collection_->GetFontFamilyCount());
    for (UINT32 i = 0; i < families_.size(); ++i) Read(i, families_[i]);
  }

  // The faces of a family by any of its names; empty when there is no such family.
  FaceOrder Named(const std::wstring& name) const {
    UINT32 index = 0;
    BOOL exists = FALSE;
    if (!collection_ || !Succeeded(collection_->FindFamilyName(name.c_str(), &index, &exists)) ||
        exists == FALSE) {
      return NamedInFourStyles(name);
    }
    FaceOrder faces;
    for (const InstalledFace& face : families_.at(index).faces) faces.push_back(&face);
    return faces;
  }

  // Every family by its English name, whatever the user's language.
  std::map<std::wstring, FaceOrder> All() const {
    std::map<std::wstring, FaceOrder> all;
    for (const Family& family : families_) {
      for (const InstalledFace& face : family.faces) all[family.name].push_back(&face);
    }
    return all;
  }

 private:
  struct Family {
    std::wstring name;
    std::vector<InstalledFace> faces;
  };

  // The names of families of four styles are in the faces' files; those of the families that begin
  // with the same word are looked into ("Arial Narrow" is of "Arial").
  FaceOrder NamedInFourStyles(const std::wstring& name) const {
    FaceOrder faces;
    for (const Family& family : families_) {
      if (!AreEqualInAnyCase(FirstWord(family.name), FirstWord(name))) continue;
      for (const InstalledFace& face : family.faces) {
        if (face.IsOfFourStyleFamily(name)) faces.push_back(&face);
      }
    }
    return faces;
  }

  void Read(UINT32 index, Family& family) const {
    ComPtr<IDWriteFontFamily> listed;
    ComPtr<IDWriteLocalizedStrings> names;
    if (!Succeeded(collection_->GetFontFamily(index, &listed)) ||
        !Succeeded(listed->GetFamilyNames(&names))) {
      return;
    }
    family.name = EnglishName(*names.Get());
    for (UINT32 i = 0; i < listed->GetFontCount(); ++i) {
      FontRef font;
      if (Succeeded(listed->GetFont(i, &font))) family.faces.emplace_back(std::move(font));
    }
  }

  ComPtr<IDWriteFontCollection> collection_;
  std::vector<Family> families_;  // in the order of the collection
};

class DirectWriteFaceFinder final : public FaceFinder {
 public:
  explicit DirectWriteFaceFinder(IDWriteFactory& factory)
      : installation_(factory), fallback_(factory) {}

  std::optional<FaceFile> Find(const FaceQuery& query, std::size_t rank) override {
    const Order& order = Sorted(query);
    for (std::size_t i = 0; i < order.faces.size(); ++i) {
      if (i == order.named && query.codePoint) {
        const std::optional<FaceFile> file = Fallback(query);
        if (file && rank-- == 0) return file;
      }
      const InstalledFace& face = *order.faces[i];
      if (query.codePoint && !face.Has(*query.codePoint)) continue;
      if (face.File() && rank-- == 0) return face.File();
    }
    return std::nullopt;
  }

 private:
  using Style = std::tuple<std::string, bool, bool>;
  struct Order {
    FaceOrder faces;
    std::size_t named = 0;  // so many of them have the family's name or that of a stand-in
  };

  // Hosts may ask for any number of names; then their orders are made anew.
  static constexpr std::size_t kMostOrders = 256;

  // Holds until the next call.
  const Order& Sorted(const FaceQuery& query) {
    Style style{query.family, query.bold, query.italic};
    if (sorted_.size() >= kMostOrders && !sorted_.contains(style)) sorted_.clear();
    const auto [entry, isNew] = sorted_.try_emplace(std::move(style));
    if (isNew) entry->second = Sort(query);
    return entry->second;
  }

  Order Sort(const FaceQuery& query) const {
    Order order;
    Append(order.faces, installation_.Named(ToWide(query.family)), query);
    for (const std::string_view standIn : StandInsFor(query.family)) {
      Append(order.faces, installation_.Named(ToWide(standIn)), query);
    }
    order.named = order.faces.size();
    for (const auto& [name, faces] : installation_.All()) Append(order.faces, faces, query);
    return order;
  }

  // The closest styles come first; what stands in the order already keeps its place.
  static void Append(FaceOrder& order, FaceOrder more, const FaceQuery& query) {
    std::erase_if(more, [&order](const InstalledFace* face) {
      return std::ranges::find(order, face) != order.end();
    });
    std::ranges::stable_sort(
        more, {}, [&query](const InstalledFace* face) { return face->DistanceFrom(query); });
    order.insert(order.end(), more.begin(), more.end());
  }

  std::optional<FaceFile> Fallback(const FaceQuery& query) const {
    const FontRef font = fallback_.FontFor(query, ToWide(query.family));
    return font ? FileOf(*font.Get()) : std::nullopt;
  }

  Installation installation_;
  SystemFallback fallback_;
  std::map<Style, Order> sorted_;
};

}  // namespace

std::unique_ptr<FaceFinder> MakeFaceFinder() {
  return std::make_unique<DirectWriteFaceFinder>(*MakeFactory().Get());
}

}  // namespace pagivo::native
