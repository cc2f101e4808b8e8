#include <gtest/gtest.h>

#include <clocale>

namespace korvane {
namespace {

/// Sets the locale of the environment, as Qt does for the program. With a decimal comma in it, tests detect
/// conversions that depend on the locale.
class LocaleEnvironment : public testing::Environment {
    void SetUp() override {
        EXPECT_NE(std::setlocale(LC_ALL, ""), nullptr) << "the locale of the environment is not installed";
    }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new LocaleEnvironment);

} // namespace
} // namespace korvane
