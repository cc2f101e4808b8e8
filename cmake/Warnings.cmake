# Compiler warnings of all targets.
add_library(korvane_warnings INTERFACE)
target_compile_options(korvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wsuggest-override -Wzero-as-null-pointer-constant -Wimplicit-fallthrough -Wunused
  # Clang reports uses of deprecated functions inside the standard library at the calling line of the project.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
  $<$<BOOL:${KORVANE_WARNINGS_AS_ERRORS}>:-Werror>)
