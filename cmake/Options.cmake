# What every target of the project is compiled with.
add_library(pixora_options INTERFACE)
target_compile_features(pixora_options INTERFACE cxx_std_20)
target_include_directories(pixora_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(pixora_options INTERFACE
  # The resource compiler takes none of these.
  "$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow;-Werror>"
  # The same integers come out of a ratio on every machine only without fused multiply-adds.
  "$<$<COMPILE_LANGUAGE:C,CXX>:-ffp-contract=off>")
target_compile_definitions(pixora_options INTERFACE _FILE_OFFSET_BITS=64)

if(PIXORA_SANITIZE)
  target_compile_options(pixora_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(pixora_options INTERFACE -fsanitize=address,undefined)
endif()
if(PIXORA_FUZZ)
  target_compile_options(pixora_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(WIN32)
  target_compile_definitions(pixora_options INTERFACE
    UNICODE _UNICODE STRICT WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 NTDDI_VERSION=0x0A000006)
  target_link_options(pixora_options INTERFACE -static -municode)
endif()
