// Functions that use more of an x86 processor than every one has: marked by these, and called only where the
// processor has it. Empty, and never true, on other processors and compilers.
#pragma once

#if defined(__GNUC__) && defined(__x86_64__)
#define PIXORA_X86 1
#define PIXORA_SSSE3 __attribute__((target("ssse3")))
#define PIXORA_AVX2 __attribute__((target("avx2")))
#else
#define PIXORA_X86 0
#define PIXORA_SSSE3
#define PIXORA_AVX2
#endif

namespace pixora {

#if PIXORA_X86
[[nodiscard]] inline bool HasSsse3() {
    static const bool has = __builtin_cpu_supports("ssse3") != 0;
    return has;
}
[[nodiscard]] inline bool HasAvx2() {
    static const bool has = __builtin_cpu_supports("avx2") != 0;
    return has;
}
#else
[[nodiscard]] constexpr bool HasSsse3() {
    return false;
}
[[nodiscard]] constexpr bool HasAvx2() {
    return false;
}
#endif

}  // namespace pixora
