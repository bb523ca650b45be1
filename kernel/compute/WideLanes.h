#pragma once

/// @file
/// For functions with long loops: the compiler makes variants for wide vectors beside the plain one, and the variant for
/// the processor is chosen when the library is loaded. Results are to be the same on all processors, so a source that uses it
/// is compiled without fusing multiplications and additions (kernel/CMakeLists.txt).
///
/// Nothing may be thrown out of such a function: GCC 12 takes calls of it for ones that never throw, so that an exception ends the
/// process. It takes no memory and does not check a progress; what it calls asks Progress::isInterrupted() and returns.

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_THREAD__)
#define VELDRAW_WIDE_LANES(...) __attribute__((target_clones(__VA_ARGS__, "default")))
#else
#define VELDRAW_WIDE_LANES(...)
#endif

/// For what such a function calls: only what is inlined becomes a part of all variants.
#define VELDRAW_INLINE [[gnu::always_inline]] inline
