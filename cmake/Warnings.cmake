# The warnings that every target of the project is compiled with.
add_library(korvane_warnings INTERFACE)
target_compile_options(korvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wsuggest-override -Wzero-as-null-pointer-constant -Wimplicit-fallthrough -Wunused
  # The standard library's own use of a function that it deprecates is reported at our call.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
  $<$<BOOL:${KORVANE_WARNINGS_AS_ERRORS}>:-Werror>)
