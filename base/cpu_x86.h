// Functions that use more of an x86 processor than every one has: marked by these, and called only where the
// processor has it. Empty, and never true, on other processors and compilers.
#pragma once

#if defined(__GNUC__) && defined(__x86_64__)
#define PIXORA_X86 1
#define PIXORA_SSSE3 __attribute__((target("ssse3")))
#define PIXORA_AVX2 __attribute__((target("avx2")))
#define PIXORA_AVX512 __attribute__((target("avx512bw,avx512vl,avx512vbmi,avx512vnni")))
#else
#define PIXORA_X86 0
#define PIXORA_SSSE3
#define PIXORA_AVX2
#define PIXORA_AVX512
#endif

// The C library has asked the processor already; in a virtual machine each question can take microseconds.
// Its header is C++ to some compilers only.
#if PIXORA_X86 && !defined(__clang__) && __has_include(<sys/platform/x86.h>)
#include <sys/platform/x86.h>
#define PIXORA_CPU_HAS(library_name, compiler_name) (CPU_FEATURE_ACTIVE(library_name) != 0)
#elif PIXORA_X86
#define PIXORA_CPU_HAS(library_name, compiler_name) (__builtin_cpu_supports(compiler_name) != 0)
#endif

namespace pixora {

#if PIXORA_X86
[[nodiscard]] inline bool HasSsse3() {
    static const bool has = PIXORA_CPU_HAS(SSSE3, "ssse3");
    return has;
}
[[nodiscard]] inline bool HasAvx2() {
    static const bool has = PIXORA_CPU_HAS(AVX2, "avx2");
    return has;
}
/// With byte permutations and multiply-and-add of bytes and words, which came later than the registers.
[[nodiscard]] inline bool HasAvx512() {
    static const bool has = PIXORA_CPU_HAS(AVX512BW, "avx512bw") && PIXORA_CPU_HAS(AVX512VL, "avx512vl") &&
                            PIXORA_CPU_HAS(AVX512_VBMI, "avx512vbmi") &&
                            PIXORA_CPU_HAS(AVX512_VNNI, "avx512vnni");
    return has;
}
#else
[[nodiscard]] constexpr bool HasSsse3() {
    return false;
}
[[nodiscard]] constexpr bool HasAvx2() {
    return false;
}
[[nodiscard]] constexpr bool HasAvx512() {
    return false;
}
#endif

}  // namespace pixora
