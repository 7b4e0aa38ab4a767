// An object of a host: members by name, and perhaps a default property.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "automation_test.h"

namespace pagivo::automation::testing {

class HostObject final : public IDispatch {
 public:
  // Adds a member; one of an empty name is the default property.
  void Put(std::wstring name, const Value& value) {
    if (name.empty()) {
      default_.emplace_back(value);
    } else {
      members_.emplace_back(std::move(name), value);
    }
  }
  bool HasBeenAskedFor(const std::wstring& name) const { return asked_.count(name) > 0; }
  ULONG References() const { return references_; }

  STDMETHODIMP QueryInterface(REFIID id, void** found) override {
    const bool isOffered = id == IID_IUnknown || id == IID_IDispatch;
    *found = isOffered ? this : nullptr;
    if (!isOffered) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }  // the test owns it
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    ++asked_[*names];
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (members_[i].first == *names) {
        *ids = static_cast<DISPID>(i) + 1;
        return S_OK;
      }
    }
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) override {
    if (id == DISPID_VALUE) {
      if (default_.empty()) return DISP_E_MEMBERNOTFOUND;
      return default_.front().CopyTo(result);
    }
    return members_.at(static_cast<std::size_t>(id) - 1).second.CopyTo(result);
  }

 private:
  std::vector<std::pair<std::wstring, Value>> members_;
  std::vector<Value> default_;
  std::map<std::wstring, int> asked_;
  ULONG references_ = 1;
};

}  // namespace pagivo::automation::testing
