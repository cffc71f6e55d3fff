#pragma once

// How a symbol leaves a library of this project, and how one comes in from it. A class of which
// only some operations leave it has SYMBOL_CLASS, and SYMBOL_EXPORT on those; elsewhere than on
// Windows the library's export map then keeps the others back.

#ifdef _WIN32
#define SYMBOL_EXPORT __declspec(dllexport)
#define SYMBOL_IMPORT __declspec(dllimport)
#define SYMBOL_CLASS
#else
#define SYMBOL_EXPORT __attribute__((visibility("default")))
#define SYMBOL_IMPORT SYMBOL_EXPORT
#define SYMBOL_CLASS SYMBOL_EXPORT
#endif
