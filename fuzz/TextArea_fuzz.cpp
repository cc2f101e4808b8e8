#include "Desktop/Window/Application.h"
#include "support/TextAreaProperties.h"

#include <QApplication>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Suppresses what fontconfig keeps.
extern "C" const char*
__lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier): the sanitizer's name

const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig\n";
}

namespace {

constexpr std::size_t maxSteps = 60; // each of which paints the text

void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: the fuzzer exits without a return from here.
    [[maybe_unused]] static const auto* application = new QApplication(*argc, *argv);
    korvane::setUpApplication();
    qInstallMessageHandler(ignoreMessage);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view program(reinterpret_cast<const char*>(data), size);
    if (const auto broken = korvane::support::brokenTextAreaProperty(program.substr(0, 2 * maxSteps));
        !broken.empty()) {
        std::fprintf(stderr, "%s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
