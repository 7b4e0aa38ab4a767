// Outside libraries that are loaded when something of theirs is first called. Most documents need
// none of them, and together they took four fifths of the time that a process needs to start.
#pragma once

namespace pagivo {

// A shared library by the name that programs link it by. Once loaded it stays.
class LateLibrary {
 public:
  constexpr explicit LateLibrary(const char* name) : name_(name) {}

  // What has that name in the library or in those that it brings along. Raises
  // ErrorNumber::FileAccess, "De bibliotheek ... ontbreekt" or what else is wrong with it.
  void* Find(const char* symbol) const;

 private:
  const char* name_;
  mutable void* handle_ = nullptr;
};

// A function of such a library, which is called like the function itself:
//
//   inline constinit const LateLibrary kXml("libxml2.so.2");
//   PAGIVO_LATE_FUNCTION(kXml, xmlStopParser);
//
// Declared in our own namespace, it is found there before the one that the library's header
// declares.
template <typename Function>
class LateFunction {
 public:
  constexpr LateFunction(const LateLibrary& library, const char* name)
      : library_(library), name_(name) {}

  operator Function*() const {
    if (found_ == nullptr) found_ = reinterpret_cast<Function*>(library_.Find(name_));
    return found_;
  }

 private:
  const LateLibrary& library_;
  const char* name_;
  mutable Function* found_ = nullptr;
};

#define PAGIVO_LATE_FUNCTION(library, function) \
  inline constinit const LateFunction<decltype(::function)> function(library, #function)

}  // namespace pagivo
