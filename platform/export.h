#pragma once

// How a symbol leaves a library of this project, and how one comes in from it.

#ifdef _WIN32
#define SYMBOL_EXPORT __declspec(dllexport)
#define SYMBOL_IMPORT __declspec(dllimport)
#else
#define SYMBOL_EXPORT __attribute__((visibility("default")))
#define SYMBOL_IMPORT SYMBOL_EXPORT
#endif
