/// The desktop entry and the description for software centres list all tools, so that a search for a tool
/// finds the program.

#include "Models/Tool.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace korvane {
namespace {

std::string packagingFile(const std::string& name) {
    std::ifstream file(std::string(KORVANE_PACKAGING) + "/" + name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Packaging, TheDesktopEntryNamesAllToolsInTheirOrder) {
    std::string keywords = "\nKeywords=";
    for (const auto tool : allCases<Tool>)
        keywords += std::string(rawValue(tool)) + ';';
    EXPECT_NE(packagingFile("org.korvane.Korvane.desktop").find(keywords), std::string::npos) << keywords;
}

TEST(Packaging, TheDescriptionListsAllToolsInTheirOrder) {
    std::string list = "    <ul>\n";
    for (const auto tool : allCases<Tool>)
        list +=
            "      <li>" + std::string(rawValue(tool)) + ": " + std::string(description(tool)) + "</li>\n";
    list += "    </ul>\n";
    EXPECT_NE(packagingFile("org.korvane.Korvane.metainfo.xml").find(list), std::string::npos) << list;
}

} // namespace
} // namespace korvane
