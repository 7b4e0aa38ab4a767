#include "engine/native/fonts/directwrite/system_fallback.h"

#include "system/windows/com_result.h"
#include "system/windows/wide_text.h"

namespace pagivo::native {
namespace {

using Microsoft::WRL::ComPtr;

// Objects of COM have no destructor that their users could call.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// One character of Dutch text, as DirectWrite asks for it. It lives on the caller's stack.
class CharacterSource final : public IDWriteTextAnalysisSource {
 public:
  explicit CharacterSource(char32_t codePoint) { AppendWide(text_, codePoint); }

  UINT32 Length() const { return static_cast<UINT32>(text_.size()); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IDWriteTextAnalysisSource);
    *object = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE GetTextAtPosition(UINT32 position, const WCHAR** text,
                                              UINT32* length) override {
    const bool isInside = position < Length();
    *text = isInside ? text_.data() + position : nullptr;
    *length = isInside ? Length() - position : 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTextBeforePosition(UINT32 position, const WCHAR** text,
                                                  UINT32* length) override {
    const bool isInside = position > 0 && position <= Length();
    *text = isInside ? text_.data() : nullptr;
    *length = isInside ? position : 0;
    return S_OK;
  }
  DWRITE_READING_DIRECTION STDMETHODCALLTYPE GetParagraphReadingDirection() override {
    return DWRITE_READING_DIRECTION_LEFT_TO_RIGHT;
  }
  // The same on every user's machine.
  HRESULT STDMETHODCALLTYPE GetLocaleName(UINT32 position, UINT32* length,
                                          const WCHAR** name) override {
    *length = position < Length() ? Length() - position : 0;
    *name = L"nl-NL";
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetNumberSubstitution(UINT32 position, UINT32* length,
                                                  IDWriteNumberSubstitution** none) override {
    *length = position < Length() ? Length() - position : 0;
    *none = nullptr;
    return S_OK;
  }

 private:
  std::wstring text_;
};

#pragma GCC diagnostic pop

}  // namespace

SystemFallback::SystemFallback(IDWriteFactory& factory) {
  ComPtr<IDWriteFactory2> newer;
  if (!Succeeded(factory.QueryInterface(IID_PPV_ARGS(&newer))) ||
      !Succeeded(newer->GetSystemFontFallback(&fallback_))) {
    fallback_.Reset();
  }
}

ComPtr<IDWriteFont> SystemFallback::FontFor(const FaceQuery& query,
                                            const std::wstring& family) const {
  if (!fallback_) return nullptr;
  CharacterSource source(query.codePoint.value_or(U' '));
  ComPtr<IDWriteFont> font;
  UINT32 length = 0;
  FLOAT scale = 1;
  const HRESULT result =
      fallback_->MapCharacters(&source, 0, source.Length(), nullptr, family.c_str(),
                               query.bold ? DWRITE_FONT_WEIGHT_BOLD : DWRITE_FONT_WEIGHT_NORMAL,
                               query.italic ? DWRITE_FONT_STYLE_ITALIC : DWRITE_FONT_STYLE_NORMAL,
                               DWRITE_FONT_STRETCH_NORMAL, &length, &font, &scale);
  return Succeeded(result) ? font : nullptr;
}

}  // namespace pagivo::native
