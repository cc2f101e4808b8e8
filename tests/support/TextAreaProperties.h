/// What holds for a text area whatever the user does, for tests and the fuzzer.
#pragma once

#include <string>
#include <string_view>

namespace korvane::support {

/// Plays a program of keys, clicks, pastes, input methods and others to a text area, two bytes a step. What
/// is broken then: after each step, a selection within the text and on character boundaries, an edit that was
/// reported with its text, and pictures and reads by assistive technology that end; at the end, a history
/// that leads back to the first text and forth to the last. Empty if nothing is.
std::string brokenTextAreaProperty(std::string_view program);

} // namespace korvane::support
