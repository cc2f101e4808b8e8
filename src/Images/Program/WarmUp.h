/// Has the libraries of the image process do, once, all that they do only at the first use: load codecs and
/// tables, read about processors and memory, compile their inner loops, start threads. Afterwards they work
/// without opening a file.
#pragma once

namespace korvane {

/// Uses every codec and operation on small pictures. Returns whether the libraries work.
bool warmUpImageLibraries();

} // namespace korvane
