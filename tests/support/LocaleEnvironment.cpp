#include <gtest/gtest.h>

#include <clocale>

namespace korvane {
namespace {

/// Puts the tests under the locale that the environment asks for, as the window system does with the program.
/// Where that locale writes a comma in numbers, a conversion that follows it is found out.
class LocaleEnvironment : public testing::Environment {
    void SetUp() override {
        EXPECT_NE(std::setlocale(LC_ALL, ""), nullptr) << "the locale of the environment is not installed";
    }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new LocaleEnvironment);

} // namespace
} // namespace korvane
