# Checks, without building anything, which file may see which:  cmake -P cmake/CheckLayering.cmake
#
#  - Portable files never include a header of Windows; those are for windows/ folders, platform/ and the UI tests.
#  - Folders include one another in one direction, as the table below says.
#  - A source file includes its own header first, which proves that the header compiles alone.
#  - GDI objects are deleted and selected by their owners in platform/gdi.h and nowhere else.
cmake_minimum_required(VERSION 3.25)
get_filename_component(ROOT ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)

# What each portable folder may include besides itself.
set(ALLOWED_base)
set(ALLOWED_image base)
set(ALLOWED_dialogs base)
set(ALLOWED_settings base dialogs)
set(ALLOWED_analysis base image dialogs settings)
set(ALLOWED_viewer base image dialogs settings analysis)
set(ALLOWED_app base image dialogs settings analysis viewer)
set(ALLOWED_cli base image dialogs settings analysis viewer app)
# What a folder's windows may include besides the portable folders up to their own and their own folder. A view is
# given the state of its viewer, so the portable part of viewer/ is open to the views.
set(ALLOWED_platform base)
set(ALLOWED_dialogs_windows platform resources)
set(ALLOWED_settings_windows platform resources dialogs_windows)
set(ALLOWED_analysis_windows platform resources dialogs_windows settings_windows viewer)
set(ALLOWED_viewer_windows platform resources dialogs_windows settings_windows analysis_windows)
set(ALLOWED_cli_windows)
set(ALLOWED_app_windows platform resources dialogs_windows settings_windows analysis_windows viewer_windows)

foreach(folder dialogs settings analysis viewer app cli)
  list(APPEND ALLOWED_${folder}_windows ${folder} ${ALLOWED_${folder}})
endforeach()
set(ALLOWED_resources)
set(WINDOWS_HEADERS
  windows windowsx winuser wingdi commctrl commdlg shellapi shlobj shlwapi shobjidl shtypes knownfolders objbase ole2
  gdiplus uxtheme dwmapi richedit tlhelp32 psapi process io direct)

set(problems 0)
function(complain file text)
  message(NOTICE "${file}: ${text}")
  math(EXPR count "${problems} + 1")
  set(problems ${count} PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE files RELATIVE ${ROOT}
  ${ROOT}/base/*.h ${ROOT}/base/*.cpp ${ROOT}/image/*.h ${ROOT}/image/*.cpp ${ROOT}/dialogs/*.h ${ROOT}/dialogs/*.cpp
  ${ROOT}/settings/*.h ${ROOT}/settings/*.cpp ${ROOT}/analysis/*.h ${ROOT}/analysis/*.cpp ${ROOT}/viewer/*.h
  ${ROOT}/viewer/*.cpp ${ROOT}/app/*.h ${ROOT}/app/*.cpp ${ROOT}/cli/*.h ${ROOT}/cli/*.cpp ${ROOT}/platform/*.h
  ${ROOT}/platform/*.cpp ${ROOT}/resources/*.h)
list(LENGTH files file_count)
if(file_count EQUAL 0)
  message(FATAL_ERROR "No source file was found.")
endif()

foreach(file IN LISTS files)
  get_filename_component(folder ${file} DIRECTORY)
  string(REPLACE "/" "_" layer ${folder})
  file(STRINGS ${ROOT}/${file} lines REGEX "^ *# *include")
  set(own_header "${file}")
  string(REGEX REPLACE "\\.cpp$" ".h" own_header "${file}")
  set(first TRUE)
  foreach(line IN LISTS lines)
    if(NOT line MATCHES "include *[<\"]([^>\"]+)[>\"]")
      continue()
    endif()
    set(header ${CMAKE_MATCH_1})
    if(first AND file MATCHES "\\.cpp$" AND EXISTS ${ROOT}/${own_header} AND NOT header STREQUAL own_header)
      complain(${file} "includes ${header} before its own header")
    endif()
    set(first FALSE)
    string(TOLOWER ${header} system_header)
    string(REGEX REPLACE "\\.h$" "" system_header ${system_header})
    if(system_header IN_LIST WINDOWS_HEADERS AND NOT layer MATCHES "_windows$|^platform$")
      complain(${file} "is portable and includes ${header}")
    endif()
    if(NOT line MATCHES "\"")
      continue()
    endif()
    if(NOT EXISTS ${ROOT}/${header})
      complain(${file} "includes ${header}, which is not a path from the project's root")
      continue()
    endif()
    get_filename_component(target ${header} DIRECTORY)
    string(REPLACE "/" "_" target ${target})
    if(NOT target STREQUAL layer AND NOT target IN_LIST ALLOWED_${layer})
      complain(${file} "includes ${header}, against the direction of the layers")
    endif()
  endforeach()
  if(NOT file STREQUAL "platform/gdi.h")
    file(STRINGS ${ROOT}/${file} owners REGEX "(^|[^A-Za-z])(DeleteObject|SelectObject|DeleteDC) *\\(")
    if(owners)
      complain(${file} "deletes or selects a GDI object itself; platform/gdi.h has owners for that")
    endif()
  endif()
endforeach()

if(problems GREATER 0)
  message(FATAL_ERROR "${problems} problems with the layers")
endif()
message(STATUS "${file_count} files keep to the layers")
