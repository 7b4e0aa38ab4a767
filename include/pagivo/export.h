// What a shared form of the component lets others see.
#pragma once

// Marks the classes and functions that a shared library hands out; everything else is compiled with
// hidden visibility. In a static library it changes nothing.
#ifdef __ELF__
#define PAGIVO_EXPORT __attribute__((visibility("default")))
#else
#define PAGIVO_EXPORT
#endif
