#include "tests/ui/probe_calls.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <utility>

namespace pixora::ui {
namespace {

std::atomic<std::int32_t> allocations{0}, files{0}, reads{0};

/// What stands in the place of an import: it counts, and does what the import does.
template <std::size_t kNumber, auto& kCounter>
struct Counted {
    static inline void* original = nullptr;

    template <typename Result, typename... Arguments>
    static Result Call(Arguments... arguments) {
        ++kCounter;
        return reinterpret_cast<Result (*)(Arguments...)>(original)(arguments...);
    }
};

/// A function that the program imports, and what stands in its place.
struct Import {
    const char* name;
    void* counting;
    void** original;
};

template <std::size_t kNumber, auto& kCounter, typename Result, typename... Arguments>
Import Counting(const char* name) {
    using Place = Counted<kNumber, kCounter>;
    Result (*call)(Arguments...) = &Place::template Call<Result, Arguments...>;
    return {name, reinterpret_cast<void*>(call), &Place::original};
}

const std::array kImports = {
    Counting<0, allocations, void*, std::size_t>("malloc"),
    Counting<1, allocations, void*, std::size_t, std::size_t>("calloc"),
    Counting<2, allocations, void*, void*, std::size_t>("realloc"),
    Counting<3, files, void*, const wchar_t*, const wchar_t*>("_wfopen"),
    Counting<4, files, HANDLE, const wchar_t*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE>(
        "CreateFileW"),
    Counting<5, files, int, const wchar_t*, int, int>("_wopen"),  // whether or not a call has the third
    Counting<6, reads, int, int, void*, unsigned>("_read"),
};

template <typename Part>
Part* At(void* module, std::size_t offset) {
    return reinterpret_cast<Part*>(static_cast<unsigned char*>(module) + offset);
}

bool Replace(void** place, void* function) {
    DWORD access = 0;
    if (!VirtualProtect(place, sizeof *place, PAGE_READWRITE, &access)) return false;
    *place = function;
    return VirtualProtect(place, sizeof *place, access, &access);
}

/// Puts the counting functions in the place of the imports, some of which stand there twice.
/// @return how many different ones there are.
std::size_t PutInPlace() {
    void* module = GetModuleHandleW(nullptr);
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dos->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    std::size_t replaced = 0;
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
         library->FirstThunk != 0; ++library) {
        const auto* name = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* place = At<void*>(module, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* import = At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData);
            for (const Import& counted : kImports) {
                if (std::strcmp(reinterpret_cast<const char*>(import->Name), counted.name) != 0) continue;
                const bool again = std::exchange(*counted.original, *place) != nullptr;
                if (Replace(place, counted.counting) && !again) ++replaced;
            }
        }
    }
    return replaced;
}

}  // namespace

bool CountCalls() {
    static const bool in_place = PutInPlace() == kImports.size();
    allocations = files = reads = 0;
    return in_place;
}

CallCounts CountedCalls() {
    return {allocations, files, reads};
}

}  // namespace pixora::ui
