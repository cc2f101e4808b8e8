# The warnings that every target of the project is compiled with.
add_library(korvane_warnings INTERFACE)
target_compile_options(korvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wimplicit-fallthrough -Wunused
  $<$<BOOL:${KORVANE_WARNINGS_AS_ERRORS}>:-Werror>)
