#include "system/posix/late_library.h"

#include <dlfcn.h>

#include <string>

#include "pagivo/error.h"

namespace pagivo {

void* LateLibrary::Find(const char* symbol) const {
  if (handle_ == nullptr) handle_ = dlopen(name_, RTLD_LAZY | RTLD_LOCAL);
  if (handle_ == nullptr) {
    throw Error(ErrorNumber::FileAccess, std::string("De bibliotheek ") + name_ + " ontbreekt");
  }
  void* const found = dlsym(handle_, symbol);
  if (found == nullptr) {
    throw Error(ErrorNumber::FileAccess,
                std::string("In de bibliotheek ") + name_ + " ontbreekt " + symbol);
  }
  return found;
}

}  // namespace pagivo
